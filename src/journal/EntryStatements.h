#pragma once

#include <QDateTime>
#include <QString>

namespace lanzhou {

// The entry editor's ID: the entry year minus 1948, then the seconds from the start of that year
// to the entry time, at least seven digits ("#0000000"). Years before 1948 keep their minus sign.
QString EditorEntryId(const QDateTime& entryTime);
// What a removed entry's ledger ID becomes: who removed it, from which ledger, and when (server date,
// one blank, local time).
QString TombstoneLedgerId(const QString& op, const QString& ledgerId, const QString& stamp);

QString LoadEntryStatement(const QString& ledgerId, const QString& id);
QString InsertEntryStatement(const QString& ledgerId, const QString& op, const QString& time,
                             const QString& id, const QString& item, double quantity, const QString& remark);
QString ModifyTombstoneStatement(const QString& tombstone, const QString& ledgerId, const QString& oldId);
QString DeleteTombstoneStatement(const QString& tombstone, const QString& ledgerId, const QString& id);
// Kept as the editor has always sent it; no server accepts it, so the first ID is always taken.
QString IdCheckStatement(const QString& ledgerId, const QString& id);

} // namespace lanzhou
