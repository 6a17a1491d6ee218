#pragma once

#include "DbConfig.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>

namespace lanzhou {

class ResultGrid;

// One item's movements over a period, day by day, and the quantity it held before the period.
struct DailyMoves
{
    struct Day
    {
        double increase = 0;
        double decrease = 0; // negative, as the entries hold it
    };
    double opening = 0;
    QMap<QDate, Day> days;
};

// The steps of a trend chart: each point sums the days of one step.
enum class TrendStep
{
    Day,
    Week, // Monday to Sunday
    Month
};

struct TrendPoint
{
    QDate date; // the step's first day inside the period
    double increase = 0;
    double decrease = 0; // negative
    double balance = 0;  // at the end of the step
};

// The one read of a chart: a row with an empty day holding the balance before `from`, then one row
// per day from `from` to `to` (both whole days) with the sums of its increases (SL>=0) and
// decreases (SL<0). The ledger ID and the item, as the server stored them, go in as safe literals.
QString TrendStatement(ServerKind kind, const QString& ledgerId, const QString& item, const QDate& from,
                       const QDate& to);

// The rows of that read. A day that is not a date (a posting time written by hand) is left out.
DailyMoves ReadDailyMoves(const ResultGrid& rows);

// One point per step from `from` to `to`, days without entries included, so that the line runs flat
// where nothing moved; the balances start from the opening.
QList<TrendPoint> TrendPoints(const DailyMoves& moves, const QDate& from, const QDate& to, TrendStep step);

} // namespace lanzhou
