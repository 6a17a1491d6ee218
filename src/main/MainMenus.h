#pragma once

#include "AppContext.h"

#include <QObject>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QWidget;

namespace lanzhou {

class LedgerAdministration;
class QuickEntry;
class ReportWindows;

// The main window's pop-up menus: the ledger menu (CmdMenu), the report menu (CmdRpt), the
// quantity menu (a click on Lab4) and the help menu, which is also the tray's menu (CmdHelp).
// Captions that name the ledger's labels are set each time a menu opens.
class MainMenus : public QObject
{
    Q_OBJECT
public:
    struct Buttons
    {
        QPushButton* ledgerMenu; // CmdMenu
        QPushButton* reportMenu; // CmdRpt
        QLabel* quantityLine;    // Lab4
        QPushButton* helpMenu;   // CmdHelp
    };
    struct Actions
    {
        LedgerAdministration& administration;
        ReportWindows& reports;
        QuickEntry& quickEntry;
    };

    MainMenus(const AppContext& context, const Buttons& buttons, const Actions& actions, QWidget* window);

    QMenu* trayMenu() const { return m_help; }
    // Before login the ledger menu offers only what needs no operator.
    void setLoggedIn(bool loggedIn) { m_loggedIn = loggedIn; }

signals:
    void loginRequested();
    void ledgerSelectionRequested();
    void showWindowRequested();
    void exitRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildLedgerMenu(const Actions& actions);
    void buildReportMenu(ReportWindows& reports);
    void buildQuantityMenu(QuickEntry& quickEntry);
    void buildHelpMenu(LedgerAdministration& administration);
    void showAbout();
    void openWebSite();

    AppContext m_ctx;
    Buttons m_buttons;
    QWidget* m_window;
    bool m_loggedIn = false;
    QMenu* m_ledger = nullptr;
    QMenu* m_report = nullptr;
    QMenu* m_quantity = nullptr;
    QMenu* m_help = nullptr;
};

} // namespace lanzhou
