#include "BalanceQuery.h"

#include "ServerDialect.h"
#include "TextUtils.h"

namespace lanzhou {

bool PassesQuantityCondition(double total, QuantityRelation relation, double threshold)
{
    if (threshold == noQuantityCondition)
        return true;
    switch (relation) {
    case QuantityRelation::Greater:
        return total > threshold;
    case QuantityRelation::Less:
        return total < threshold;
    case QuantityRelation::Equal:
        return total == threshold;
    }
    return true;
}

QString BalanceStatement(const QString& ledgerId, const QString& item, bool contains,
                         const QString& sortClause, ServerKind serverKind)
{
    QString sql = QStringLiteral("select Item,sum(SL) from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
                  QStringLiteral("' ");
    // "%" and "_" in the text reach the pattern as they are: the operator may use them on purpose.
    if (!item.isEmpty()) {
        if (contains)
            sql += QStringLiteral(" And Item like '%") + LikeText(serverKind, item) + QStringLiteral("%' ");
        else
            sql += QStringLiteral(" And Item='") + item + QStringLiteral("' ");
    }
    return sql + QStringLiteral(" Group by Item ") + sortClause;
}

QString LastEntryStatement(const QString& ledgerId, const QString& item)
{
    // The item comes from the item list, as the server stored it.
    return QStringLiteral("select top 1 tm from zhang where zbid='") + SqlLiteral(ledgerId) +
           QStringLiteral("' and item='") + SqlLiteral(item) + QStringLiteral("' order by tm desc");
}

} // namespace lanzhou
