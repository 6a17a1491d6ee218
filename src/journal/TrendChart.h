#pragma once

#include "AppContext.h"
#include "ListWindow.h"
#include "Rights.h"
#include "TrendData.h"

#include <memory>

namespace Ui {
class TrendChart;
}

namespace lanzhou {

class TrendPlot;

// The trend chart (趋势图) of one item: its running quantity over a period, by day, week or month,
// with each step's increases and decreases as bars. The period is read in one statement, by day;
// weeks and months are summed here, so that changing the step asks the server nothing.
class TrendChart : public ListWindow
{
    Q_OBJECT
public:
    TrendChart(const AppContext& context, const QString& item, QWidget* parent = nullptr);
    ~TrendChart() override;

    // Reads the chosen period and draws it; a failed read leaves the chart as it was.
    void draw();

private:
    TrendStep step() const;
    // Draws the days last read by the chosen step.
    void plot();
    void savePicture();

    std::unique_ptr<Ui::TrendChart> ui;
    std::unique_ptr<TrendPlot> m_plot;
    AppContext m_context;
    QString m_item;
    // The days last read and their period; no period before the first read.
    DailyMoves m_moves;
    QDate m_from;
    QDate m_to;
};

// Opens the trend chart of `item` from a window whose use needs `right`: refused without the right,
// and with "请首先选择一个" + item label + "！" when no item is chosen.
void OpenTrendChart(const AppContext& context, Right right, const QString& item, QWidget* owner);

} // namespace lanzhou
