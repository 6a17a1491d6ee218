#pragma once

#include <QStringList>

namespace lanzhou {

class TextGrid;

// The lines of the balance list: an item column and a quantity column, framed by rules.
namespace BalanceLines {

// The top rule, the column titles and the rule under them.
QStringList head(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel);
constexpr int headCount = 3;
// One item and its total.
QString row(const TextGrid& grid, const QString& item, double total);
// The rule above the totals, the totals and the bottom rule.
QStringList closing(const TextGrid& grid, double sum);
constexpr int closingCount = 3;

} // namespace BalanceLines

} // namespace lanzhou
