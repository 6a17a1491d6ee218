#pragma once

#include "AppContext.h"

#include <QObject>

class QWidget;

namespace lanzhou {

class LedgerList;

// The administration entries of the ledger and help menus: the ledger's ID, its name and type, its
// operators, one's own password, the announcement and the copy into another database. Each checks
// its right, opens its window modally, and leaves what changed in the session, from which the main
// window refreshes.
class LedgerAdministration : public QObject
{
    Q_OBJECT
public:
    // announcementArea: where the main window shows the announcement, whose colour the editor takes.
    LedgerAdministration(const AppContext& context, LedgerList& ledgers, QWidget* window,
                         QWidget* announcementArea);

    // Shows the ledger's ID and offers to copy it.
    void showLedgerId();
    void rename();
    void changeType();
    void manageOperators();
    void changePassword();
    void editAnnouncement();
    // Copies the open ledger into another ledger database (a shared server it moves to).
    void copyLedger();

private:
    AppContext m_ctx;
    LedgerList& m_ledgers;
    QWidget* m_window;
    QWidget* m_announcementArea;
};

} // namespace lanzhou
