#pragma once

#include "AppContext.h"
#include "ListWindow.h"
#include "PeriodLists.h"
#include "TextGrid.h"

#include <array>
#include <memory>

class QPushButton;

namespace Ui {
class ChangeHistory;
}

namespace lanzhou {

struct HistoryFilter;
class HistoryLines;

// The change history (变更记录): the ledger's deleted and modified entries of a period of removal, or
// all of them, with who removed each and when, and beside a modified entry the one that replaced it.
// A removal is restored from here: its entries come back as they were and its tombstone records who
// restored them and when.
class ChangeHistory : public ListWindow
{
    Q_OBJECT
public:
    enum Command : int
    {
        Query = 0,
        Restore = 1,
        Close = 2
    };

    explicit ChangeHistory(const AppContext& context, QWidget* parent = nullptr);
    ~ChangeHistory() override;

    void runCommand(int index);
    // The statement of the last listing's tombstones.
    const QString& lastStatement() const { return m_lastStatement; }

signals:
    // Entries came back; the session's journal refresh marker is set.
    void restored();

private:
    void fillFilters();
    HistoryFilter currentFilter() const;
    void setBusy(bool busy, const QString& caption = QString());
    void runQuery();
    void showLines(const HistoryLines& lines);
    void restoreSelected();
    // 恢复 is offered only on a line of a removal that can be restored.
    void offerRestore();

    std::unique_ptr<Ui::ChangeHistory> ui;
    AppContext m_context;
    TextGrid m_grid;
    PeriodLists m_start;
    PeriodLists m_end;
    std::array<QPushButton*, 3> m_cmd{};
    QString m_lastStatement;
};

} // namespace lanzhou
