#pragma once

#include "TestContext.h"

namespace lanzhou::bench {

// Fills a ledger with `entries` movements spread over `items` items and three years of times (the
// year named and the two before it), in one transaction, and registers the ledger and its operator.
struct LedgerShape
{
    QString ledgerId = QStringLiteral("13800000000");
    int entries = 100000;
    int items = 1000;
    int year = 2026;
};

void generateLedger(test::TestContext& t, const LedgerShape& shape);

} // namespace lanzhou::bench
