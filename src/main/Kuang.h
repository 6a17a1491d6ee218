#pragma once

#include "AppContext.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class Kuang;
}

namespace lanzhou {

class LedgerAdministration;
class LedgerListPanel;
class LedgerOpening;
class MainMenus;
class MainTray;
class OperatorLogin;
class QuickEntry;
class ReportWindows;

// The main window: three panels (open a ledger, log in, quick entry) served by one post button
// `Cmd` whose action follows the panel shown. The ledger list, the opening, the login, quick entry,
// the menus and the tray are collaborators of their own; the window shows the session's facts and
// refreshes them whenever the session changes.
class Kuang : public QMainWindow
{
    Q_OBJECT
public:
    enum Panel : qint16
    {
        OpenLedgerPanel = 0,
        LoginPanel = 1,
        EntryPanel = 2
    };

    explicit Kuang(const AppContext& context, QWidget* parent = nullptr);
    ~Kuang() override;

    Panel panel() const { return m_panel; }

signals:
    // The user chose to end the program.
    void programEnding();

protected:
    void showEvent(QShowEvent* event) override;
    // Closing asks first: Yes ends the program, No hides the window to the tray.
    void closeEvent(QCloseEvent* event) override;
    // Minimising hides the window to the tray.
    void changeEvent(QEvent* event) override;
    // Enter presses the post button on every panel.
    void keyPressEvent(QKeyEvent* event) override;

private:
    // The post button: opens, logs in or posts as the panel asks; disabled while it works.
    void post();
    void openLedger();
    void onLoggedIn(const QStringList& items);
    void showWait(const QString& caption);
    void hideWait();
    void openLastLedgerAtStart();
    void backToLogin();
    void backToLedgerSelection();

    // Panels (KuangPanels.cpp).
    void showPanel(Panel panel);
    void showOpenLedgerPanel();
    void showLoginPanel();
    void showEntryPanel();
    // Title, labels and the announcement as the session has them.
    void refreshFromSession();
    void showAnnouncementOrHint();

    // A copy of the references, so that callers may pass a temporary context.
    AppContext m_ctx;
    std::unique_ptr<Ui::Kuang> ui;
    Panel m_panel = OpenLedgerPanel;
    bool m_busy = false;
    bool m_startChecked = false;
    LedgerListPanel* m_ledgerList = nullptr;
    OperatorLogin* m_login = nullptr;
    LedgerOpening* m_opening = nullptr;
    QuickEntry* m_quickEntry = nullptr;
    ReportWindows* m_reports = nullptr;
    LedgerAdministration* m_administration = nullptr;
    MainMenus* m_menus = nullptr;
    MainTray* m_tray = nullptr;
};

} // namespace lanzhou
