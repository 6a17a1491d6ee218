#include "Bench.h"
#include "LedgerGenerator.h"

#include "ChangeHistory.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>

namespace lanzhou::bench {

namespace {

// From pressing 查询 with 全部 ticked to the finished change history of a ledger of 30,000 entries
// with 10,000 tombstones, half of them left by modifies whose replacements are paired beside them:
// one read for the tombstones and one for the replacements, whatever the number of lines.
void history(const QStringList& backends)
{
    constexpr int tombstones = 10000;
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, {QStringLiteral("13800000000"), 30000, 1000, 2026, tombstones});
        AppContext context = ledger.t.context();
        ChangeHistory window(context);
        window.resize(1100, 700);
        window.show();
        window.findChild<QCheckBox*>(QStringLiteral("ChkAll"))->setChecked(true);
        auto* query = window.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
        auto* lines = window.findChild<QListWidget*>(QStringLiteral("Lst"));
        resetPeakMemory();
        const double ms = medianMs(5, [&] {
            query->click();
            // Each removal and each replacement beside it, within the heading and the rules.
            if (lines->count() < tombstones + tombstones / 2)
                qFatal("history incomplete: %d lines", int(lines->count()));
        });
        printFigure(QStringLiteral("history"), backend, ms, peakMemoryMiB());
    }
}

const Register reg(QStringLiteral("history"), history);

} // namespace

} // namespace lanzhou::bench
