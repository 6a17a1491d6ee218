#pragma once

#include <QString>

namespace lanzhou {

struct AppContext;

// Deleting one entry, the same from the editor and from the journal: ask, then write the tombstone.
bool ConfirmEntryDeletion(const AppContext& context);
// Writes the delete tombstone of the entry; on failure tells the user and answers false.
bool WriteDeleteTombstone(const AppContext& context, const QString& entryId);
// Now as tombstones record it: the server's date and the local time, yyyy-mm-dd hh:mm.
QString CurrentStamp(const AppContext& context);
// The tombstone ledger ID for an entry the current operator removes now.
QString CurrentTombstone(const AppContext& context);

} // namespace lanzhou
