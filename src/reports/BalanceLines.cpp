#include "BalanceLines.h"

#include "TextGrid.h"

namespace lanzhou::BalanceLines {

namespace {

// Column widths in twips.
constexpr int itemWidth = 4090;
constexpr int quantityWidth = 2000;

} // namespace

QStringList head(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel)
{
    return {grid.ruleLine(TextGrid::Top, {itemWidth, quantityWidth}),
            grid.textCell(QStringLiteral("  ") + itemLabel, itemWidth) +
                grid.textCell(QStringLiteral("  ") + quantityLabel, quantityWidth),
            grid.ruleLine(TextGrid::Middle, {itemWidth, quantityWidth})};
}

QString row(const TextGrid& grid, const QString& item, double total)
{
    return grid.textCell(item, itemWidth) + grid.numberCell(total, quantityWidth);
}

QStringList closing(const TextGrid& grid, double sum)
{
    return {grid.ruleLine(TextGrid::Middle, {itemWidth, quantityWidth}),
            grid.textCell(QStringLiteral("   合计："), itemWidth) + grid.numberCell(sum, quantityWidth),
            grid.ruleLine(TextGrid::Bottom, {itemWidth, quantityWidth})};
}

} // namespace lanzhou::BalanceLines
