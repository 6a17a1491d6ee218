#pragma once

#include <QStringList>

#include <optional>

namespace lanzhou {

class Database;

// The ledger's named items as the server groups them, in the server's order; nothing when it cannot
// say.
std::optional<QStringList> ReadLedgerItems(Database& db, const QString& ledgerId);
// The first entry of every item list of the reports and the journal, meaning all items; no item may
// contain it.
QString AllItemsEntry(const QString& itemLabel);

} // namespace lanzhou
