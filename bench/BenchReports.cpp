#include "Bench.h"
#include "LedgerGenerator.h"

#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"

#include <QListWidget>
#include <QPushButton>

namespace lanzhou::bench {

namespace {

// Presses 统计 five times and prints the median and the peak memory meanwhile; a run that draws fewer
// lines than it must stops the benchmark.
void timeRun(QWidget& window, const QString& name, const QString& backend, int minimumLines)
{
    auto* run = window.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
    auto* lines = window.findChild<QListWidget*>(QStringLiteral("Lst"));
    resetPeakMemory();
    const double ms = medianMs(5, [&] {
        run->click();
        if (lines->count() < minimumLines)
            qFatal("%s incomplete: %d lines", qPrintable(name), int(lines->count()));
    });
    printFigure(name, backend, ms, peakMemoryMiB());
}

// On one ledger of 100,000 entries over 1,000 items and three years: the summary of all items for the
// whole of its last year (head, a line and a rule per item, totals and the closing rule), and the
// balance list with its default condition (大于 0).
void reports(const QStringList& backends)
{
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, LedgerShape());
        AppContext context = ledger.t.context();
        JournalOpener journal(context, nullptr);

        HzLst summary(context, journal);
        summary.show();
        pick(summary, QStringLiteral("Cmb_1"), QStringLiteral("01"));
        pick(summary, QStringLiteral("Cmb_2"), QStringLiteral("01"));
        pick(summary, QStringLiteral("Cmb2_1"), QStringLiteral("12"));
        pick(summary, QStringLiteral("Cmb2_2"), QStringLiteral("31"));
        timeRun(summary, QStringLiteral("summary"), backend, 3 + 2 * 1000 + 2);

        KcLst balances(context, journal);
        balances.show();
        timeRun(balances, QStringLiteral("balance-list"), backend, 3 + 100 + 3);
    }
}

const Register reg(QStringLiteral("reports"), reports);

} // namespace

} // namespace lanzhou::bench
