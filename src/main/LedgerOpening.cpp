#include "LedgerOpening.h"

#include "AppConstants.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "OperatorLogin.h"
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

LedgerOpening::LedgerOpening(const AppContext& context, OperatorLogin& login, QObject* parent)
    : QObject(parent), m_ctx(context), m_login(login)
{}

std::optional<LedgerOpening::Opened> LedgerOpening::open(const LedgerList::Entry& ledger, bool autoOpen)
{
    emit waiting(QStringLiteral("正在打开【") + ledger.name + QStringLiteral("】……"));
    Database& db = m_ctx.db;
    const QString found =
        db.RunQuery(QStringLiteral("select Item,SL,Msg,Cmd,GongGao from ZbLst where ZBid='") +
                    SqlLiteral(ledger.id) + u'\'');
    if (found == QLatin1String("0")) {
        m_ctx.dialogs.inform(QStringLiteral("服务器上不存在该账本！"), kTitle);
        return std::nullopt;
    }
    if (found.isEmpty()) {
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败！"));
        return std::nullopt;
    }
    const QString item = CleanInput(db.grid().cell(1, 0));
    const QString quantity = CleanInput(db.grid().cell(1, 1));
    const QString greeting = db.grid().cell(1, 2);
    const QString command = db.grid().cell(1, 3);
    const QString announcement = db.grid().cell(1, 4);
    if (!actOnServerCommand(ledger.id, command, greeting))
        return std::nullopt;

    m_login.forgetOtherLedger(ledger.id);
    Session& s = m_ctx.session;
    s.openLedger(ledger.id, ledger.name, item, quantity, greeting, announcement);

    emit waiting(QStringLiteral("正在读入操作员列表……"));
    const QString app = AppConstants::settingsApp();
    const QString tag = AppConstants::settingsTag();
    m_ctx.settings.write(app, QStringLiteral("ZBID"), tag, ledger.id);
    m_ctx.settings.write(app, QStringLiteral("AutoOpen"), tag,
                         autoOpen ? QStringLiteral("1") : QStringLiteral("0"));
    Opened opened;
    opened.rememberedOperator =
        s.operatorName().isEmpty() ? m_ctx.settings.read(app, ledger.id, tag) : s.operatorName();
    opened.autoLogin = NumericValue(m_ctx.settings.read(app, QStringLiteral("AutoLogin"), tag)) == 1;
    return opened;
}

bool LedgerOpening::actOnServerCommand(const QString& ledgerId, const QString& command,
                                       const QString& message)
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

} // namespace lanzhou
