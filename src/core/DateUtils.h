#pragma once

#include <QDate>
#include <QString>

namespace lanzhou {

class Clock;
class Database;
class Session;

// yyyy-mm-dd.
QString FormatDate(const QDate& date);
// The local clock's hh:mm.
QString LocalTimeText(const Clock& clock);
// Reads a yyyy-mm-dd text (or a text whose digit groups give year, month and day) back into a date;
// the empty text gives today. An implausible month or day gives an invalid date.
QDate ParseDate(const QString& text, const QDate& today);
// Today's date on the database server, asked once and then kept in the session for the whole run.
QString ServerDate(Database& db, Session& session, const Clock& clock);

} // namespace lanzhou
