#pragma once

#include <QString>

namespace lanzhou {

// The ledger types of the type frame, in the order of its option buttons. A type sets the two
// labels the whole program shows: what is counted (item) and what is summed (quantity).
struct LedgerType
{
    QString itemLabel;
    QString quantityLabel;
};

namespace LedgerTypes {

constexpr int count = 5;
// The last option takes its two labels from the keyword boxes.
constexpr int custom = 4;
// The labels used when no option is picked.
constexpr int fallback = 3;

// The labels of a predefined type (0 .. custom - 1).
LedgerType labels(int option);
// The predefined type with exactly these labels, or -1.
int find(const QString& itemLabel, const QString& quantityLabel);

} // namespace LedgerTypes

} // namespace lanzhou
