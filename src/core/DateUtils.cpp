#include "DateUtils.h"

#include "Clock.h"
#include "Database.h"
#include "Session.h"
#include "TextUtils.h"

#include <QDateTime>
#include <QStringList>

namespace lanzhou {

QString FormatDate(const QDate& date)
{
    return QStringLiteral("%1-%2-%3")
        .arg(date.year())
        .arg(date.month(), 2, 10, QLatin1Char('0'))
        .arg(date.day(), 2, 10, QLatin1Char('0'));
}

QString LocalTimeText(const Clock& clock)
{
    const QTime now = clock.now();
    return QStringLiteral("%1:%2")
        .arg(now.hour(), 2, 10, QLatin1Char('0'))
        .arg(now.minute(), 2, 10, QLatin1Char('0'));
}

QDate ParseDate(const QString& text, const QDate& today)
{
    if (text.isEmpty())
        return today;
    for (const QString& format : {QStringLiteral("yyyy-MM-dd"), QStringLiteral("yyyy-M-d")}) {
        const QDate direct = QDate::fromString(text, format);
        if (direct.isValid())
            return direct;
    }

    // Reduce to digit groups separated by single blanks.
    QString digits;
    for (const QChar c : text)
        digits.append(c >= QLatin1Char('0') && c <= QLatin1Char('9') ? c : QLatin1Char(' '));
    while (digits.contains(QStringLiteral("  ")))
        digits.replace(QStringLiteral("  "), QStringLiteral(" "));
    digits = TrimBlanks(digits);

    int year = 0;
    for (int y = 2000; y <= 2029 && year == 0; ++y) {
        const qsizetype at = digits.indexOf(QString::number(y));
        if (at >= 0) {
            year = y;
            digits.remove(at, 4);
        }
    }
    QStringList groups = TrimBlanks(digits).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (year == 0) {
        if (groups.isEmpty())
            return QDate();
        QString first = groups.takeFirst();
        if (first.size() > 2)
            first = first.right(2);
        year = 2000 + first.toInt();
    }
    const int month = groups.size() > 0 ? groups.at(0).toInt() : 1;
    const int day = groups.size() > 1 ? groups.at(1).toInt() : 1;
    return QDate(year, month, day);
}

QString ServerDate(Database& db, Session& session, const Clock& clock)
{
    // Once a date is cached its own day matches the stored day, so the server is asked once per run.
    if (!session.serverDateText.isEmpty() &&
        ParseDate(session.serverDateText, clock.today()).day() == session.serverDateDay)
        return session.serverDateText;

    QString value;
    if (NumericValue(db.RunQuery(QStringLiteral("select Getdate()"))) <= 0)
        value = FormatDate(clock.today());
    else
        value = db.grid().cell(1, 0);
    QDate date = ParseDate(value, clock.today());
    if (!date.isValid())
        date = clock.today();
    session.serverDateText = FormatDate(date);
    session.serverDateDay = qint16(date.day());
    return session.serverDateText;
}

} // namespace lanzhou
