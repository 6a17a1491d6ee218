// The three panels of the main window and what each shows, hides and says.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Session.h"
#include "Settings.h"

namespace lanzhou {

namespace {
void setShown(std::initializer_list<QWidget*> widgets, bool shown)
{
    for (QWidget* w : widgets)
        w->setVisible(shown);
}
} // namespace

void Kuang::showPanel(Panel panel)
{
    m_panel = panel;
    ui->Cmd2->hide();
    ui->Chk2->hide();
    ui->Lab4->hide();
    ui->Lab5->hide();
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
    // Captions changed width: lay out now, not on the next pass of the event loop.
    ui->centralwidget->layout()->activate();
}

void Kuang::showOpenLedgerPanel()
{
    setWindowTitle(AppConstants::title());
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
    ui->Lab3->setText(QStringLiteral("    一个账本存放在云端服务器上，凭账本ID在任何电脑上都能打开。\n"
                                     "    选择账本，然后【打开账本】；第一次使用请点击“点击这里增加账本”。"));
    loadLedgerList();
    ui->CmbZbNm->setFocus();
}

void Kuang::showLoginPanel()
{
    setWindowTitle(m_ctx.session.ledgerName() + QStringLiteral(" - ") + AppConstants::title());
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
    const Session& s = m_ctx.session;
    setWindowTitle(s.ledgerName() + QStringLiteral(" - ") + AppConstants::title());
    setShown({ui->CmbUser, ui->TxtPwd, ui->Chk, ui->Chk2, ui->LabWelcome, ui->CmbZbNm}, false);
    setShown({ui->Cmb, ui->Txt, ui->CmdMenu, ui->CmdRpt}, true);
    ui->Lab1->setText(s.itemLabel());
    ui->Lab2->setText(s.quantityLabel() + QStringLiteral("增减"));
    ui->Cmd->setText(QStringLiteral(" 记 账 "));
    ui->Txt->clear();
    ui->Lab3->setText(QStringLiteral("    请输入或选择") + s.itemLabel() + QStringLiteral("，然后输入") +
                      s.quantityLabel() +
                      QStringLiteral("变动情况。\n     如：增加10，输入“+10”，减少5，输入“-5”。\n"
                                     "     数字后面加空格再加文字，如“-5 计划外”，即表示备注说明。"));
    ui->Cmb->setFocus();
}

} // namespace lanzhou
