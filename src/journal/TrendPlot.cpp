#include "TrendPlot.h"

#include "DateUtils.h"

#include <QBarCategoryAxis>
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
      m_decreases(barSet(QStringLiteral("减少"), QColor(0x3c, 0x9a, 0x5f, 0xb0))),
      m_slots(new QBarCategoryAxis), m_dates(new QCategoryAxis), m_quantity(new QValueAxis),
      m_moves(new QValueAxis)
{
    m_line->setName(quantityLabel);
    QPen pen(QColor(0x1f, 0x5f, 0xbf));
    pen.setWidth(2);
    m_line->setPen(pen);
    auto* bars = new QStackedBarSeries;
    bars->append(m_increases);
    bars->append(m_decreases);
    bars->setBarWidth(0.8);
    m_slots->setVisible(false);
    m_dates->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    m_quantity->setTitleText(quantityLabel);
    m_moves->setTitleText(QStringLiteral("增减"));
    m_quantity->setLabelFormat(QStringLiteral("%.10g"));
    m_moves->setLabelFormat(QStringLiteral("%.10g"));

    // The bars first, so that the line is drawn over them.
    chart->addSeries(bars);
    chart->addSeries(m_line);
    chart->addAxis(m_dates, Qt::AlignBottom);
    chart->addAxis(m_slots, Qt::AlignBottom);
    chart->addAxis(m_quantity, Qt::AlignLeft);
    chart->addAxis(m_moves, Qt::AlignRight);
    m_line->attachAxis(m_dates);
    m_line->attachAxis(m_quantity);
    bars->attachAxis(m_slots);
    bars->attachAxis(m_moves);
}

void TrendPlot::show(const QList<TrendPoint>& points, TrendStep step)
{
    QList<QPointF> line;
    QList<qreal> increases;
    QList<qreal> decreases;
    QStringList dates;
    double lowest = points.isEmpty() ? 0 : points.constFirst().balance;
    double highest = lowest;
    double widest = 0;
    for (const TrendPoint& p : points) {
        line.append({qreal(line.size()), p.balance});
        increases.append(p.increase);
        decreases.append(p.decrease);
        dates.append(FormatDate(p.date));
        lowest = std::min(lowest, p.balance);
        highest = std::max(highest, p.balance);
        widest = std::max({widest, p.increase, -p.decrease});
    }
    m_line->replace(line);
    m_increases->remove(0, m_increases->count());
    m_decreases->remove(0, m_decreases->count());
    m_increases->append(increases);
    m_decreases->append(decreases);
    m_slots->clear();
    m_slots->append(dates);

    // Slot i spans i - 0.5 to i + 0.5; every so many steps the date is named under its slot.
    for (const QString& label : m_dates->categoriesLabels())
        m_dates->remove(label);
    m_dates->setRange(-0.5, qreal(points.size()) - 0.5);
    m_dates->setStartValue(-0.5);
    const auto every = qsizetype(std::ceil(double(points.size()) / datesShown));
    for (qsizetype i = 0; i < points.size(); i += every)
        m_dates->append(step == TrendStep::Month ? dates.at(i).left(7) : dates.at(i), qreal(i));

    setScale(m_quantity, lowest, highest);
    // Zero in the middle, so that increases rise and decreases fall alike.
    setScale(m_moves, -widest, widest);
}

} // namespace lanzhou
