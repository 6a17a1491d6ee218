#pragma once

#include "DbConfig.h"

#include <QString>

namespace lanzhou {

// The quantity condition of the balance list, by its entry in CmbGX2.
enum class QuantityRelation : int
{
    Greater = 0,
    Less = 1,
    Equal = 2
};

// The threshold an empty quantity box stands for: no quantity condition. A typed threshold of exactly
// this value means the same.
constexpr double noQuantityCondition = 2012.822;

// Whether an item's total passes the quantity condition.
bool PassesQuantityCondition(double total, QuantityRelation relation, double threshold);

// Every item's total in the ledger, or only the item named (`contains`: whose name contains the text);
// an empty item text selects all items. The item text is typed text, already cleaned.
QString BalanceStatement(const QString& ledgerId, const QString& item, bool contains,
                         const QString& sortClause, ServerKind serverKind);

// The time of an item's last entry, for the drill-down.
QString LastEntryStatement(const QString& ledgerId, const QString& item);

} // namespace lanzhou
