#include "LedgerItems.h"

#include "Database.h"
#include "TextUtils.h"

namespace lanzhou {

std::optional<QStringList> ReadLedgerItems(Database& db, const QString& ledgerId)
{
    const QString found = db.RunQuery(QStringLiteral("select  Item from Zhang where Zbid='") +
                                      SqlLiteral(ledgerId) + QStringLiteral("' group by Item"));
    if (found.isEmpty())
        return std::nullopt;
    // Entries written without an item (NULL, by another client) belong to no item: nothing can be
    // posted to, picked or summed under an empty name, so it is no entry of any item list.
    QStringList items;
    for (int row = 1; row < db.grid().rowLimit(); ++row)
        if (!db.grid().cell(row, 0).isEmpty())
            items.append(db.grid().cell(row, 0));
    return items;
}

QString AllItemsEntry(const QString& itemLabel)
{
    return QStringLiteral("全部") + itemLabel;
}

} // namespace lanzhou
