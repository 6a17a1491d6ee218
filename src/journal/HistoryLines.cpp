#include "HistoryLines.h"

#include "TextGrid.h"

namespace lanzhou {

namespace {

// Column widths in twips: remover, removal time, entry time, operator, item, quantity, state; the
// remark runs on unfitted.
constexpr int nameWidth = 890;
constexpr int timeWidth = 1590;
constexpr int itemWidth = 3000;
constexpr int quantityWidth = 1000;
constexpr int stateWidth = 3000;

} // namespace

HistoryLines::HistoryLines(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel)
    : m_grid(grid), m_itemLabel(itemLabel), m_quantityLabel(quantityLabel)
{}

void HistoryLines::add(const QString& line, const QString& tombstone, const QString& id)
{
    m_lines.append(line);
    m_tombstones.append(tombstone);
    m_ids.append(id);
}

void HistoryLines::addHeading()
{
    add(m_grid.blankCells(
            {nameWidth, timeWidth, timeWidth, nameWidth, itemWidth, quantityWidth, stateWidth}) +
        u' ');
    add(m_grid.textCell(QStringLiteral("  删除人"), nameWidth) +
        m_grid.textCell(QStringLiteral("  删除时间"), timeWidth) +
        m_grid.textCell(QStringLiteral("  时间"), timeWidth) +
        m_grid.textCell(QStringLiteral("  操作员"), nameWidth) +
        m_grid.textCell(m_itemLabel + QStringLiteral("  "), itemWidth) +
        m_grid.textCell(m_quantityLabel + QStringLiteral("  "), quantityWidth) +
        m_grid.textCell(QStringLiteral("  状态"), stateWidth) + QStringLiteral("  备注"));
}

void HistoryLines::addRule()
{
    // Rule segments a bar narrower than their cells, as in the journal.
    add(m_grid.ruleLine(TextGrid::Middle, {800, 1500, 1500, 800, 3000, 1000, 3000, 4000}));
}

QString HistoryLines::line(const QString& removedBy, const QString& removedAt, const EntryRow& entry,
                           const QString& state) const
{
    QString line;
    line.reserve(128 + entry.remark.size());
    for (const QString& cell :
         {m_grid.textCell(removedBy, nameWidth), m_grid.textCell(removedAt, timeWidth),
          m_grid.textCell(entry.time, timeWidth), m_grid.textCell(entry.op, nameWidth),
          m_grid.textCell(entry.item, itemWidth), m_grid.numberCell(entry.quantity, quantityWidth),
          m_grid.textCell(state, stateWidth), entry.remark})
        line += cell;
    return line;
}

void HistoryLines::addRemoval(const RemovedEntry& removed)
{
    const TombstoneReading& reading = removed.reading;
    QString state = removed.replacement ? QStringLiteral("已修改") : QStringLiteral("已删除");
    if (reading.restored())
        state =
            QStringLiteral("已恢复 (") + reading.restorer + QStringLiteral(", ") + reading.restoredAt + u')';
    // Restored entries are back: their removal is not offered again.
    if (reading.restored())
        add(line(reading.deleter, reading.stamp, removed.entry, state));
    else
        add(line(reading.deleter, reading.stamp, removed.entry, state), removed.tombstone, removed.entry.id);
    if (removed.replacement)
        add(line(QString(), QStringLiteral("→ 改为"), *removed.replacement,
                 removed.replacementRemoved ? QStringLiteral("已删除") : QString()));
}

} // namespace lanzhou
