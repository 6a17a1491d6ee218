#pragma once

#include <QString>

#include <optional>

namespace lanzhou {

// What a tombstone ledger ID tells about a removed entry of a ledger: who removed it and when, and,
// once the entry was brought back, who restored it and when.
struct TombstoneReading
{
    // Empty when the tombstone names nobody.
    QString deleter;
    // As written; empty when the tombstone carries none.
    QString stamp;
    // Both empty while the entry is still removed.
    QString restorer;
    QString restoredAt;

    bool restored() const { return !restoredAt.isEmpty(); }
};

// Reads a tombstone of the ledger, written as deleter "#" ledger ID "#" stamp, or by other clients
// without the stamp; a restore puts restorer "#" time "#" in front. The ledger ID is compared without
// regard to letter case, as the server compares it. Nothing when the tombstone is another ledger's.
std::optional<TombstoneReading> ReadTombstone(const QString& tombstone, const QString& ledgerId);
// Whether a stamp reads as a time yyyy-mm-dd hh:mm.
bool IsStampTime(const QString& stamp);
// The tombstone of restored entries: who restored them and when (yyyy-mm-dd hh:mm) go in front, so
// that the removal's own stamp stays the last 16 characters that the history lists by.
QString RestoredTombstone(const QString& tombstone, const QString& restorer, const QString& when);
// The condition on `column` that finds the ledger's tombstones on the server: the ledger ID exactly,
// as "#" ID "#" or "#" ID at the end. It may find more (an operator named like the ID); ReadTombstone
// tells them apart.
QString TombstoneCondition(const QString& column, const QString& ledgerId);

} // namespace lanzhou
