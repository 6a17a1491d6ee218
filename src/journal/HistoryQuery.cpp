#include "HistoryQuery.h"

#include "ServerDialect.h"
#include "TextUtils.h"
#include "Tombstones.h"

namespace lanzhou {

namespace {

const QString ledgerColumn = QStringLiteral("ZBID");
const QString columns = QStringLiteral("select ZBID,USR,TM,ID,ITEM,SL,BZ from Zhang where ");

QString contains(const QString& column, const QString& cleanText)
{
    return column + QStringLiteral(" like '%") + LikeExact(cleanText) + QStringLiteral("%'") +
           LikeEscapeClause();
}

QString literalList(const QStringList& values)
{
    QStringList literals;
    for (const QString& value : values)
        literals.append(u'\'' + SqlLiteral(value) + u'\'');
    return u'(' + literals.join(u',') + u')';
}

} // namespace

QString TombstoneListStatement(const HistoryFilter& filter)
{
    // The removal's stamp is the tombstone's last 16 characters.
    const QString stamp = LastCharacters(filter.serverKind, QStringLiteral("ZBID"), 16);
    QString sql = columns + TombstoneCondition(ledgerColumn, filter.ledgerId);
    if (!filter.everything)
        sql += QStringLiteral(" and ") + stamp + QStringLiteral(">='") + filter.periodStart +
               QStringLiteral("' and ") + stamp + QStringLiteral("<='") + filter.periodEnd + u'\'';
    const QString op = CleanInput(filter.operatorText);
    if (!op.isEmpty())
        sql += QStringLiteral(" and (") + contains(QStringLiteral("USR"), op) + QStringLiteral(" or ") +
               contains(QStringLiteral("ZBID"), op) + u')';
    const QString item = CleanInput(filter.itemText);
    if (!item.isEmpty())
        sql += QStringLiteral(" and ") + contains(QStringLiteral("ITEM"), item);
    return sql + QStringLiteral(" order by ") + stamp + QStringLiteral(" desc,ZBID,ID,TM");
}

QString ReplacementCandidatesStatement(const QString& ledgerId, const QStringList& operators,
                                       const QStringList& times, const QStringList& items)
{
    // Quick entry's IDs have 12 characters, the editor's fewer.
    QString sql = columns + QStringLiteral("(ZBID='") + SqlLiteral(ledgerId) + QStringLiteral("' or ") +
                  TombstoneCondition(ledgerColumn, ledgerId) + QStringLiteral(") and USR in ") +
                  literalList(operators) + QStringLiteral(" and ID not like '____________'");
    if (times.isEmpty() && items.isEmpty())
        return sql;
    return sql + QStringLiteral(" and (TM in ") + literalList(times) + QStringLiteral(" or ITEM in ") +
           literalList(items) + u')';
}

QString RemovalSizeStatement(const QString& tombstone, const QString& id)
{
    return QStringLiteral("select count(*) from Zhang where ZBID='") + SqlLiteral(tombstone) +
           QStringLiteral("' and ID='") + SqlLiteral(id) + u'\'';
}

QStringList RestoreStatements(const QString& ledgerId, const QString& tombstone, const QString& id,
                              const QString& restoredTombstone)
{
    const QString removal = QStringLiteral(" where ZBID='") + SqlLiteral(tombstone) +
                            QStringLiteral("' and ID='") + SqlLiteral(id) + u'\'';
    return {QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) select '") + SqlLiteral(ledgerId) +
                QStringLiteral("',USR,TM,ID,ITEM,SL,BZ from Zhang") + removal,
            QStringLiteral("update Zhang set ZBID='") + SqlLiteral(restoredTombstone) + u'\'' + removal};
}

} // namespace lanzhou
