// The menus of the main window: the ledger menu (back to login, back to the ledger list) and the help menu.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "Dialogs.h"
#include "Session.h"

#include <QMenu>

namespace lanzhou {

namespace {
QAction* addNamedAction(QMenu* menu, const QString& name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(name);
    return action;
}

} // namespace

void Kuang::popUnder(QMenu* menu, QWidget* button)
{
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
}

void Kuang::buildMenus()
{
    m_commandMenu = new QMenu(this);
    m_commandMenu->setObjectName(QStringLiteral("Menu_Cmd"));
    QAction* login = addNamedAction(m_commandMenu, QStringLiteral("Menu_Login"), QStringLiteral("重新登入"));
    addNamedAction(m_commandMenu, QStringLiteral("Menu_BackZB"), QStringLiteral("返回账本列表"));
    connect(login, &QAction::triggered, this, &Kuang::backToLogin);
    connect(m_commandMenu->actions().constLast(), &QAction::triggered, this, &Kuang::backToLedgerSelection);
    // Logging in again only makes sense once someone is logged in.
    connect(m_commandMenu, &QMenu::aboutToShow, this,
            [this, login] { login->setVisible(m_panel == EntryPanel); });
    connect(ui->CmdMenu, &QPushButton::clicked, this, [this] { popUnder(m_commandMenu, ui->CmdMenu); });

    m_helpMenu = new QMenu(this);
    m_helpMenu->setObjectName(QStringLiteral("traymenu"));
    connect(addNamedAction(m_helpMenu, QStringLiteral("MenuExit"), QStringLiteral("退出本软件")),
            &QAction::triggered, this, &Kuang::close);
    connect(ui->CmdHelp, &QPushButton::clicked, this, [this] { popUnder(m_helpMenu, ui->CmdHelp); });
}

void Kuang::backToLogin()
{
    m_autoLogin = false;
    showPanel(LoginPanel);
    {
        const QSignalBlocker quietAuto(ui->Chk);
        const QSignalBlocker quietRemember(ui->Chk2);
        ui->Chk->setChecked(false);
        ui->Chk2->setChecked(false);
    }
    ui->TxtPwd->clear();
    ui->labHello->hide();
}

void Kuang::backToLedgerSelection()
{
    const QString openId = m_ctx.session.ledgerId();
    showPanel(OpenLedgerPanel);
    selectLedger(m_ledgers.indexOfId(openId));
}

} // namespace lanzhou
