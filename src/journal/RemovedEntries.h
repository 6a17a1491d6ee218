#pragma once

#include "Tombstones.h"

#include <QList>
#include <QString>

#include <optional>

namespace lanzhou {

class Database;
struct HistoryFilter;

// One entry as its row of Zhang holds it.
struct EntryRow
{
    QString id;
    QString op;
    QString time;
    QString item;
    QString remark;
    double quantity = 0;

    bool operator==(const EntryRow&) const = default;
};

// An entry under a tombstone of the ledger, with the entry that replaced it when it was modified.
struct RemovedEntry
{
    QString tombstone;
    TombstoneReading reading;
    EntryRow entry;
    std::optional<EntryRow> replacement;
    // The replacement was removed in its turn.
    bool replacementRemoved = false;
};

// The ledger's removed entries that pass the filter, newest removal first and those whose stamp is no
// time last, each modified one with its replacement: one read for the tombstones and one for the
// possible replacements. Nothing when the server did not answer.
std::optional<QList<RemovedEntry>> ReadHistory(Database& db, const HistoryFilter& filter);

} // namespace lanzhou
