#include "Bench.h"
#include "LedgerGenerator.h"

#include "LedgerCopy.h"

#include <memory>

namespace lanzhou::bench {

namespace {

// Moving a ledger of 100,000 entries over 1,000 items from the embedded file to PostgreSQL on this
// computer, each run into an emptied database; and the peak memory meanwhile.
void copyLedger(const QStringList&)
{
    const LedgerShape shape;
    BenchLedger ledger(QStringLiteral("sqlite"), shape);
    std::unique_ptr<test::TestContext> target;
    resetPeakMemory();
    const double ms = medianMs(
        3, [&] { target = std::make_unique<test::TestContext>(QStringLiteral("postgresql")); },
        [&] {
            const CopyOutcome copied = CopyLedger(*ledger.t.db, *target->db, shape.ledgerId);
            if (!copied.ok)
                qFatal("copy failed: %s", qPrintable(copied.error));
        });
    printFigure(QStringLiteral("copy-ledger"), QStringLiteral("postgresql"), ms, peakMemoryMiB());
}

const Register reg(QStringLiteral("copy"), copyLedger);

} // namespace

} // namespace lanzhou::bench
