#include "Bench.h"
#include "LedgerGenerator.h"

#include "MxLst.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

namespace lanzhou::bench {

namespace {

// From pressing 统计 to the finished listing of one year of a ledger of 100,000 entries over
// 1,000 items and three years (about a third of them listed), with the running balance (sorted by
// item) and sorted by time; and the peak memory meanwhile.
void journalListing(const QStringList& backends)
{
    constexpr int entries = 100000;
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, {QStringLiteral("13800000000"), entries, 1000, 2026});
        test::TestContext& t = ledger.t;
        AppContext context = t.context();
        MxLst journal(context);
        journal.resize(1100, 700);
        journal.show();
        pick(journal, QStringLiteral("Cmb_1"), QStringLiteral("01"));
        pick(journal, QStringLiteral("Cmb_2"), QStringLiteral("01"));
        pick(journal, QStringLiteral("Cmb2_1"), QStringLiteral("12"));
        pick(journal, QStringLiteral("Cmb2_2"), QStringLiteral("31"));
        auto* query = journal.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
        auto* lines = journal.findChild<QListWidget*>(QStringLiteral("Lst"));
        auto* sort = journal.findChild<QComboBox*>(QStringLiteral("CmbSort"));

        for (const auto& [order, name] : {std::pair{0, "journal-balance"}, {1, "journal-time"}}) {
            sort->setCurrentIndex(order);
            resetPeakMemory();
            const double ms = medianMs(5, [&] {
                query->click();
                if (lines->count() < entries / 4)
                    qFatal("journal listing incomplete: %d lines", int(lines->count()));
            });
            printFigure(QString::fromLatin1(name), backend, ms, peakMemoryMiB());
        }
    }
}

const Register reg(QStringLiteral("journal"), journalListing);

} // namespace

} // namespace lanzhou::bench
