#include "RemovedEntries.h"

#include "Database.h"
#include "HistoryQuery.h"
#include "TextUtils.h"

#include <QHash>

#include <algorithm>
#include <tuple>

namespace lanzhou {

namespace {

EntryRow rowAt(const ResultGrid& rows, int i)
{
    // ZBID, USR, TM, ID, ITEM, SL, BZ
    return {rows.cell(i, 3), rows.cell(i, 1), rows.cell(i, 2),
            rows.cell(i, 4), rows.cell(i, 6), NumericValue(rows.cell(i, 5))};
}

// Distinct values as the server compares them, without regard to letter case, in their first form.
class DistinctValues
{
public:
    void add(const QString& value)
    {
        if (!std::exchange(m_seen[value.toCaseFolded()], true))
            m_values.append(value);
    }
    const QStringList& values() const { return m_values; }

private:
    QHash<QString, bool> m_seen;
    QStringList m_values;
};

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

// The entries that may have replaced the removed ones, in time order so that the earlier of two that
// fit is taken; nothing when the server did not answer.
std::optional<QList<Candidate>> readCandidates(Database& db, const HistoryFilter& filter,
                                               const QList<RemovedEntry>& removed)
{
    DistinctValues operators;
    DistinctValues times;
    DistinctValues items;
    for (const RemovedEntry& e : removed) {
        if (e.reading.deleter.isEmpty())
            continue;
        operators.add(e.reading.deleter);
        times.add(e.entry.time);
        items.add(e.entry.item);
    }
    if (operators.values().isEmpty())
        return QList<Candidate>();
    // The times and items narrow a short history's search; beyond a few hundred, spelling them out costs
    // the server more to plan than the rows they leave out.
    constexpr qsizetype spelledOut = 500;
    const bool narrow = times.values().size() + items.values().size() <= spelledOut;
    const QString sql = ReplacementCandidatesStatement(filter.ledgerId, operators.values(),
                                                       narrow ? times.values() : QStringList(),
                                                       narrow ? items.values() : QStringList());
    if (db.RunQuery(sql).isEmpty())
        return std::nullopt;

    const ResultGrid& rows = db.grid();
    QList<Candidate> candidates;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        Candidate c{rowAt(rows, i), rows.cell(i, 0), std::nullopt};
        if (c.tombstone.compare(filter.ledgerId, Qt::CaseInsensitive) != 0) {
            c.removal = ReadTombstone(c.tombstone, filter.ledgerId);
            if (!c.removal)
                continue;
        }
        candidates.append(c);
    }
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::tie(a.row.time, a.row.id) < std::tie(b.row.time, b.row.id);
    });
    return candidates;
}

// Pairs each entry removed by a modify with its replacement: an entry posted by the operator who
// removed it, at the same time or else of the same item. Every entry looks for one at its time before
// any looks by item, and a replacement pairs once.
void pairReplacements(QList<RemovedEntry>& removed, QList<Candidate>& candidates)
{
    QHash<QString, QList<qsizetype>> byTime;
    QHash<QString, QList<qsizetype>> byItem;
    for (qsizetype at = 0; at < candidates.size(); ++at) {
        byTime[candidates.at(at).row.time].append(at);
        byItem[candidates.at(at).row.item.toCaseFolded()].append(at);
    }
    // The entries of each restored removal, live again as they were.
    QHash<QString, QList<EntryRow>> restoredRemovals;
    for (const RemovedEntry& e : std::as_const(removed))
        if (e.reading.restored())
            restoredRemovals[removalKey(e.tombstone, e.entry.id)].append(e.entry);

    const auto fits = [&](const RemovedEntry& e, const Candidate& c) {
        if (c.used || c.row.op.compare(e.reading.deleter, Qt::CaseInsensitive) != 0)
            return false;
        // A restored entry is live again as it was: that is no replacement.
        if (!c.removal)
            return !e.reading.restored() ||
                   !restoredRemovals.value(removalKey(e.tombstone, e.entry.id)).contains(c.row);
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
    std::optional<QList<Candidate>> candidates = readCandidates(db, filter, removed);
    if (!candidates)
        return std::nullopt;
    pairReplacements(removed, *candidates);
    return removed;
}

} // namespace lanzhou
