#pragma once

#include <QString>

class QComboBox;
class QListWidget;

namespace lanzhou {

struct AppContext;

// The item condition list of the reports: "全部" + the item label (selected), an empty entry, then
// every item of the ledger as the server groups them. A ledger without items leaves the list empty,
// which the reports answer with their "nothing recorded yet" message.
void FillReportItems(QComboBox* box, const AppContext& context);

// Index of the first listed item (after the two fixed entries).
constexpr int firstListedItem = 2;

// Whether a name matches a pattern in which "*" stands for any run of characters; every other
// character, "?", "#" and "[" included, stands for itself. Letters are compared in upper case.
bool MatchesWildcard(const QString& name, const QString& pattern);

// The listed item a report line names in its first cell: the item of that exact name, else the first
// that contains it (a name cut to fit its column). The empty text for a line that names none: a rule,
// a blank line, the totals line, or a name no longer listed.
QString ListedItemOfLine(const QComboBox* box, const QString& line);

// The listed item of the selected line of a report list below its `headLines` column titles; the empty
// text when no line is selected or the selected one names no item.
QString SelectedListedItem(const QListWidget* list, int headLines, const QComboBox* box);

} // namespace lanzhou
