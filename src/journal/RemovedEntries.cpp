#include "RemovedEntries.h"

#include "Database.h"
#include "HistoryQuery.h"
#include "TextUtils.h"

#include <QHash>

namespace lanzhou {

namespace {

EntryRow rowAt(const ResultGrid& rows, int i)
{
    // ZBID, USR, TM, ID, ITEM, SL, BZ
    return {rows.cell(i, 3), rows.cell(i, 1), rows.cell(i, 2),
            rows.cell(i, 4), rows.cell(i, 6), NumericValue(rows.cell(i, 5))};
}

void addOnce(QStringList& list, const QString& value)
{
    if (!list.contains(value, Qt::CaseInsensitive))
        list.append(value);
}

QString removalKey(const QString& tombstone, const QString& id)
{
    return tombstone + u'\n' + id;
}

struct Candidate
{
    EntryRow row;
    QString tombstone;
    // Set when the candidate was removed in its turn.
    std::optional<TombstoneReading> removal;
    bool used = false;
};

// Pairs each entry removed by a modify with its replacement: an entry of the ledger posted by the
// operator who removed it, at the same time or else of the same item. Every entry looks for one at
// its time before any looks by item, and a replacement pairs once.
bool pairReplacements(Database& db, const HistoryFilter& filter, QList<RemovedEntry>& removed)
{
    QStringList operators;
    QStringList times;
    QStringList items;
    QHash<QString, QList<EntryRow>> removals;
    for (const RemovedEntry& e : std::as_const(removed)) {
        removals[removalKey(e.tombstone, e.entry.id)].append(e.entry);
        if (e.reading.deleter.isEmpty())
            continue;
        addOnce(operators, e.reading.deleter);
        addOnce(times, e.entry.time);
        addOnce(items, e.entry.item);
    }
    if (operators.isEmpty())
        return true;
    if (db.RunQuery(ReplacementCandidatesStatement(filter, operators, times, items)).isEmpty())
        return false;

    const ResultGrid& rows = db.grid();
    QList<Candidate> candidates;
    QHash<QString, QList<qsizetype>> byTime;
    QHash<QString, QList<qsizetype>> byItem;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        Candidate c{rowAt(rows, i), rows.cell(i, 0), std::nullopt};
        if (c.tombstone.compare(filter.ledgerId, Qt::CaseInsensitive) != 0) {
            c.removal = ReadTombstone(c.tombstone, filter.ledgerId);
            if (!c.removal)
                continue;
        }
        byTime[c.row.time].append(candidates.size());
        byItem[c.row.item.toCaseFolded()].append(candidates.size());
        candidates.append(c);
    }

    const auto fits = [&](const RemovedEntry& e, const Candidate& c) {
        if (c.used || c.row.op.compare(e.reading.deleter, Qt::CaseInsensitive) != 0)
            return false;
        // A restored entry is live again as it was: that is no replacement.
        if (!c.removal)
            return !removals.value(removalKey(e.tombstone, e.entry.id)).contains(c.row);
        // A replacement removed in its turn went later, and by a write of its own.
        return c.tombstone != e.tombstone && c.removal->stamp >= e.reading.stamp;
    };
    for (const bool sameTime : {true, false}) {
        for (RemovedEntry& e : removed) {
            if (e.replacement || e.reading.deleter.isEmpty())
                continue;
            const QList<qsizetype> bucket =
                sameTime ? byTime.value(e.entry.time) : byItem.value(e.entry.item.toCaseFolded());
            for (const qsizetype at : bucket) {
                Candidate& c = candidates[at];
                if (!fits(e, c))
                    continue;
                c.used = true;
                e.replacement = c.row;
                e.replacementRemoved = c.removal.has_value();
                break;
            }
        }
    }
    return true;
}

} // namespace

std::optional<QList<RemovedEntry>> ReadHistory(Database& db, const HistoryFilter& filter)
{
    if (db.RunQuery(TombstoneListStatement(filter)).isEmpty())
        return std::nullopt;
    // A copy: the second read overwrites the grid.
    const ResultGrid rows = db.grid();
    const QString op = CleanInput(filter.operatorText);
    QList<RemovedEntry> removed;
    QList<RemovedEntry> unstamped;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        const QString tombstone = rows.cell(i, 0);
        const std::optional<TombstoneReading> reading = ReadTombstone(tombstone, filter.ledgerId);
        if (!reading)
            continue;
        const bool timed = IsStampTime(reading->stamp);
        if (!timed && !filter.everything)
            continue;
        RemovedEntry e{tombstone, *reading, rowAt(rows, i), std::nullopt};
        // The server found the text somewhere in the tombstone; it must be in a name.
        if (!op.isEmpty() && !e.entry.op.contains(op, Qt::CaseInsensitive) &&
            !e.reading.deleter.contains(op, Qt::CaseInsensitive))
            continue;
        (timed ? removed : unstamped).append(e);
    }
    removed += unstamped;
    if (!pairReplacements(db, filter, removed))
        return std::nullopt;
    return removed;
}

} // namespace lanzhou
