#include "Bench.h"
#include "LedgerGenerator.h"

#include "TrendChart.h"

#include <QChartView>
#include <QDateEdit>
#include <QLineSeries>
#include <QPushButton>

namespace lanzhou::bench {

namespace {

// The trend chart of one item with 10,000 entries over three years, by day for the whole three years:
// from pressing 绘制 to the rendered picture (the read, the steps, the series and one painting), and
// the peak memory meanwhile.
void trendChart(const QStringList& backends)
{
    constexpr int days = 366 + 365 + 365;
    for (const QString& backend : backends) {
        BenchLedger ledger(backend, {QStringLiteral("13800000000"), 10000, 1, 2026});
        TrendChart window(ledger.t.context(), QStringLiteral("物品0000"));
        window.resize(900, 560);
        window.show();
        window.findChild<QDateEdit*>(QStringLiteral("DtpStart"))->setDate(QDate(2024, 1, 1));
        window.findChild<QDateEdit*>(QStringLiteral("DtpEnd"))->setDate(QDate(2026, 12, 31));
        auto* draw = window.findChild<QPushButton*>(QStringLiteral("Cmd_0"));
        auto* view = window.findChild<QChartView*>(QStringLiteral("ChartView"));
        resetPeakMemory();
        const double ms = medianMs(5, [&] {
            draw->click();
            view->grab();
            const auto* line = qobject_cast<QLineSeries*>(view->chart()->series().at(1));
            if (line->count() != days)
                qFatal("chart incomplete: %d days", int(line->count()));
        });
        printFigure(QStringLiteral("chart"), backend, ms, peakMemoryMiB());
    }
}

const Register reg(QStringLiteral("chart"), trendChart);

} // namespace

} // namespace lanzhou::bench
