#pragma once

#include "ServerRelay.h"
#include "TestContext.h"

#include <memory>

namespace lanzhou::bench {

// Fills a ledger with `entries` movements spread over `items` items and three years of times (the
// year named and the two before it), in one transaction, and registers the ledger and its operator.
// The first `tombstones` entries are removed by 管理员 a few hours after their time: every second one
// by a modify, which added a replacement at the same time under the entry editor's ID.
struct LedgerShape
{
    QString ledgerId = QStringLiteral("13800000000");
    int entries = 100000;
    int items = 1000;
    int year = 2026;
    int tombstones = 0;
};

void generateLedger(test::TestContext& t, const LedgerShape& shape);

// A backend of the benchmarks with its generated ledger: "sqlite", "postgresql", "postgresql-odbc",
// or "postgresql-30ms", the test server behind a relay with a 30 ms round trip. The ledger is generated
// over the direct link before the relay takes over.
struct BenchLedger
{
    BenchLedger(const QString& backend, const LedgerShape& shape);

    test::TestContext t;
    std::unique_ptr<test::ServerRelay> relay;
};

} // namespace lanzhou::bench
