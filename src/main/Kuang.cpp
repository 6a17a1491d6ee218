#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Dialogs.h"
#include "LedgerAdministration.h"
#include "LedgerListPanel.h"
#include "LedgerOpening.h"
#include "MainMenus.h"
#include "MainTray.h"
#include "OperatorLogin.h"
#include "QuickEntry.h"
#include "ReportWindows.h"
#include "Session.h"
#include "Settings.h"
#include "WindowRules.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>

namespace lanzhou {

Kuang::Kuang(const AppContext& context, QWidget* parent)
    : QMainWindow(parent), m_ctx(context), ui(std::make_unique<Ui::Kuang>())
{
    ui->setupUi(this);
    ui->LabTop->setText(QStringLiteral("岚 舟 云 记 账"));
    ui->CmdWait->hide();
    ui->Cmd->setDefault(true);

    m_ledgerList = new LedgerListPanel(m_ctx, {ui->CmbZbNm, ui->CmbZbID, ui->Cmd2, ui->Cmd, this}, this);
    m_login = new OperatorLogin(m_ctx, {ui->CmbUser, ui->TxtPwd, ui->Chk, ui->Chk2, ui->labHello}, this);
    m_opening = new LedgerOpening(m_ctx, *m_login, this);
    m_quickEntry = new QuickEntry(m_ctx, {ui->Cmb, ui->Txt, ui->Lab4, ui->Lab5}, this);
    m_reports = new ReportWindows(m_ctx, this);
    m_administration = new LedgerAdministration(m_ctx, m_ledgerList->ledgers(), this, ui->Lab3);
    m_menus = new MainMenus(m_ctx, {ui->CmdMenu, ui->CmdRpt, ui->Lab4, ui->CmdHelp},
                            {*m_administration, *m_reports, *m_quickEntry}, this);
    m_tray = new MainTray(m_ctx.shell, this, m_menus->trayMenu());

    connect(ui->Cmd, &QPushButton::clicked, this, &Kuang::post);
    connect(m_ledgerList, &LedgerListPanel::openRequested, this, &Kuang::post);
    connect(m_opening, &LedgerOpening::waiting, this, &Kuang::showWait);
    connect(m_login, &OperatorLogin::waiting, this, &Kuang::showWait);
    connect(m_login, &OperatorLogin::waitingDone, this, &Kuang::hideWait);
    // Inside the opening the post button is already busy; a pick by hand goes through it.
    connect(m_login, &OperatorLogin::loginRequested, this, [this] { m_busy ? m_login->login() : post(); });
    connect(m_login, &OperatorLogin::loggedIn, this, &Kuang::onLoggedIn);
    connect(m_menus, &MainMenus::loginRequested, this, &Kuang::backToLogin);
    connect(m_menus, &MainMenus::ledgerSelectionRequested, this, &Kuang::backToLedgerSelection);
    connect(m_menus, &MainMenus::showWindowRequested, m_tray, &MainTray::showWindow);
    connect(m_menus, &MainMenus::exitRequested, this, &Kuang::close);
    connect(&m_ctx.session, &Session::changed, this, &Kuang::refreshFromSession);

    showPanel(OpenLedgerPanel);
}

Kuang::~Kuang()
{
    DetachHandlers(this);
}

void Kuang::post()
{
    if (m_busy)
        return;
    m_busy = true;
    ui->Cmd->setEnabled(false);
    switch (m_panel) {
    case OpenLedgerPanel:
        openLedger();
        break;
    case LoginPanel:
        m_login->login();
        break;
    case EntryPanel:
        m_quickEntry->post();
        break;
    }
    hideWait();
    ui->Cmd->setEnabled(true);
    m_busy = false;
}

void Kuang::openLedger()
{
    const std::optional<LedgerList::Entry> chosen = m_ledgerList->selected();
    if (!chosen) {
        m_ctx.dialogs.inform(QStringLiteral("请首先按提示增加账本，然后再【打开账本】！"),
                             QStringLiteral("提示"));
        return;
    }
    const std::optional<LedgerOpening::Opened> opened = m_opening->open(*chosen, ui->Chk->isChecked());
    if (!opened)
        return;
    showPanel(LoginPanel);
    if (!m_login->fillOperators(chosen->id)) {
        showPanel(OpenLedgerPanel);
        return;
    }
    m_login->start(opened->rememberedOperator, opened->autoLogin);
}

void Kuang::onLoggedIn(const QStringList& items)
{
    m_quickEntry->start(items);
    showPanel(EntryPanel);
}

void Kuang::showWait(const QString& caption)
{
    ui->CmdWait->setText(caption);
    ui->CmdWait->show();
}

void Kuang::hideWait()
{
    ui->CmdWait->hide();
}

void Kuang::backToLogin()
{
    showPanel(LoginPanel);
    m_login->restart();
}

void Kuang::backToLedgerSelection()
{
    const QString openId = m_ctx.session.ledgerId();
    showPanel(OpenLedgerPanel);
    m_ledgerList->selectId(openId);
}

void Kuang::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!m_startChecked) {
        m_startChecked = true;
        FitIntoScreen(this);
        // Opens after the window has painted, so that its messages stand over it.
        QTimer::singleShot(0, this, &Kuang::openLastLedgerAtStart);
    }
}

void Kuang::openLastLedgerAtStart()
{
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    if (m_ctx.settings.read(app, QStringLiteral("AutoOpen"), tag) != QLatin1String("1") ||
        m_ctx.settings.read(app, QStringLiteral("ZBID"), tag).isEmpty())
        return;
    if (m_panel == OpenLedgerPanel && m_ledgerList->selected())
        post();
}

void Kuang::closeEvent(QCloseEvent* event)
{
    const bool end = m_ctx.dialogs.askYesNo(
        QStringLiteral("您确定要退出《") + AppConstants::title() +
            QStringLiteral("》吗？\n点击<是>退出本软件，点击<否>本窗口将缩小为右下角托盘图标。"),
        QString(), DialogIcon::Question, DialogAnswer::Yes);
    if (!end) {
        event->ignore();
        m_tray->hideToTray();
        return;
    }
    m_tray->remove();
    event->accept();
    emit programEnding();
}

void Kuang::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    // Hidden once the minimising has finished, not in the middle of it.
    if (event->type() == QEvent::WindowStateChange && isMinimized() && isVisible())
        QTimer::singleShot(0, m_tray, &MainTray::hideToTray);
}

void Kuang::keyPressEvent(QKeyEvent* event)
{
    // The boxes leave Enter to the window: a line box after it has finished, a plain list untouched.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        post();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

} // namespace lanzhou
