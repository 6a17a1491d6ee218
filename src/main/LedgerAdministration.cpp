#include "LedgerAdministration.h"

#include "Database.h"
#include "Dialogs.h"
#include "GongGao.h"
#include "Rights.h"
#include "Session.h"
#include "Shell.h"
#include "TextUtils.h"
#include "UsrGL.h"
#include "UsrPwd.h"
#include "ZbCopy.h"
#include "ZbTyp.h"

#include <QWidget>

namespace lanzhou {

LedgerAdministration::LedgerAdministration(const AppContext& context, LedgerList& ledgers, QWidget* window,
                                           QWidget* announcementArea)
    : QObject(window), m_ctx(context), m_ledgers(ledgers), m_window(window),
      m_announcementArea(announcementArea)
{}

void LedgerAdministration::showLedgerId()
{
    const Session& s = m_ctx.session;
    const QString question = QStringLiteral("您的账本《") + s.ledgerName() +
                             QStringLiteral("》在服务器上的ID号是：\n         ") + s.ledgerId() +
                             QStringLiteral("\n请牢记这个ID号，以便在其他电脑上使用时凭此连接账本。\n"
                                            "是否需要复制这个ID号，以便您直接粘贴到需要的位置？");
    if (!m_ctx.dialogs.askYesNo(question, QStringLiteral("账本ID"), DialogIcon::Question, DialogAnswer::Yes))
        return;
    m_ctx.shell.setClipboardText(s.ledgerId());
    m_ctx.dialogs.inform(QStringLiteral("已经复制“") + s.ledgerId() +
                         QStringLiteral("”！\n您可以粘贴到您需要的位置！"));
}

void LedgerAdministration::rename()
{
    if (!RequireRight(m_ctx, Right::Administer))
        return;
    Session& s = m_ctx.session;
    const QString before = s.ledgerName();
    s.modalResult.clear();
    ZbTyp dialog(m_ctx, m_ledgers, ZbTyp::Mode::NameOnly, m_window);
    dialog.exec();
    const QString name = s.ledgerName();
    if (s.modalResult != QLatin1String("OK") || name == before)
        return;
    const QString updated =
        m_ctx.db.RunQuery(QStringLiteral("update zblst set zbnm='") + SqlLiteral(name) +
                          QStringLiteral("' where zbid='") + SqlLiteral(s.ledgerId()) + u'\'');
    if (updated != QLatin1String("OK")) {
        // The server keeps the old name, and so does everything shown.
        m_ctx.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        s.setLedgerName(before);
    }
}

void LedgerAdministration::changeType()
{
    if (!RequireRight(m_ctx, Right::Administer))
        return;
    m_ctx.session.modalResult.clear();
    ZbTyp dialog(m_ctx, m_ledgers, ZbTyp::Mode::TypeSettings, m_window);
    dialog.exec();
}

void LedgerAdministration::manageOperators()
{
    if (!RequireRight(m_ctx, Right::Administer))
        return;
    UsrGL dialog(m_ctx, m_window);
    dialog.exec();
}

void LedgerAdministration::changePassword()
{
    if (!RequireRight(m_ctx, Right::ChangePassword))
        return;
    m_ctx.session.modalResult.clear();
    UsrPwd dialog(m_ctx, UsrPwd::Mode::ChangePassword, m_window);
    dialog.exec();
}

void LedgerAdministration::editAnnouncement()
{
    if (!RequireRight(m_ctx, Right::Announce))
        return;
    GongGao dialog(m_ctx, m_announcementArea->palette().color(m_announcementArea->backgroundRole()),
                   m_window);
    dialog.exec();
}

void LedgerAdministration::copyLedger()
{
    if (!RequireRight(m_ctx, Right::Administer))
        return;
    ZbCopy dialog(m_ctx, m_window);
    dialog.exec();
}

} // namespace lanzhou
