#include "BulkDeletion.h"

#include "AppContext.h"
#include "Database.h"
#include "Dialogs.h"
#include "Session.h"
#include "TextUtils.h"

#include <QStringList>

namespace lanzhou {

namespace {

QString PasswordStatement(const Session& session)
{
    return QStringLiteral("select PWd from UsrLst where ZBID='") + SqlLiteral(session.ledgerId()) +
           QStringLiteral("' and Usr='") + SqlLiteral(session.operatorName()) + QStringLiteral("'");
}

// The warning's lines: the first two and the last are the same whether a password is asked or not.
QString WarningText(const QString& howToGoOn)
{
    return QStringList{QStringLiteral("    您真的要删除表格中的所有历史记录吗？"),
                       QStringLiteral("    数据删除后将不可恢复！"), howToGoOn,
                       QStringLiteral("    如果想放弃删除，请点击【取消】按钮；")}
        .join(QLatin1Char('\n'));
}

} // namespace

bool ConfirmBulkDeletion(const AppContext& context)
{
    Database& db = context.db;
    Dialogs& dialogs = context.dialogs;
    const QString statement = PasswordStatement(context.session);
    const QString password = db.RunScalar(statement);
    const QString title = QStringLiteral("警告");

    if (!password.isEmpty()) {
        const QString typed = dialogs.inputText(
            WarningText(QStringLiteral(
                "    如果确实要删除表格中所有数据，请输入您的操作员密码，再点击【确定】按钮。")),
            title, QString());
        if (typed == password)
            return true;
        dialogs.inform(QStringLiteral("密码输入错误，删除操作取消！"));
        return false;
    }

    const DialogAnswer answer =
        dialogs.show(WarningText(QStringLiteral("    如果确认要继续进行删除操作，请点击【确定】按钮。")),
                     title, DialogIcon::Warning, DialogButtons::OkCancel, DialogAnswer::Cancel);
    if (answer != DialogAnswer::Ok)
        return false;
    // Confirmed only by the operator's one row answering with an empty password.
    if (db.RunQuery(statement) == QLatin1String("1") && db.grid().cell(1, 0).isEmpty())
        return true;
    dialogs.inform(QStringLiteral("网络异常，删除操作强制取消！"));
    return false;
}

} // namespace lanzhou
