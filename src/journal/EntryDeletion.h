#pragma once

#include <QString>

namespace lanzhou {

struct AppContext;

// Deleting one entry, the same from the editor and from the journal: ask, then write the tombstone.
bool ConfirmEntryDeletion(const AppContext& context);
// Writes the delete tombstone of the entry; on failure tells the user and answers false.
bool WriteDeleteTombstone(const AppContext& context, const QString& entryId);
// The tombstone ledger ID for an entry the current operator removes now.
QString CurrentTombstone(const AppContext& context);

} // namespace lanzhou
