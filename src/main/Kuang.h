#pragma once

#include "AppContext.h"
#include "LedgerList.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class QMenu;

namespace Ui {
class Kuang;
}

namespace lanzhou {

class HzLst;
class JournalOpener;
class KcLst;

// The main window: the local ledger list, opening a ledger, operator login and quick entry, served
// by one post button `Cmd` whose action follows the panel shown; the menus open the other windows.
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

protected:
    void showEvent(QShowEvent* event) override;
    // Enter presses the post button on every panel.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The post button: opens, logs in or posts as the panel asks; disabled while it works.
    void post();
    void showWait(const QString& caption);
    void hideWait();
    void openLastLedgerAtStart();

    // Panels (KuangPanels.cpp).
    void showPanel(Panel panel);
    void showOpenLedgerPanel();
    void showLoginPanel();
    void showEntryPanel();

    // The local ledger list (LedgerListPanel.cpp).
    void armLedgerPick();
    void loadLedgerList();
    void fillLedgerCombos();
    void saveLedgerList();
    // Changes the selection without running the pick handler.
    void selectLedger(int index);
    void onLedgerPicked(int index);
    void addLedger();
    void removeLedger();

    // Opening a ledger (LedgerOpening.cpp).
    void openLedger();
    // False when the server's command abandons the opening.
    bool actOnServerCommand(const QString& ledgerId, const QString& command, const QString& message);
    bool fillOperators(const QString& ledgerId);
    void selectRememberedOperator(const QString& op);

    // Login (Login.cpp).
    void login();
    void onOperatorPicked(int index);
    void onAutoLoginToggled(bool checked);
    void onRememberPasswordToggled(bool checked);
    void rememberLogin(const QString& op);

    // Quick entry (QuickEntry.cpp).
    void postEntry();
    void fillItems(const QStringList& items);
    QString ShowItemTotal(const QString& item);
    void showQuantityLine();
    void onItemPicked();
    void onItemBoxLeft();
    void onQuantityTextChanged(const QString& text);
    void hideConfirmation();

    // Menus (KuangMenus.cpp, KuangReports.cpp).
    void buildMenus();
    void buildReportMenu();
    void popUnder(QMenu* menu, QWidget* button);
    void backToLogin();
    void backToLedgerSelection();

    // A copy of the references, so that callers may pass a temporary context.
    AppContext m_ctx;
    std::unique_ptr<Ui::Kuang> ui;
    LedgerList m_ledgers;
    Panel m_panel = OpenLedgerPanel;
    // Armed, the pick handler of the ledger names runs; the program disarms it while it changes them.
    QString m_ledgerPickGuard;
    bool m_busy = false;
    bool m_autoLogin = false;
    bool m_autoShowQuantity = true;
    bool m_startChecked = false;
    // The ledger whose operators CmbUser lists.
    QString m_operatorsLedger;
    // The item whose quantity Lab4 shows, and that quantity.
    QString m_shownItem;
    double m_runningTotal = 0;
    QMenu* m_commandMenu = nullptr;
    QMenu* m_reportMenu = nullptr;
    QMenu* m_helpMenu = nullptr;
    JournalOpener* m_journalOpener = nullptr;
    QPointer<HzLst> m_summary;
    QPointer<KcLst> m_balanceList;
};

} // namespace lanzhou
