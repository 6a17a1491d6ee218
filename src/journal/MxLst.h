#pragma once

#include "AppContext.h"
#include "ListWindow.h"
#include "PeriodLists.h"
#include "TextGrid.h"

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class MxLst;
}

namespace lanzhou {

struct JournalFilter;
class JournalLines;

// The journal (流水账): the entries of a period, filtered by item, sign, remark and operator, as a
// text table in Lst with each line's entry ID in the hidden Lst2; from here entries are modified,
// deleted or added late through the entry editor, and the whole listing is exported or deleted.
class MxLst : public ListWindow
{
    Q_OBJECT
public:
    explicit MxLst(const AppContext& context, QWidget* parent = nullptr);
    ~MxLst() override;

    // Dispatches the command array: 0 query, 1 export, 2 close, 3 late entry, 4 modify, 5 delete,
    // 6 bulk delete.
    void runCommand(int index);
    // The command 统计: rebuilds the listing from the filters.
    void runQuery();
    // Puts a text into the item condition, as if typed.
    void setItemCondition(const QString& item);
    // Selects the given entries of the period lists (see ChoosePeriod).
    void choosePeriod(const PeriodChoice& start, const PeriodChoice& end);
    // The statement the last query sent.
    const QString& lastStatement() const { return m_lastStatement; }

private:
    void fillFilters();
    JournalFilter currentFilter() const;
    void setBusy(bool busy, const QString& caption = QString());
    void showListing(const JournalLines& lines);
    void clearListing();
    // The entry ID behind the selected line, empty when no entry line is selected.
    QString selectedEntryId() const;
    // The item of the selected entry line, else the item the condition names exactly; empty when neither.
    QString chartItem() const;
    void openEditor(int command);
    void deleteSelected();
    // After an edit the listing is run again and the selection goes back to the same line.
    void refreshAfterEdit();
    // Writes the column titles, the entries and the totals to a CSV file.
    void exportListing();
    // Tombstones every listed entry and blanks its line.
    void deleteListing();

    std::unique_ptr<Ui::MxLst> ui;
    AppContext m_context;
    TextGrid m_grid;
    PeriodLists m_start;
    PeriodLists m_end;
    // Buttons by command index.
    std::array<QPushButton*, 7> m_cmd{};
    QString m_lastStatement;
    // The whole item name of each line of Lst (the line shows it cut to its column).
    QStringList m_lineItems;
    int m_trackedRow = -1;
};

} // namespace lanzhou
