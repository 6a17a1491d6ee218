#include "EntryStatements.h"

#include "TextUtils.h"

namespace lanzhou {

QString EditorEntryId(const QDateTime& entryTime)
{
    const int year = entryTime.date().year();
    // Counted on a plain calendar, without daylight saving.
    const QDateTime yearStart(QDate(year, 1, 1), QTime(0, 0), Qt::UTC);
    const QDateTime when(entryTime.date(), entryTime.time(), Qt::UTC);
    return QString::number(year - 1948) +
           QStringLiteral("%1").arg(yearStart.secsTo(when), 7, 10, QLatin1Char('0'));
}

QString TombstoneLedgerId(const QString& op, const QString& ledgerId, const QString& stamp)
{
    return op + QLatin1Char('#') + ledgerId + QLatin1Char('#') + stamp;
}

// Every value goes between quotes through SqlLiteral: typed values are already clean and stay as they
// are, values read back from the server (the operator, an entry's item) cannot end their literal.

QString LoadEntryStatement(const QString& ledgerId, const QString& id)
{
    return QStringLiteral("select Tm,Item,SL,Bz from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
           QStringLiteral("' and ID='") + SqlLiteral(id) + QStringLiteral("'");
}

QString InsertEntryStatement(const QString& ledgerId, const QString& op, const QString& time,
                             const QString& id, const QString& item, double quantity, const QString& remark)
{
    return QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values ('") + SqlLiteral(ledgerId) +
           QStringLiteral("','") + SqlLiteral(op) + QStringLiteral("','") + time + QStringLiteral("','") +
           id + QStringLiteral("','") + SqlLiteral(item) + QStringLiteral("',") +
           GeneralNumberText(quantity) + QStringLiteral(",'") + SqlLiteral(remark) + QStringLiteral("')");
}

QString ModifyTombstoneStatement(const QString& tombstone, const QString& ledgerId, const QString& oldId)
{
    return QStringLiteral("update Zhang Set ZBID='") + SqlLiteral(tombstone) +
           QStringLiteral("'  where ZBID='") + SqlLiteral(ledgerId) + QStringLiteral("' and ID='") +
           SqlLiteral(oldId) + QStringLiteral("'");
}

QString DeleteTombstoneStatement(const QString& tombstone, const QString& ledgerId, const QString& id)
{
    return QStringLiteral("update Zhang Set ZBID='") + SqlLiteral(tombstone) +
           QStringLiteral("' where ZBID='") + SqlLiteral(ledgerId) + QStringLiteral("' and ID='") +
           SqlLiteral(id) + QStringLiteral("'");
}

QString IdCheckStatement(const QString& ledgerId, const QString& id)
{
    return QStringLiteral("select ID from Zhang where ZBID= like  '%") + SqlLiteral(ledgerId) +
           QStringLiteral("%' and ID='") + id + QStringLiteral("'");
}

} // namespace lanzhou
