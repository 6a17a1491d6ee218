#include "OperatorLogin.h"

#include "AppConstants.h"
#include "Database.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "LedgerItems.h"
#include "Session.h"
#include "Settings.h"
#include "TextUtils.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <optional>

namespace lanzhou {

namespace {
const QString kTitle = QStringLiteral("提示");

QString PasswordKey(const QString& op, const QString& ledgerId)
{
    return op + u'#' + ledgerId;
}
} // namespace

OperatorLogin::OperatorLogin(const AppContext& context, const Widgets& widgets, QObject* parent)
    : QObject(parent), m_ctx(context), m_w(widgets)
{
    connect(m_w.operators, &QComboBox::activated, this, &OperatorLogin::onOperatorPicked);
    // Ticking automatic login also remembers the password; forgetting the password ends it.
    connect(m_w.autoLogin, &QCheckBox::toggled, this, [this](bool checked) {
        if (m_active && checked)
            m_w.rememberPassword->setChecked(true);
    });
    connect(m_w.rememberPassword, &QCheckBox::toggled, this, [this](bool checked) {
        if (m_active && !checked)
            m_w.autoLogin->setChecked(false);
    });
    connect(&m_ctx.session, &Session::changed, this, &OperatorLogin::followSession);
}

void OperatorLogin::forgetOtherLedger(const QString& ledgerId)
{
    if (m_operatorsLedger == ledgerId)
        return;
    // The session's ledger may already name this one (registering it does), so the list tells.
    m_operatorsLedger.clear();
    m_w.operators->clear();
    m_ctx.session.setOperatorName(QString());
    m_ctx.session.setOperators({});
}

bool OperatorLogin::fillOperators(const QString& ledgerId)
{
    if (m_w.operators->count() > 0)
        return true;
    Database& db = m_ctx.db;
    const QString found =
        db.RunQuery(QStringLiteral("select Usr from UsrLst where ZBid='") + SqlLiteral(ledgerId) + u'\'');
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), kTitle);
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
    m_operatorsLedger = ledgerId;
    m_ctx.session.setOperators(operators);
    // The session may hold these operators already, and then announces no change.
    followSession();
    return true;
}

void OperatorLogin::followSession()
{
    const Session& s = m_ctx.session;
    if (m_operatorsLedger.isEmpty() || m_operatorsLedger != s.ledgerId())
        return;
    QStringList listed;
    for (int i = 0; i < m_w.operators->count(); ++i)
        listed.append(m_w.operators->itemText(i));
    if (listed == s.operators())
        return;
    const QSignalBlocker quiet(m_w.operators);
    const QString current = m_w.operators->currentText();
    m_w.operators->clear();
    m_w.operators->addItems(s.operators());
    m_w.operators->setCurrentIndex(qMax(0, int(m_w.operators->findText(current))));
}

void OperatorLogin::clearChecks()
{
    const QSignalBlocker quietAuto(m_w.autoLogin);
    const QSignalBlocker quietRemember(m_w.rememberPassword);
    m_w.autoLogin->setChecked(false);
    m_w.rememberPassword->setChecked(false);
}

void OperatorLogin::start(const QString& rememberedOperator, bool autoLogin)
{
    clearChecks();
    m_w.password->clear();
    m_autoLogin = autoLogin;
    const int index = m_w.operators->findText(rememberedOperator);
    if (index < 0)
        return;
    m_w.operators->setCurrentIndex(index);
    onOperatorPicked(index);
}

void OperatorLogin::restart()
{
    m_autoLogin = false;
    clearChecks();
    m_w.password->clear();
    m_w.hello->hide();
}

void OperatorLogin::login()
{
    Session& s = m_ctx.session;
    const QString op = m_w.operators->currentText();
    emit waiting(op + QStringLiteral("，您好！ 正在核实身份……"));
    YieldEvents(1);

    Database& db = m_ctx.db;
    const QString found =
        db.RunQuery(QStringLiteral("select Pwd,QX from UsrLst where ZBid='") + SqlLiteral(s.ledgerId()) +
                    QStringLiteral("' and Usr='") + SqlLiteral(op) + u'\'');
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), kTitle);
        return;
    }
    if (found.toInt() <= 0) {
        m_ctx.dialogs.inform(QStringLiteral("服务器已经删除【") + op + QStringLiteral("】这个操作员！"));
        return;
    }
    if (db.grid().cell(1, 0) != m_w.password->text()) {
        m_ctx.dialogs.inform(QStringLiteral("密码错误，您不能登入！"), kTitle);
        return;
    }
    const QString rights = db.grid().cell(1, 1);

    emit waiting(QStringLiteral("正在读取账本中的") + s.itemLabel() + QStringLiteral("信息……"));
    // The items are read before anything is shown or remembered: without them the operator stays on
    // the login panel as he was, and may try again.
    const std::optional<QStringList> items = ReadLedgerItems(db, s.ledgerId());
    if (!items) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), kTitle);
        return;
    }
    YieldEvents(6);
    emit waitingDone();
    if (s.greeting().isEmpty())
        s.setGreeting(QStringLiteral("您好！"));
    m_w.hello->setText(s.greeting() + QStringLiteral("，") + op);
    m_w.hello->show();

    rememberLogin(op);
    YieldEvents(3);
    m_w.autoLogin->hide();
    m_w.rememberPassword->hide();
    s.logIn(op, rights);
    emit loggedIn(*items);
}

void OperatorLogin::rememberLogin(const QString& op)
{
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    const QString ledgerId = m_ctx.session.ledgerId();
    Settings& settings = m_ctx.settings;
    if (m_autoLogin)
        m_w.autoLogin->setChecked(true);
    settings.write(app, ledgerId, tag, op);
    if (!m_w.rememberPassword->isChecked()) {
        m_w.password->clear();
        settings.write(app, tag, PasswordKey(op, ledgerId), QString());
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("0"));
        return;
    }
    const QString password = m_w.password->text();
    settings.write(app, tag, PasswordKey(op, ledgerId), password);
    if (!m_w.autoLogin->isChecked())
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("0"));
    else if (password.isEmpty())
        m_ctx.dialogs.inform(
            op + QStringLiteral("，您好！您还没有设置密码！\n只有设置密码后才可以设置自动登入！"));
    else
        settings.write(app, QStringLiteral("AutoLogin"), tag, QStringLiteral("1"));
}

void OperatorLogin::onOperatorPicked(int index)
{
    if (!m_active || index < 0)
        return;
    const QString password =
        m_ctx.settings.read(AppConstants::settingsApp(), AppConstants::settingsTag(),
                            PasswordKey(m_w.operators->itemText(index), m_ctx.session.ledgerId()));
    m_w.password->setText(password);
    m_w.rememberPassword->setChecked(!password.isEmpty());
    if (!password.isEmpty() && m_autoLogin)
        emit loginRequested();
}

} // namespace lanzhou
