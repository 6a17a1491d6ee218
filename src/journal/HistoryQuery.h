#pragma once

#include "DbConfig.h"

#include <QStringList>

namespace lanzhou {

// The change history's filters as its controls hold them.
struct HistoryFilter
{
    QString ledgerId;
    // Every tombstone of the ledger, also those whose stamp is not a time; otherwise those removed in
    // the period.
    bool everything = false;
    QString periodStart; // yyyy-mm-dd hh:mm, of the removal
    QString periodEnd;
    QString operatorText; // typed, before cleaning: who posted or who removed the entry
    QString itemText;     // typed, before cleaning
    ServerKind serverKind = ServerKind::Sqlite;
};

// The entries under the ledger's tombstones, newest removal first (twins of a shared ID together).
// The ledger ID is found exactly inside the tombstone, as "#" ID "#" or "#" ID at its end; what
// precedes and follows it is for the caller to check.
QString TombstoneListStatement(const HistoryFilter& filter);
// The entries that may have replaced modified ones: of the ledger, live or under its tombstones,
// posted by one of the operators, with an ID that is not quick entry's, and at one of the times or
// of one of the items unless both lists are empty.
QString ReplacementCandidatesStatement(const QString& ledgerId, const QStringList& operators,
                                       const QStringList& times, const QStringList& items);
// How many entries one removal took away.
QString RemovalSizeStatement(const QString& tombstone, const QString& id);
// Brings back the entries of one removal as they were and marks their tombstone restored.
QStringList RestoreStatements(const QString& ledgerId, const QString& tombstone, const QString& id,
                              const QString& restoredTombstone);

} // namespace lanzhou
