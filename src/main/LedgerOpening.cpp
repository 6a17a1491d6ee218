// Opening the ledger chosen in the list: its row of ZbLst, the server's command, the operator list.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "Session.h"
#include "Settings.h"
#include "Shell.h"
#include "TextUtils.h"

namespace lanzhou {

namespace {
const QString kTitle = QStringLiteral("提示");

bool StartsWithHttp(const QString& text)
{
    return text.left(4).toUpper() == QLatin1String("HTTP");
}
} // namespace

void Kuang::openLedger()
{
    const int index = ui->CmbZbNm->currentIndex();
    if (index < 0 || index >= m_ledgers.size()) {
        m_ctx.dialogs.inform(QStringLiteral("请首先按提示增加账本，然后再【打开账本】！"), kTitle);
        return;
    }
    const QString id = ui->CmbZbID->itemText(index);
    const QString name = ui->CmbZbNm->itemText(index);
    showWait(QStringLiteral("正在打开【") + name + QStringLiteral("】……"));

    Database& db = m_ctx.db;
    const QString found = db.RunQuery(
        QStringLiteral("select Item,SL,Msg,Cmd,GongGao from ZbLst where ZBid='") + SqlLiteral(id) + u'\'');
    if (found == QLatin1String("0")) {
        m_ctx.dialogs.inform(QStringLiteral("服务器上不存在该账本！"), kTitle);
        return;
    }
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败！"));
        return;
    }
    const QString item = CleanInput(db.grid().cell(1, 0));
    const QString quantity = CleanInput(db.grid().cell(1, 1));
    const QString greeting = db.grid().cell(1, 2);
    const QString command = db.grid().cell(1, 3);
    const QString announcement = db.grid().cell(1, 4);
    if (!actOnServerCommand(id, command, greeting))
        return;

    Session& s = m_ctx.session;
    if (m_operatorsLedger != id) {
        // The operators of another ledger do not carry over, nor does its operator; the session's
        // ledger may already name this one (registering it does), so the list tells.
        s.setOperatorName(QString());
        s.setOperators({});
        ui->CmbUser->clear();
        m_operatorsLedger.clear();
    }
    s.openLedger(id, name, item, quantity, greeting, announcement);

    showWait(QStringLiteral("正在读入操作员列表……"));
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    m_ctx.settings.write(app, QStringLiteral("ZBID"), tag, id);
    m_ctx.settings.write(app, QStringLiteral("AutoOpen"), tag,
                         ui->Chk->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
    const QString remembered =
        s.operatorName().isEmpty() ? m_ctx.settings.read(app, id, tag) : s.operatorName();
    const bool autoLogin = NumericValue(m_ctx.settings.read(app, QStringLiteral("AutoLogin"), tag)) == 1;

    showPanel(LoginPanel);
    if (!fillOperators(id))
        return;
    {
        const QSignalBlocker quietAuto(ui->Chk);
        const QSignalBlocker quietRemember(ui->Chk2);
        ui->Chk->setChecked(false);
        ui->Chk2->setChecked(false);
    }
    ui->TxtPwd->clear();
    m_autoLogin = autoLogin;
    selectRememberedOperator(remembered);
}

bool Kuang::actOnServerCommand(const QString& ledgerId, const QString& command, const QString& message)
{
    const QString upper = command.toUpper();
    if (upper == QLatin1String("NOTICE")) {
        if (StartsWithHttp(message))
            m_ctx.shell.openUrl(message);
        else
            m_ctx.dialogs.inform(message);
    } else if (upper == QLatin1String("STOP")) {
        m_ctx.dialogs.inform(message + QStringLiteral("\n\n打开账本操作失败！"));
        return false;
    } else if (StartsWithHttp(command)) {
        m_ctx.shell.openUrl(command);
        // Spent at once, so that the address opens only this one time.
        m_ctx.db.RunQuery(QStringLiteral("update Zblst set Cmd='") +
                          ServerDate(m_ctx.db, m_ctx.session, m_ctx.clock) +
                          QStringLiteral("' where Zbid='") + SqlLiteral(ledgerId) + u'\'');
    }
    return true;
}

bool Kuang::fillOperators(const QString& ledgerId)
{
    if (ui->CmbUser->count() > 0)
        return true;
    Database& db = m_ctx.db;
    const QString found =
        db.RunQuery(QStringLiteral("select Usr from UsrLst where ZBid='") + SqlLiteral(ledgerId) + u'\'');
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), kTitle);
        showPanel(OpenLedgerPanel);
        return false;
    }
    QStringList operators;
    if (NumericValue(found) > 0) {
        for (int row = 1; row < db.grid().rowLimit(); ++row)
            if (!db.grid().cell(row, 0).isEmpty())
                operators.append(db.grid().cell(row, 0));
    } else {
        db.RunScalar(QStringLiteral("insert into UsrLst (ZBID,Usr,PWD) values ('") + SqlLiteral(ledgerId) +
                     QStringLiteral("','管理员','')"));
        operators.append(QStringLiteral("管理员"));
    }
    ui->CmbUser->addItems(operators);
    m_ctx.session.setOperators(operators);
    m_operatorsLedger = ledgerId;
    return true;
}

void Kuang::selectRememberedOperator(const QString& op)
{
    const int index = ui->CmbUser->findText(op);
    if (index < 0)
        return;
    ui->CmbUser->setCurrentIndex(index);
    onOperatorPicked(index);
}

} // namespace lanzhou
