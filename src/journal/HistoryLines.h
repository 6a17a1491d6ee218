#pragma once

#include "RemovedEntries.h"

#include <QStringList>

namespace lanzhou {

class TextGrid;

// The change history's text table: who removed an entry and when, the entry itself, what became of
// it, and under an entry removed by a modify the entry that replaced it. Each line goes with the
// removal it can restore (tombstone and entry ID), empty for every other line.
class HistoryLines
{
public:
    HistoryLines(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel);

    const QStringList& lines() const { return m_lines; }
    const QStringList& tombstones() const { return m_tombstones; }
    const QStringList& ids() const { return m_ids; }

    void addHeading();
    void addRule();
    void addRemoval(const RemovedEntry& removed);
    // A line that says something instead of listing.
    void addNote(const QString& text) { add(text); }

private:
    void add(const QString& line, const QString& tombstone = QString(), const QString& id = QString());
    // The cells of one line: who removed the entry and when (or what the line is), the entry, its state.
    QString line(const QString& removedBy, const QString& removedAt, const EntryRow& entry,
                 const QString& state) const;

    const TextGrid& m_grid;
    QString m_itemLabel;
    QString m_quantityLabel;
    QStringList m_lines;
    QStringList m_tombstones;
    QStringList m_ids;
};

} // namespace lanzhou
