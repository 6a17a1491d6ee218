#pragma once

#include "AppContext.h"
#include "LedgerList.h"

#include <QObject>

#include <optional>

class QComboBox;
class QPushButton;
class QWidget;

namespace lanzhou {

// The local ledger list on the open-ledger panel: names in CmbZbNm, IDs in the hidden CmbZbID,
// the add-entry line last; adding through the ledger window, removing from this computer, and the
// open ledger's name kept in step when it is renamed.
class LedgerListPanel : public QObject
{
    Q_OBJECT
public:
    struct Widgets
    {
        QComboBox* names;    // CmbZbNm
        QComboBox* ids;      // CmbZbID
        QPushButton* remove; // Cmd2
        QWidget* postButton; // Cmd, which takes the focus while a ledger is added
        QWidget* window;     // parent of the ledger window
    };

    LedgerListPanel(const AppContext& context, const Widgets& widgets, QObject* parent = nullptr);

    // Reads the list from the settings and selects the ledger opened last.
    void load();
    // The chosen ledger; empty when nothing or the add-entry line is chosen.
    std::optional<LedgerList::Entry> selected() const;
    // Selects without running the pick handler; an unknown ID selects nothing.
    void selectId(const QString& id);
    LedgerList& ledgers() { return m_ledgers; }

signals:
    // A ledger was just added and the user wants it opened now.
    void openRequested();

private:
    void fillCombos();
    void select(int index);
    void onPicked(int index);
    void addLedger();
    void removeLedger();
    void followSessionName();

    AppContext m_ctx;
    Widgets m_w;
    LedgerList m_ledgers;
    // Armed, the pick handler of the ledger names runs; the program disarms it while it changes them.
    QString m_pickGuard;
};

} // namespace lanzhou
