// The three panels of the main window and what each shows, hides and says.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "Announcement.h"
#include "AppConstants.h"
#include "LedgerListPanel.h"
#include "MainMenus.h"
#include "OperatorLogin.h"
#include "QuickEntry.h"
#include "Session.h"
#include "Settings.h"

namespace lanzhou {

namespace {
void setShown(std::initializer_list<QWidget*> widgets, bool shown)
{
    for (QWidget* w : widgets)
        w->setVisible(shown);
}

const QString kHintStyle = QStringLiteral("color: #555555;");
} // namespace

void Kuang::showPanel(Panel panel)
{
    m_panel = panel;
    m_login->setActive(panel == LoginPanel);
    m_quickEntry->setActive(panel == EntryPanel);
    m_menus->setLoggedIn(panel == EntryPanel);
    ui->Cmd2->hide();
    ui->Chk2->hide();
    ui->Lab4->hide();
    ui->Lab5->hide();
    ui->Lab3->setStyleSheet(kHintStyle);
    switch (panel) {
    case OpenLedgerPanel:
        showOpenLedgerPanel();
        break;
    case LoginPanel:
        showLoginPanel();
        break;
    case EntryPanel:
        showEntryPanel();
        break;
    }
    refreshFromSession();
    // Captions changed width: lay out now, not on the next pass of the event loop.
    ui->centralwidget->layout()->activate();
}

void Kuang::showOpenLedgerPanel()
{
    setShown({ui->Txt, ui->Cmb, ui->CmbUser, ui->TxtPwd, ui->labHello, ui->CmdMenu, ui->CmdRpt}, false);
    setShown({ui->CmbZbNm, ui->Cmd2, ui->Chk, ui->LabWelcome}, true);
    ui->Lab1->clear();
    ui->Lab2->clear();
    ui->Cmd->setText(QStringLiteral("打开账本"));
    {
        const QSignalBlocker quiet(ui->Chk);
        ui->Chk->setText(QStringLiteral("下次自动打开该账本"));
        ui->Chk->setChecked(m_ctx.settings.read(AppConstants::settingsApp(), QStringLiteral("AutoOpen"),
                                                AppConstants::settingsTag()) == QLatin1String("1"));
    }
    ui->LabWelcome->setText(QStringLiteral("    您好！欢迎使用《") + AppConstants::title() +
                            QStringLiteral("》！"));
    ui->Lab3->setText(QStringLiteral("    ") +
                      AppConstants::makerLines().replace(u'\n', QStringLiteral("\n    ")));
    m_ledgerList->load();
    ui->CmbZbNm->setFocus();
}

void Kuang::showLoginPanel()
{
    setShown({ui->LabWelcome, ui->CmbZbNm, ui->Cmb, ui->Txt, ui->labHello, ui->CmdRpt}, false);
    setShown({ui->CmbUser, ui->Lab2, ui->TxtPwd, ui->Chk, ui->Chk2, ui->CmdMenu}, true);
    ui->Lab1->setText(QStringLiteral("操作员"));
    ui->Lab2->setText(QStringLiteral("密码"));
    ui->Cmd->setText(QStringLiteral(" 登 入"));
    ui->Chk->setText(QStringLiteral("自动登入"));
    ui->Txt->clear();
    ui->Lab3->setText(QStringLiteral("    请选择操作员，输入密码，然后【登入】远程账本。\n"
                                     "     如果您没有设置过密码，则密码为空（即不需要输入密码）。"));
    ui->TxtPwd->setFocus();
}

void Kuang::showEntryPanel()
{
    setShown({ui->CmbUser, ui->TxtPwd, ui->Chk, ui->Chk2, ui->LabWelcome, ui->CmbZbNm}, false);
    setShown({ui->Cmb, ui->Txt, ui->CmdMenu, ui->CmdRpt}, true);
    ui->Cmd->setText(QStringLiteral(" 记 账 "));
    ui->Txt->clear();
    ui->Cmb->setFocus();
}

void Kuang::refreshFromSession()
{
    const Session& s = m_ctx.session;
    setWindowTitle(m_panel == OpenLedgerPanel
                       ? AppConstants::title()
                       : s.ledgerName() + QStringLiteral(" - ") + AppConstants::title());
    if (m_panel != EntryPanel)
        return;
    ui->Lab1->setText(s.itemLabel());
    ui->Lab2->setText(s.quantityLabel() + QStringLiteral("增减"));
    showAnnouncementOrHint();
}

// The ledger's announcement in its colour; without one, how to post. A style set anew re-polishes
// the label, so it is set only when it differs.
void Kuang::showAnnouncementOrHint()
{
    const Session& s = m_ctx.session;
    QString style = kHintStyle;
    QString text = QStringLiteral("    请输入或选择") + s.itemLabel() + QStringLiteral("，然后输入") +
                   s.quantityLabel() +
                   QStringLiteral("变动情况。\n     如：增加10，输入“+10”，减少5，输入“-5”。\n"
                                  "     数字后面加空格再加文字，如“-5 计划外”，即表示备注说明。");
    if (!s.announcement().isEmpty()) {
        const Announcement announcement = Announcement::Parse(s.announcement());
        style = QStringLiteral("color: %1;").arg(announcement.colour.name());
        text = announcement.text;
    }
    if (ui->Lab3->styleSheet() != style)
        ui->Lab3->setStyleSheet(style);
    ui->Lab3->setText(text);
}

} // namespace lanzhou
