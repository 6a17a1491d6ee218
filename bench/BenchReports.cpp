#include "Bench.h"
#include "LedgerGenerator.h"

#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

namespace lanzhou::bench {

namespace {

void pick(QWidget& window, const QString& name, const QString& text)
{
    auto* list = window.findChild<QComboBox*>(name);
    list->setCurrentIndex(list->findText(text));
}

// From pressing 统计 to the finished summary of all 1,000 items of a ledger of 100,000 entries over
// three years, for the whole of its last year; and the peak memory meanwhile.
void summary(const QStringList& backends)
{
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, LedgerShape());
        AppContext context = ledger.t.context();
        JournalOpener journal(context, nullptr);
        HzLst window(context, journal);
        window.show();
        pick(window, QStringLiteral("Cmb_1"), QStringLiteral("01"));
        pick(window, QStringLiteral("Cmb_2"), QStringLiteral("01"));
        pick(window, QStringLiteral("Cmb2_1"), QStringLiteral("12"));
        pick(window, QStringLiteral("Cmb2_2"), QStringLiteral("31"));
        auto* run = window.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
        auto* lines = window.findChild<QListWidget*>(QStringLiteral("Lst"));
        resetPeakMemory();
        const double ms = medianMs(5, [&] {
            run->click();
            // Head, a line and a rule per item, totals and the closing rule.
            if (lines->count() != 3 + 2 * 1000 + 2)
                qFatal("summary incomplete: %d lines", int(lines->count()));
        });
        printFigure(QStringLiteral("summary"), backend, ms, peakMemoryMiB());
    }
}

// From pressing 统计 to the finished balance list of the same ledger: every item's total, with the
// default condition (大于 0).
void balanceList(const QStringList& backends)
{
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, LedgerShape());
        AppContext context = ledger.t.context();
        JournalOpener journal(context, nullptr);
        KcLst window(context, journal);
        window.show();
        auto* run = window.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
        auto* lines = window.findChild<QListWidget*>(QStringLiteral("Lst"));
        resetPeakMemory();
        const double ms = medianMs(5, [&] {
            run->click();
            if (lines->count() < 3 + 3 + 100)
                qFatal("balance list incomplete: %d lines", int(lines->count()));
        });
        printFigure(QStringLiteral("balance-list"), backend, ms, peakMemoryMiB());
    }
}

const Register summaryBench(QStringLiteral("summary"), summary);
const Register balanceListBench(QStringLiteral("balance-list"), balanceList);

} // namespace

} // namespace lanzhou::bench
