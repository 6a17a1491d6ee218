#include "TrendPlot.h"

#include "DateUtils.h"

#include <QBarSet>
#include <QCategoryAxis>
#include <QChart>
#include <QLineSeries>
#include <QStackedBarSeries>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace lanzhou {

namespace {

// About this many dates fit under a chart of the window's width.
constexpr int datesShown = 6;

// A scale from lo to hi with round ticks; a flat one is opened around its value.
void setScale(QValueAxis* axis, double lo, double hi)
{
    if (lo == hi) {
        lo -= 1;
        hi += 1;
    }
    axis->setRange(lo, hi);
    axis->applyNiceNumbers();
}

QBarSet* barSet(const QString& name, const QColor& color)
{
    auto* set = new QBarSet(name);
    set->setColor(color);
    set->setBorderColor(color);
    return set;
}

} // namespace

TrendPlot::TrendPlot(QChart* chart, const QString& quantityLabel)
    : m_line(new QLineSeries), m_increases(barSet(QStringLiteral("增加"), QColor(0xd9, 0x53, 0x4f, 0xb0))),
      m_decreases(barSet(QStringLiteral("减少"), QColor(0x3c, 0x9a, 0x5f, 0xb0))), m_steps(new QCategoryAxis),
      m_quantity(new QValueAxis), m_moves(new QValueAxis)
{
    m_line->setName(quantityLabel);
    QPen pen(QColor(0x1f, 0x5f, 0xbf));
    pen.setWidth(2);
    m_line->setPen(pen);
    auto* bars = new QStackedBarSeries;
    bars->append({m_increases, m_decreases});
    bars->setBarWidth(0.8);
    m_steps->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    m_quantity->setTitleText(quantityLabel);
    m_moves->setTitleText(QStringLiteral("增减"));
    m_quantity->setLabelFormat(QStringLiteral("%.10g"));
    m_moves->setLabelFormat(QStringLiteral("%.10g"));

    // The bars first, so that the line is drawn over them.
    chart->addSeries(bars);
    chart->addSeries(m_line);
    chart->addAxis(m_steps, Qt::AlignBottom);
    chart->addAxis(m_quantity, Qt::AlignLeft);
    chart->addAxis(m_moves, Qt::AlignRight);
    m_line->attachAxis(m_steps);
    m_line->attachAxis(m_quantity);
    bars->attachAxis(m_steps);
    bars->attachAxis(m_moves);
}

void TrendPlot::show(const QList<TrendPoint>& points, TrendStep step)
{
    QList<QPointF> line;
    QList<qreal> increases;
    QList<qreal> decreases;
    double lowest = points.isEmpty() ? 0 : points.constFirst().balance;
    double highest = lowest;
    double widest = 0;
    for (const TrendPoint& p : points) {
        line.append({qreal(line.size()), p.balance});
        increases.append(p.increase);
        decreases.append(p.decrease);
        lowest = std::min(lowest, p.balance);
        highest = std::max(highest, p.balance);
        widest = std::max({widest, p.increase, -p.decrease});
    }
    // The bars are emptied first and filled last, so that the scales change while there are no bars
    // to lay out again.
    m_increases->remove(0, m_increases->count());
    m_decreases->remove(0, m_decreases->count());
    m_line->replace(line);

    // Step i spans i - 0.5 to i + 0.5; every so many steps its date is named under it.
    for (const QString& label : m_steps->categoriesLabels())
        m_steps->remove(label);
    m_steps->setRange(-0.5, qreal(points.size()) - 0.5);
    m_steps->setStartValue(-0.5);
    const auto every = qsizetype(std::ceil(double(points.size()) / datesShown));
    for (qsizetype i = 0; i < points.size(); i += every) {
        const QString date = FormatDate(points.at(i).date);
        m_steps->append(step == TrendStep::Month ? date.left(7) : date, qreal(i));
    }
    setScale(m_quantity, lowest, highest);
    // Zero in the middle, so that increases rise and decreases fall alike.
    setScale(m_moves, -widest, widest);
    m_increases->append(increases);
    m_decreases->append(decreases);
}

} // namespace lanzhou
