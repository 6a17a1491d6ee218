#include "Announcement.h"

namespace lanzhou {

namespace {
const QChar kSeparator(0x2502); // │
} // namespace

Announcement Announcement::Parse(const QString& stored)
{
    const qsizetype at = stored.indexOf(kSeparator);
    if (at < 0)
        return {QColor(Qt::black), stored};
    bool ok = false;
    const qint64 number = stored.left(at).trimmed().toLongLong(&ok);
    QColor colour(Qt::black);
    if (ok && number >= 0 && number <= 0xFFFFFF)
        colour = QColor(int(number & 0xFF), int((number >> 8) & 0xFF), int((number >> 16) & 0xFF));
    return {colour, stored.mid(at + 1)};
}

QString Announcement::Stored(const QColor& colour, const QString& text)
{
    return QString::number(ColourNumber(colour)) + kSeparator + text;
}

qint64 Announcement::ColourNumber(const QColor& colour)
{
    return qint64(colour.red()) | (qint64(colour.green()) << 8) | (qint64(colour.blue()) << 16);
}

} // namespace lanzhou
