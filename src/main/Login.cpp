// Operator login on the login panel: the password check, the rights, and what is remembered locally.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Database.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "LedgerItems.h"
#include "Rights.h"
#include "Session.h"
#include "Settings.h"
#include "TextUtils.h"

namespace lanzhou {

namespace {
QString PasswordKey(const QString& op, const QString& ledgerId)
{
    return op + u'#' + ledgerId;
}
} // namespace

void Kuang::login()
{
    Session& s = m_ctx.session;
    const QString op = ui->CmbUser->currentText();
    showWait(op + QStringLiteral("，您好！ 正在核实身份……"));
    YieldEvents(1);

    Database& db = m_ctx.db;
    const QString found =
        db.RunQuery(QStringLiteral("select Pwd,QX from UsrLst where ZBid='") + SqlLiteral(s.ledgerId()) +
                    QStringLiteral("' and Usr='") + SqlLiteral(op) + u'\'');
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }
    if (found.toInt() <= 0) {
        m_ctx.dialogs.inform(QStringLiteral("服务器已经删除【") + op + QStringLiteral("】这个操作员！"));
        return;
    }
    if (db.grid().cell(1, 0) != ui->TxtPwd->text()) {
        m_ctx.dialogs.inform(QStringLiteral("密码错误，您不能登入！"), QStringLiteral("提示"));
        return;
    }
    const QString rights = db.grid().cell(1, 1);

    showWait(QStringLiteral("正在读取账本中的") + s.itemLabel() + QStringLiteral("信息……"));
    // The items are read before anything is shown or remembered: without them the operator stays on
    // the login panel as he was, and may try again.
    const std::optional<QStringList> items = ReadLedgerItems(db, s.ledgerId());
    if (!items) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }
    YieldEvents(6);
    hideWait();
    if (s.greeting().isEmpty())
        s.setGreeting(QStringLiteral("您好！"));
    ui->labHello->setText(s.greeting() + QStringLiteral("，") + op);
    ui->labHello->show();

    rememberLogin(op);
    YieldEvents(3);
    ui->Chk->hide();
    ui->Chk2->hide();
    // The quantity shows by itself only to an operator who may see quantities (right 4).
    m_autoShowQuantity =
        m_ctx.settings.read(s.ledgerId(), op, QStringLiteral("AutoShowSL")) != QLatin1String("False") &&
        Rights::Granted(Rights::Extend(rights), Right::SeeQuantity);

    fillItems(*items);
    s.logIn(op, rights);
    m_shownItem.clear();
    m_runningTotal = 0;
    showPanel(EntryPanel);
}

void Kuang::rememberLogin(const QString& op)
{
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    const QString ledgerId = m_ctx.session.ledgerId();
    Settings& settings = m_ctx.settings;
    if (m_autoLogin)
        ui->Chk->setChecked(true);
    settings.write(app, ledgerId, tag, op);
    if (!ui->Chk2->isChecked()) {
        ui->TxtPwd->clear();
        settings.write(app, tag, PasswordKey(op, ledgerId), QString());
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("0"));
        return;
    }
    const QString password = ui->TxtPwd->text();
    settings.write(app, tag, PasswordKey(op, ledgerId), password);
    if (!ui->Chk->isChecked())
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("0"));
    else if (password.isEmpty())
        m_ctx.dialogs.inform(
            op + QStringLiteral("，您好！您还没有设置密码！\n只有设置密码后才可以设置自动登入！"));
    else
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("1"));
}

void Kuang::onOperatorPicked(int index)
{
    if (m_panel != LoginPanel || index < 0)
        return;
    const QString password =
        m_ctx.settings.read(AppConstants::settingsApp(), AppConstants::settingsTag(),
                            PasswordKey(ui->CmbUser->itemText(index), m_ctx.session.ledgerId()));
    ui->TxtPwd->setText(password);
    ui->Chk2->setChecked(!password.isEmpty());
    if (password.isEmpty() || !m_autoLogin)
        return;
    // Inside the opening the post button is already busy; a pick by hand goes through it.
    if (m_busy)
        login();
    else
        post();
}

void Kuang::onAutoLoginToggled(bool checked)
{
    if (m_panel == LoginPanel && checked)
        ui->Chk2->setChecked(true);
}

void Kuang::onRememberPasswordToggled(bool checked)
{
    if (m_panel == LoginPanel && !checked)
        ui->Chk->setChecked(false);
}

} // namespace lanzhou
