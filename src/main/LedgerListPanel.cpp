// The local ledger list on the open-ledger panel: names in CmbZbNm, IDs in the hidden CmbZbID,
// the add-entry line last; adding through the ledger window and removing from this computer.
#include "Kuang.h"

#include "ui_Kuang.h"

#include "AppConstants.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "Session.h"
#include "Settings.h"
#include "ZbTyp.h"

namespace lanzhou {

namespace {
const QString kLedgerPickArmed = QStringLiteral("CmbZbNm事件增加账套");
}

void Kuang::armLedgerPick()
{
    m_ledgerPickGuard = kLedgerPickArmed;
}

void Kuang::loadLedgerList()
{
    m_ledgers.load(m_ctx.settings);
    const QString last =
        m_ctx.settings.read(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag());
    fillLedgerCombos();
    selectLedger(m_ledgers.indexOfId(last));
}

void Kuang::fillLedgerCombos()
{
    const QString guard = std::exchange(m_ledgerPickGuard, QString());
    ui->CmbZbNm->clear();
    ui->CmbZbID->clear();
    for (const LedgerList::Entry& entry : m_ledgers.entries()) {
        ui->CmbZbNm->addItem(entry.name);
        ui->CmbZbID->addItem(entry.id);
    }
    ui->CmbZbNm->addItem(LedgerList::addEntryText());
    ui->CmbZbID->addItem(QString());
    ui->CmbZbNm->setCurrentIndex(-1);
    m_ledgerPickGuard = guard;
}

void Kuang::saveLedgerList()
{
    m_ledgers.save(m_ctx.settings);
}

void Kuang::selectLedger(int index)
{
    const QString guard = std::exchange(m_ledgerPickGuard, QString());
    ui->CmbZbNm->setCurrentIndex(index);
    m_ledgerPickGuard = guard;
}

void Kuang::onLedgerPicked(int index)
{
    if (m_ledgerPickGuard != kLedgerPickArmed || index != m_ledgers.size())
        return;
    m_ledgerPickGuard.clear();
    ui->Cmd->setFocus();
    addLedger();
    armLedgerPick();
}

void Kuang::addLedger()
{
    const int before = m_ledgers.size();
    m_ledgers.selected = -1;
    m_ctx.session.modalResult.clear();
    ZbTyp dialog(m_ctx, m_ledgers, ZbTyp::Mode::AddLedger, this);
    dialog.exec();
    const bool ok = m_ctx.session.modalResult == QLatin1String("OK");
    fillLedgerCombos();
    if (!ok || m_ledgers.selected < 0)
        return;
    if (m_ledgers.size() == before) {
        selectLedger(m_ledgers.selected);
        return;
    }
    saveLedgerList();
    const QString name = m_ledgers.entries().at(m_ledgers.selected).name;
    const bool openNow = m_ctx.dialogs.askYesNo(
        QStringLiteral("已经把账本【") + name + QStringLiteral("】加入账本列表框，\n是否现在就打开该账本？"),
        QString(), DialogIcon::Information, DialogAnswer::No);
    selectLedger(m_ledgers.selected);
    if (openNow) {
        YieldEvents(6);
        post();
    }
}

void Kuang::removeLedger()
{
    const int index = ui->CmbZbNm->currentIndex();
    if (index < 0 || index >= m_ledgers.size()) {
        m_ctx.dialogs.inform(QStringLiteral("没有账本可删除！"));
        return;
    }
    const QString name = m_ledgers.entries().at(index).name;
    if (!m_ctx.dialogs.askYesNo(QStringLiteral("真的要删除《") + name + QStringLiteral("》这个账本吗？"),
                                QString(), DialogIcon::Question, DialogAnswer::No))
        return;
    m_ledgers.removeAt(index);
    saveLedgerList();
    m_ctx.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag(),
                         QString());
    fillLedgerCombos();
    selectLedger(qMax(0, index - 1));
}

} // namespace lanzhou
