#include "MxLst.h"

#include "ui_MxLst.h"

#include "BulkDeletion.h"
#include "Database.h"
#include "Dialogs.h"
#include "EntryDeletion.h"
#include "EntryStatements.h"
#include "EventLoop.h"
#include "Session.h"
#include "WaitCursor.h"

// The journal's bulk delete: every listed entry is tombstoned like a single delete, under one stamp.

namespace lanzhou {

void MxLst::deleteListing()
{
    Dialogs& dialogs = m_context.dialogs;
    if (ui->Lst2->count() == 0) {
        dialogs.inform(QStringLiteral("请先使用【统计】功能列出历史记录，才能进行删除操作！"));
        return;
    }
    if (!ConfirmBulkDeletion(m_context))
        return;

    setBusy(true, QStringLiteral("正在删除数据，请稍候……"));
    int kept = 0;
    {
        const WaitCursor hourglass;
        const QString tombstone = CurrentTombstone(m_context);
        for (int row = 0; row < ui->Lst2->count(); ++row) {
            QListWidgetItem* id = ui->Lst2->item(row);
            if (id->text().isEmpty())
                continue;
            const QString sql = DeleteTombstoneStatement(tombstone, m_context.session.ledgerId(), id->text());
            // A deleted entry loses its ID too, so that no later command acts on it; one that could
            // not be deleted keeps its line for another try.
            if (m_context.db.RunQuery(sql) == QLatin1String("OK")) {
                ui->Lst->item(row)->setText(QString());
                id->setText(QString());
            } else {
                ++kept;
            }
            YieldEvents();
            // Each entry is deleted whole or not at all; a closed window ends the batch there.
            if (stopRequested())
                break;
        }
    }
    setBusy(false);
    if (stopRequested())
        return;

    QString done = QStringLiteral("批量删除完成！");
    if (kept > 0)
        done +=
            QStringLiteral("\n有 ") + QString::number(kept) + QStringLiteral(" 条账目未能删除，请稍后重试。");
    dialogs.inform(done);
}

} // namespace lanzhou
