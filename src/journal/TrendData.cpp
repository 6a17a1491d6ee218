#include "TrendData.h"

#include "DateUtils.h"
#include "ResultGrid.h"
#include "ServerDialect.h"
#include "TextUtils.h"

namespace lanzhou {

namespace {

QDate stepStart(const QDate& day, TrendStep step)
{
    switch (step) {
    case TrendStep::Week:
        return day.addDays(1 - day.dayOfWeek());
    case TrendStep::Month:
        return QDate(day.year(), day.month(), 1);
    case TrendStep::Day:
        break;
    }
    return day;
}

} // namespace

QString TrendStatement(ServerKind kind, const QString& ledgerId, const QString& item, const QDate& from,
                       const QDate& to)
{
    const QString day = DayOfTime(kind, QStringLiteral("TM"));
    const QString entries = QStringLiteral(" from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
                            QStringLiteral("' and Item='") + SqlLiteral(item) + QStringLiteral("' and TM");
    // TM below the next day's date takes every time of the last day, however it was written.
    return QStringLiteral("select '',sum(SL),0") + entries + QStringLiteral("<'") + FormatDate(from) +
           QStringLiteral("' union all select ") + day +
           QStringLiteral(",sum(case when SL>=0 then SL else 0 end),sum(case when SL<0 then SL else 0 end)") +
           entries + QStringLiteral(">='") + FormatDate(from) + QStringLiteral("' and TM<'") +
           FormatDate(to.addDays(1)) + QStringLiteral("' group by ") + day;
}

DailyMoves ReadDailyMoves(const ResultGrid& rows)
{
    DailyMoves moves;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        const QString day = rows.cell(i, 0);
        if (day.isEmpty()) {
            moves.opening = NumericValue(rows.cell(i, 1));
            continue;
        }
        const QDate date = QDate::fromString(day, QStringLiteral("yyyy-MM-dd"));
        if (date.isValid())
            moves.days.insert(date, {NumericValue(rows.cell(i, 1)), NumericValue(rows.cell(i, 2))});
    }
    return moves;
}

QList<TrendPoint> TrendPoints(const DailyMoves& moves, const QDate& from, const QDate& to, TrendStep step)
{
    QList<TrendPoint> points;
    double balance = moves.opening;
    QDate current;
    for (QDate day = from; day <= to; day = day.addDays(1)) {
        const QDate start = stepStart(day, step);
        if (start != current) {
            current = start;
            points.append({day, 0, 0, balance});
        }
        const DailyMoves::Day moved = moves.days.value(day);
        TrendPoint& point = points.last();
        point.increase += moved.increase;
        point.decrease += moved.decrease;
        balance += moved.increase + moved.decrease;
        point.balance = balance;
    }
    return points;
}

} // namespace lanzhou
