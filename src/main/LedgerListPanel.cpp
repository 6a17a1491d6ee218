#include "LedgerListPanel.h"

#include "AppConstants.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "Session.h"
#include "Settings.h"
#include "ZbTyp.h"

#include <QComboBox>
#include <QPushButton>

namespace lanzhou {

namespace {
const QString kPickArmed = QStringLiteral("CmbZbNm事件增加账套");
}

LedgerListPanel::LedgerListPanel(const AppContext& context, const Widgets& widgets, QObject* parent)
    : QObject(parent), m_ctx(context), m_w(widgets), m_pickGuard(kPickArmed)
{
    connect(m_w.names, &QComboBox::activated, this, &LedgerListPanel::onPicked);
    // The hidden ID list always follows the name list.
    connect(m_w.names, &QComboBox::currentIndexChanged, m_w.ids, &QComboBox::setCurrentIndex);
    connect(m_w.remove, &QPushButton::clicked, this, &LedgerListPanel::removeLedger);
    connect(&m_ctx.session, &Session::changed, this, &LedgerListPanel::followSessionName);
}

void LedgerListPanel::load()
{
    m_ledgers.load(m_ctx.settings);
    fillCombos();
    select(m_ledgers.indexOfId(m_ctx.settings.read(AppConstants::settingsApp(), QStringLiteral("ZBID"),
                                                   AppConstants::settingsTag())));
}

std::optional<LedgerList::Entry> LedgerListPanel::selected() const
{
    const int index = m_w.names->currentIndex();
    if (index < 0 || index >= m_ledgers.size())
        return std::nullopt;
    return m_ledgers.entries().at(index);
}

void LedgerListPanel::selectId(const QString& id)
{
    select(m_ledgers.indexOfId(id));
}

void LedgerListPanel::fillCombos()
{
    const QString guard = std::exchange(m_pickGuard, QString());
    m_w.names->clear();
    m_w.ids->clear();
    for (const LedgerList::Entry& entry : m_ledgers.entries()) {
        m_w.names->addItem(entry.name);
        m_w.ids->addItem(entry.id);
    }
    m_w.names->addItem(LedgerList::addEntryText());
    m_w.ids->addItem(QString());
    m_w.names->setCurrentIndex(-1);
    m_pickGuard = guard;
}

void LedgerListPanel::select(int index)
{
    const QString guard = std::exchange(m_pickGuard, QString());
    m_w.names->setCurrentIndex(index);
    m_pickGuard = guard;
}

void LedgerListPanel::onPicked(int index)
{
    if (m_pickGuard != kPickArmed || index != m_ledgers.size())
        return;
    m_pickGuard.clear();
    m_w.postButton->setFocus();
    addLedger();
    m_pickGuard = kPickArmed;
}

void LedgerListPanel::addLedger()
{
    const int before = m_ledgers.size();
    m_ledgers.selected = -1;
    m_ctx.session.modalResult.clear();
    ZbTyp dialog(m_ctx, m_ledgers, ZbTyp::Mode::AddLedger, m_w.window);
    dialog.exec();
    const bool ok = m_ctx.session.modalResult == QLatin1String("OK");
    fillCombos();
    if (!ok || m_ledgers.selected < 0)
        return;
    if (m_ledgers.size() == before) {
        select(m_ledgers.selected);
        return;
    }
    m_ledgers.save(m_ctx.settings);
    const QString name = m_ledgers.entries().at(m_ledgers.selected).name;
    const bool openNow = m_ctx.dialogs.askYesNo(
        QStringLiteral("已经把账本【") + name + QStringLiteral("】加入账本列表框，\n是否现在就打开该账本？"),
        QString(), DialogIcon::Information, DialogAnswer::No);
    select(m_ledgers.selected);
    if (openNow) {
        YieldEvents(6);
        emit openRequested();
    }
}

void LedgerListPanel::removeLedger()
{
    const std::optional<LedgerList::Entry> chosen = selected();
    if (!chosen) {
        m_ctx.dialogs.inform(QStringLiteral("没有账本可删除！"));
        return;
    }
    if (!m_ctx.dialogs.askYesNo(QStringLiteral("真的要删除《") + chosen->name +
                                    QStringLiteral("》这个账本吗？"),
                                QString(), DialogIcon::Question, DialogAnswer::No))
        return;
    const int index = m_w.names->currentIndex();
    m_ledgers.removeAt(index);
    m_ledgers.save(m_ctx.settings);
    m_ctx.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag(),
                         QString());
    fillCombos();
    select(qMax(0, index - 1));
}

// A renamed open ledger keeps its new name in the list of this computer too.
void LedgerListPanel::followSessionName()
{
    const Session& s = m_ctx.session;
    const int index = m_ledgers.indexOfId(s.ledgerId());
    if (index < 0 || s.ledgerName().isEmpty() || m_ledgers.entries().at(index).name == s.ledgerName())
        return;
    m_ledgers.rename(index, s.ledgerName());
    m_ledgers.save(m_ctx.settings);
    const QString guard = std::exchange(m_pickGuard, QString());
    m_w.names->setItemText(index, s.ledgerName());
    m_pickGuard = guard;
}

} // namespace lanzhou
