#include "Tombstones.h"

#include "ServerDialect.h"
#include "TextUtils.h"

#include <QDate>

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
    // Restorer "#" time "#" in front of the deleter: the first "#" followed by a time and a "#".
    for (qsizetype at = head.indexOf(hash); at >= 0; at = head.indexOf(hash, at + 1)) {
        const QStringView time = head.mid(at + 1, 16);
        if (head.size() > at + 17 && head.at(at + 17) == hash && IsStampTime(time.toString())) {
            reading.restorer = head.left(at).toString();
            reading.restoredAt = time.toString();
            reading.deleter = head.mid(at + 18).toString();
            return reading;
        }
    }
    reading.deleter = head.toString();
    return reading;
}

bool IsStampTime(const QString& stamp)
{
    // Read by hand: parsing ten thousand stamps through a date format costs more than listing them.
    static const QString form = QStringLiteral("0000-00-00 00:00");
    if (stamp.size() != form.size())
        return false;
    for (qsizetype i = 0; i < form.size(); ++i)
        if (form.at(i) == u'0' ? stamp.at(i) < u'0' || stamp.at(i) > u'9' : stamp.at(i) != form.at(i))
            return false;
    const auto number = [&stamp](qsizetype from, qsizetype length) {
        return stamp.mid(from, length).toInt();
    };
    return QDate::isValid(number(0, 4), number(5, 2), number(8, 2)) && number(11, 2) < 24 &&
           number(14, 2) < 60;
}

QString RestoredTombstone(const QString& tombstone, const QString& restorer, const QString& when)
{
    return restorer + hash + when + hash + tombstone;
}

QString TombstoneCondition(const QString& column, const QString& ledgerId)
{
    // The ledger ID is read back from the server: exact inside the pattern, safe inside the literal.
    const QString id = SqlLiteral(LikeExact(ledgerId));
    return u'(' + column + QStringLiteral(" like '%#") + id + QStringLiteral("#%'") + LikeEscapeClause() +
           QStringLiteral(" or ") + column + QStringLiteral(" like '%#") + id + u'\'' + LikeEscapeClause() +
           u')';
}

} // namespace lanzhou
