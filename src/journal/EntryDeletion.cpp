#include "EntryDeletion.h"

#include "AppContext.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EntryStatements.h"
#include "Session.h"

namespace lanzhou {

bool ConfirmEntryDeletion(const AppContext& context)
{
    return context.dialogs.askYesNo(QStringLiteral("真的要删除这条记录吗？"), QString(), DialogIcon::Question,
                                    DialogAnswer::No);
}

QString CurrentStamp(const AppContext& context)
{
    return ServerDate(context.db, context.session, context.clock) + QLatin1Char(' ') +
           LocalTimeText(context.clock);
}

QString CurrentTombstone(const AppContext& context)
{
    return TombstoneLedgerId(context.session.operatorName(), context.session.ledgerId(),
                             CurrentStamp(context));
}

bool WriteDeleteTombstone(const AppContext& context, const QString& entryId)
{
    const QString sql =
        DeleteTombstoneStatement(CurrentTombstone(context), context.session.ledgerId(), entryId);
    if (context.db.RunQuery(sql) == QLatin1String("OK"))
        return true;
    context.dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
    return false;
}

} // namespace lanzhou
