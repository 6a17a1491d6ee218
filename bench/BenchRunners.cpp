#include "Bench.h"
#include "LedgerGenerator.h"

namespace lanzhou::bench {

namespace {

// One RunScalar, and one RunQuery that reads 1,000 rows, each on a fresh connection.
void runners(const QStringList& backends)
{
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, {QStringLiteral("13800000000"), 1000, 50, 2026});
        Database& db = *ledger.t.db;
        const double scalar = medianMs(
            200, [&] { db.RunScalar(QStringLiteral("select ZBNM  from zblst Where ZBID='13800000000'")); });
        const double query = medianMs(50, [&] {
            if (db.RunQuery(
                    QStringLiteral("select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='13800000000'")) !=
                QLatin1String("1000"))
                qFatal("unexpected row count");
        });
        printFigure(QStringLiteral("runscalar"), backend, scalar, peakMemoryMiB());
        printFigure(QStringLiteral("runquery-1000-rows"), backend, query, peakMemoryMiB());
    }
}

const Register reg(QStringLiteral("runners"), runners);

} // namespace

} // namespace lanzhou::bench
