#pragma once

#include "TrendData.h"

class QBarSet;
class QCategoryAxis;
class QChart;
class QLineSeries;
class QValueAxis;

namespace lanzhou {

// The picture of a trend chart: the running quantity as a line (left scale), and each step's increases
// and decreases as bars above and below zero behind it (right scale). Both stand on the steps: step i
// lies at i on the bottom scale, which names a few of the steps' dates.
class TrendPlot
{
public:
    // Builds the series and axes into the chart, which keeps them.
    TrendPlot(QChart* chart, const QString& quantityLabel);

    // Replaces what the chart shows by these points, one per step.
    void show(const QList<TrendPoint>& points, TrendStep step);

private:
    QLineSeries* m_line;
    QBarSet* m_increases;
    QBarSet* m_decreases;
    QCategoryAxis* m_steps;
    QValueAxis* m_quantity;
    QValueAxis* m_moves;
};

} // namespace lanzhou
