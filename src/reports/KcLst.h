#pragma once

#include "ReportWindow.h"
#include "TextGrid.h"

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class KcLst;
}

namespace lanzhou {

class JournalOpener;

// The balance list (库存表): every item's total quantity, or the items the name condition selects,
// kept when the total passes the quantity condition, closed by the sum of the totals. A double-click
// on an item opens the journal on it from the first of January of the year of its last entry.
class KcLst : public ReportWindow
{
    Q_OBJECT
public:
    KcLst(const AppContext& context, JournalOpener& journal, QWidget* parent = nullptr);
    ~KcLst() override;

    // The statement the last run sent.
    const QString& lastStatement() const { return m_lastStatement; }

private:
    void runReport() override;
    // The threshold of the quantity condition from Txt, which is rewritten as a number.
    double readThreshold();
    void exportReport() override;
    void drillDown(const QString& line);
    // Clears the list down to its head.
    void drawHead();
    // Whether the list holds a finished run: rows and their totals below the head.
    bool hasRows() const;
    void setBusy(bool busy);

    std::unique_ptr<Ui::KcLst> ui;
    JournalOpener& m_journal;
    TextGrid m_grid;
    QString m_sortClause;
    QString m_lastStatement;
};

} // namespace lanzhou
