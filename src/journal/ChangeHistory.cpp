#include "ChangeHistory.h"

#include "ui_ChangeHistory.h"

#include "Clock.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EntryDeletion.h"
#include "EventLoop.h"
#include "HistoryLines.h"
#include "HistoryQuery.h"
#include "Session.h"
#include "TextUtils.h"
#include "Tombstones.h"
#include "WindowRules.h"

namespace lanzhou {

namespace {

const QString failed = QStringLiteral("连接服务器失败，请重试！");

} // namespace

ChangeHistory::ChangeHistory(const AppContext& context, QWidget* parent)
    : ListWindow(parent), ui(std::make_unique<Ui::ChangeHistory>()), m_context(context),
      m_grid(TextGrid::listFont())
{
    ui->setupUi(this);
    setWindowTitle(QStringLiteral("变更记录"));
    PrepareLineList(ui->Lst);
    ui->Lst2->hide();
    ui->CmdWait->hide();

    m_start = {ui->Cmb_0, ui->Cmb_1, ui->Cmb_2, ui->Cmb_3, ui->Cmb_4};
    m_end = {ui->Cmb2_0, ui->Cmb2_1, ui->Cmb2_2, ui->Cmb2_3, ui->Cmb2_4};
    fillFilters();
    ClampDayOnChange(m_start);
    ClampDayOnChange(m_end);
    connect(ui->ChkAll, &QCheckBox::toggled, this, [this](bool all) {
        for (const PeriodLists* lists : {&m_start, &m_end})
            for (QComboBox* list : *lists)
                list->setEnabled(!all);
    });

    m_cmd = {ui->Cmd_0, ui->Cmd_1, ui->Cmd_2};
    for (int i = 0; i < int(m_cmd.size()); ++i)
        connect(m_cmd[i], &QPushButton::clicked, this, [this, i] { runCommand(i); });
    connect(ui->Lst, &QListWidget::currentRowChanged, this, &ChangeHistory::offerRestore);
    connect(ui->Lst, &QListWidget::itemSelectionChanged, this, &ChangeHistory::offerRestore);
    offerRestore();
}

// Out of line, where the form's class is complete.
ChangeHistory::~ChangeHistory() = default;

void ChangeHistory::fillFilters()
{
    const Session& session = m_context.session;
    ui->LabItm->setText(session.itemLabel() + QStringLiteral("："));
    for (QComboBox* names : {ui->CmbUsr, ui->CmbItm}) {
        names->addItem(QString());
        TakeTypedTextAsIs(names);
    }
    ui->CmbUsr->addItems(session.operators());
    ui->CmbItm->addItems(session.items());

    // Removals from the first of the month 00:00 to today 23:59, by the server's date.
    const QDate today = ParseDate(session.serverDateText, m_context.clock.today());
    FillPeriodLists(m_start, today.year());
    FillPeriodLists(m_end, today.year());
    SelectPeriod(m_start, today.year(), today.month(), 1, 0, 0);
    SelectPeriod(m_end, today.year(), today.month(), today.day(), 23, 59);
}

HistoryFilter ChangeHistory::currentFilter() const
{
    HistoryFilter filter;
    filter.ledgerId = m_context.session.ledgerId();
    filter.everything = ui->ChkAll->isChecked();
    filter.periodStart = PeriodText(m_start);
    filter.periodEnd = PeriodText(m_end);
    filter.operatorText = ui->CmbUsr->currentText();
    filter.itemText = ui->CmbItm->currentText();
    filter.serverKind = m_context.db.config().kind;
    return filter;
}

void ChangeHistory::setBusy(bool busy, const QString& caption)
{
    showBusy(busy, ui->CmdWait, m_cmd, caption);
    offerRestore();
}

void ChangeHistory::offerRestore()
{
    const int row = ui->Lst->currentRow();
    const bool restorable =
        row >= 0 && ui->Lst->item(row)->isSelected() && !ui->Lst2->item(row)->text().isEmpty();
    m_cmd[Restore]->setEnabled(!isBusy() && restorable);
}

void ChangeHistory::runCommand(int index)
{
    if (isBusy())
        return;
    switch (index) {
    case Query:
        runQuery();
        break;
    case Restore:
        if (RequireRight(m_context, Right::LateEntry))
            restoreSelected();
        break;
    case Close:
        close();
        break;
    default:
        break;
    }
}

void ChangeHistory::runQuery()
{
    const HistoryFilter filter = currentFilter();
    m_lastStatement = TombstoneListStatement(filter);
    setBusy(true, QStringLiteral("正在读取数据，请稍候……"));
    YieldEvents();
    const std::optional<QList<RemovedEntry>> removed =
        stopRequested() ? std::nullopt : ReadHistory(m_context.db, filter);
    setBusy(false);
    if (stopRequested())
        return;
    // The listing stays as it was, for a retry.
    if (!removed) {
        m_context.dialogs.inform(failed, QStringLiteral("提示"));
        return;
    }
    const Session& session = m_context.session;
    HistoryLines lines(m_grid, session.itemLabel(), session.quantityLabel());
    if (removed->isEmpty()) {
        lines.addNote(filter.everything ? QStringLiteral("没有删除或修改的记录。")
                                        : QStringLiteral("该时段内没有删除或修改的记录。"));
    } else {
        lines.addHeading();
        lines.addRule();
        for (const RemovedEntry& entry : *removed)
            lines.addRemoval(entry);
        lines.addRule();
    }
    showLines(lines);
}

void ChangeHistory::showLines(const HistoryLines& lines)
{
    ui->Lst->clear();
    ui->Lst2->clear();
    AddDrawnLines(ui->Lst, m_grid, lines.lines());
    ui->Lst2->addItems(lines.ids());
    for (int row = 0; row < ui->Lst2->count(); ++row)
        ui->Lst2->item(row)->setData(Qt::UserRole, lines.tombstones().at(row));
    offerRestore();
}

void ChangeHistory::restoreSelected()
{
    const int row = ui->Lst->currentRow();
    if (!m_cmd[Restore]->isEnabled())
        return;
    const QString id = ui->Lst2->item(row)->text();
    const QString tombstone = ui->Lst2->item(row)->data(Qt::UserRole).toString();
    Dialogs& dialogs = m_context.dialogs;
    Database& db = m_context.db;

    // Twins of a shared ID went with one removal and come back with it.
    setBusy(true);
    const QString size = db.RunScalar(RemovalSizeStatement(tombstone, id));
    setBusy(false);
    if (size.isEmpty()) {
        dialogs.inform(failed, QStringLiteral("提示"));
        return;
    }
    if (NumericValue(size) <= 0) {
        dialogs.inform(QStringLiteral("要恢复的记录已经不在了，请重新【查询】！"));
        return;
    }
    if (!dialogs.askYesNo(QStringLiteral("真的要恢复这次删除的 ") + size + QStringLiteral(" 条记录吗？"),
                          QString(), DialogIcon::Question, DialogAnswer::No))
        return;

    Session& session = m_context.session;
    setBusy(true);
    const QString restoredTombstone =
        RestoredTombstone(tombstone, session.operatorName(), CurrentStamp(m_context));
    const QString done =
        db.RunTransaction(RestoreStatements(session.ledgerId(), tombstone, id, restoredTombstone));
    setBusy(false);
    if (done != QLatin1String("OK")) {
        dialogs.inform(failed, QStringLiteral("提示"));
        return;
    }
    session.journalRefreshMarker = id;
    emit restored();
    runQuery();
    if (row < ui->Lst->count())
        ui->Lst->setCurrentRow(row);
}

} // namespace lanzhou
