#include "Tombstones.h"

#include <QDateTime>
#include <QRegularExpression>

namespace lanzhou {

namespace {

const QChar hash(u'#');

bool endsWithLedger(QStringView text, const QString& ledgerId)
{
    return text.size() > ledgerId.size() && text.at(text.size() - ledgerId.size() - 1) == hash &&
           text.endsWith(ledgerId, Qt::CaseInsensitive);
}

} // namespace

std::optional<TombstoneReading> ReadTombstone(const QString& tombstone, const QString& ledgerId)
{
    if (ledgerId.isEmpty())
        return std::nullopt;
    // Read from the end: an operator's name may hold "#" and even another ledger's ID, a stamp never.
    QStringView head;
    TombstoneReading reading;
    if (endsWithLedger(tombstone, ledgerId)) {
        head = QStringView(tombstone).chopped(ledgerId.size() + 1);
    } else {
        const qsizetype last = tombstone.lastIndexOf(hash);
        if (last < 0 || !endsWithLedger(QStringView(tombstone).left(last), ledgerId))
            return std::nullopt;
        reading.stamp = tombstone.mid(last + 1);
        head = QStringView(tombstone).left(last - ledgerId.size() - 1);
    }
    static const QRegularExpression restore(
        QStringLiteral("^(.*?)#(\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d)#(.*)$"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = restore.match(head.toString());
    if (match.hasMatch()) {
        reading.restorer = match.captured(1);
        reading.restoredAt = match.captured(2);
        reading.deleter = match.captured(3);
    } else {
        reading.deleter = head.toString();
    }
    return reading;
}

bool IsStampTime(const QString& stamp)
{
    return stamp.size() == 16 && QDateTime::fromString(stamp, QStringLiteral("yyyy-MM-dd hh:mm")).isValid();
}

QString RestoredTombstone(const QString& tombstone, const QString& restorer, const QString& when)
{
    return restorer + hash + when + hash + tombstone;
}

} // namespace lanzhou
