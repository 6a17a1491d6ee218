#pragma once

#include "PeriodLists.h"
#include "ReportWindow.h"
#include "TextGrid.h"

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class HzLst;
}

namespace lanzhou {

class JournalOpener;
struct ItemFigures;

// The summary (汇总表): for every item, or the items a name condition selects, the opening quantity,
// the increase, the decrease and the closing quantity over a period, with a totals line, drawn as a
// text table. A double-click on an item's line opens the journal on that item and period.
class HzLst : public ReportWindow
{
    Q_OBJECT
public:
    HzLst(const AppContext& context, JournalOpener& journal, QWidget* parent = nullptr);
    ~HzLst() override;

private:
    void fillControls();
    void runReport() override;
    // Clears the list down to the head of the table and disables the export.
    void drawHead();
    void addLine(const QString& line);
    void addFigures(const ItemFigures& figures);
    void setWaiting(const QString& caption);
    void endWaiting();
    void exportReport() override;
    // Keeps the selection off the rules: it moves on in the direction it came from.
    void stepOffRule(int row);
    void drillDown(int row);

    std::unique_ptr<Ui::HzLst> ui;
    JournalOpener& m_journal;
    TextGrid m_grid;
    PeriodLists m_start;
    PeriodLists m_end;
    // Running totals of the shown lines: opening, increase, decrease, closing.
    std::array<double, 4> m_totals{};
    int m_lastRow = -1;
};

} // namespace lanzhou
