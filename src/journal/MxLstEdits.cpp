#include "MxLst.h"

#include "ui_MxLst.h"

#include "ChangeHistory.h"
#include "Dialogs.h"
#include "EntryDeletion.h"
#include "JournalRights.h"
#include "MxEd.h"
#include "Session.h"
#include "WindowRules.h"

#include <QTimer>

// The journal's edits: the entry editor for late entries and modifications, single deletes, and the
// change history, where removed entries are restored.

namespace lanzhou {

void MxLst::openEditor(int command)
{
    QString entryId;
    if (command == JournalCmd::Modify) {
        entryId = selectedEntryId();
        if (entryId.isEmpty()) {
            m_context.dialogs.inform(QStringLiteral("请首先选择您要修改的记录行！"));
            return;
        }
    }
    QStringList items;
    for (int i = 1; i < ui->CmbItm->count(); ++i)
        items.append(ui->CmbItm->itemText(i));

    auto* editor = new MxEd(
        m_context, command == JournalCmd::Modify ? MxEd::Use::Modify : MxEd::Use::LateEntry, items, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    // Queued: the editor finishes inside its own handlers (Enter in the remark box saves and closes
    // it), and the refresh yields to the event loop, where the closed editor is deleted.
    connect(editor, &QDialog::finished, this, &MxLst::refreshIfMarked, Qt::QueuedConnection);
    editor->open();
    if (command == JournalCmd::Modify)
        editor->loadEntry(entryId);
}

void MxLst::deleteSelected()
{
    const QString entryId = selectedEntryId();
    if (entryId.isEmpty()) {
        m_context.dialogs.inform(QStringLiteral("请首先选择您要删除的记录行！"));
        return;
    }
    if (!ConfirmEntryDeletion(m_context))
        return;
    setBusy(true);
    const bool deleted = WriteDeleteTombstone(m_context, entryId);
    setBusy(false);
    if (deleted)
        refreshAfterEdit();
}

void MxLst::openHistory()
{
    if (!m_history) {
        m_history = new ChangeHistory(m_context, this);
        m_history->setWindowFlag(Qt::Window);
        m_history->setAttribute(Qt::WA_DeleteOnClose);
        // Queued, like the editor's end: the journal's run yields to the event loop.
        connect(m_history, &ChangeHistory::restored, this, &MxLst::refreshIfMarked, Qt::QueuedConnection);
    }
    BringForward(m_history);
}

void MxLst::refreshIfMarked()
{
    if (m_context.session.journalRefreshMarker.isEmpty())
        return;
    // A listing under way (the change history is a window of its own) is run again once it is done.
    if (isBusy()) {
        QTimer::singleShot(100, this, &MxLst::refreshIfMarked);
        return;
    }
    m_context.session.journalRefreshMarker.clear();
    // Without a listing there is nothing to run again.
    if (ui->Lst2->count() > 0)
        refreshAfterEdit();
}

void MxLst::refreshAfterEdit()
{
    const int row = m_trackedRow;
    runQuery();
    if (row >= 0 && ui->Lst->count() > 0)
        ui->Lst->setCurrentRow(qMin(row, ui->Lst->count() - 1));
}

} // namespace lanzhou
