#include "MxLst.h"

#include "ui_MxLst.h"

#include "Clock.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "JournalLines.h"
#include "JournalQuery.h"
#include "JournalRights.h"
#include "LedgerItems.h"
#include "Session.h"
#include "TextUtils.h"
#include "TrendChart.h"
#include "WaitCursor.h"
#include "WindowRules.h"

#include <optional>

namespace lanzhou {

MxLst::MxLst(const AppContext& context, QWidget* parent)
    : ListWindow(parent), ui(std::make_unique<Ui::MxLst>()), m_context(context), m_grid(TextGrid::listFont())
{
    ui->setupUi(this);
    setWindowTitle(m_context.session.itemLabel() + QStringLiteral("流水账"));
    // Lines keep their whole text, the remark included; the list scrolls sideways to their end.
    PrepareLineList(ui->Lst);
    ui->Lst2->hide();
    ui->CmdWait->hide();

    m_start = {ui->Cmb_0, ui->Cmb_1, ui->Cmb_2, ui->Cmb_3, ui->Cmb_4};
    m_end = {ui->Cmb2_0, ui->Cmb2_1, ui->Cmb2_2, ui->Cmb2_3, ui->Cmb2_4};
    fillFilters();
    TakeTypedTextAsIs(ui->CmbItm);
    ClampDayOnChange(m_start);
    ClampDayOnChange(m_end);

    m_cmd[JournalCmd::Query] = ui->Cmd_0;
    m_cmd[JournalCmd::Export] = ui->Cmd_1;
    m_cmd[JournalCmd::Close] = ui->Cmd_2;
    m_cmd[JournalCmd::LateEntry] = ui->Cmd_3;
    m_cmd[JournalCmd::Modify] = ui->Cmd_4;
    m_cmd[JournalCmd::DeleteOne] = ui->Cmd_5;
    m_cmd[JournalCmd::BulkDelete] = ui->Cmd_6;
    m_cmd[JournalCmd::History] = ui->Cmd_7;
    for (int i = 0; i < int(m_cmd.size()); ++i) {
        connect(m_cmd[i], &QPushButton::clicked, this, [this, i] { runCommand(i); });
        // Eight commands share one row: on a narrow screen a button gives up its padding, not its text.
        m_cmd[i]->setMinimumWidth(m_cmd[i]->fontMetrics().horizontalAdvance(m_cmd[i]->text()) + 16);
    }
    connect(ui->Lst, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        if (!ui->Lst2->item(ui->Lst->row(item))->text().isEmpty())
            runCommand(JournalCmd::Modify);
    });
    connect(ui->CmdChart, &QPushButton::clicked, this, [this] {
        if (!isBusy())
            OpenTrendChart(m_context, Right::Journal, chartItem(), this);
    });
    connect(ui->Lst, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            m_trackedRow = row;
    });
}

// Out of line, where the form's class is complete.
MxLst::~MxLst() = default;

void MxLst::fillFilters()
{
    Session& session = m_context.session;
    ui->LabItm->setText(session.itemLabel() + QStringLiteral("："));

    // The items as the server knows them now; the session's list when the server cannot say.
    const QStringList items = ReadLedgerItems(m_context.db, session.ledgerId()).value_or(session.items());
    // A ledger without items gets an empty list: there is nothing to list yet.
    if (!items.isEmpty()) {
        ui->CmbItm->addItem(AllItemsEntry(session.itemLabel()));
        ui->CmbItm->addItems(items);
    }
    ui->CmbItm->setCurrentIndex(items.isEmpty() ? -1 : 0);

    ui->CmbGX1->addItems({QStringLiteral("等于"), QStringLiteral("包含")});
    ui->CmbSL->addItems({QStringLiteral("增减"), QStringLiteral("增加"), QStringLiteral("减少")});
    ui->CmbUsr->addItem(QString());
    ui->CmbUsr->addItems(session.operators());
    ui->CmbSort->addItems({session.itemLabel(), QStringLiteral("时间"), QStringLiteral("数值")});

    const QDate today = ParseDate(session.serverDateText, m_context.clock.today());
    FillPeriodLists(m_start, today.year());
    FillPeriodLists(m_end, today.year());
    SelectPeriod(m_start, today.year(), today.month(), today.day(), 0, 0);
    SelectPeriod(m_end, today.year(), today.month(), today.day(), 23, 59);
}

void MxLst::setItemCondition(const QString& item)
{
    ui->CmbItm->setEditText(item);
}

void MxLst::choosePeriod(const PeriodChoice& start, const PeriodChoice& end)
{
    ChoosePeriod(m_start, start);
    ChoosePeriod(m_end, end);
}

JournalFilter MxLst::currentFilter() const
{
    JournalFilter filter;
    filter.ledgerId = m_context.session.ledgerId();
    filter.serverKind = m_context.db.config().kind;
    filter.periodStart = PeriodText(m_start);
    filter.periodEnd = PeriodText(m_end);
    filter.itemText = ui->CmbItm->currentText();
    filter.allItemsEntry = AllItemsEntry(m_context.session.itemLabel());
    filter.itemContains = ui->CmbGX1->currentIndex() == 1;
    filter.signIndex = ui->CmbSL->currentIndex();
    filter.remarkText = ui->TxtBZ->text();
    filter.operatorName = ui->CmbUsr->currentText();
    filter.sortIndex = ui->CmbSort->currentIndex();
    return filter;
}

void MxLst::setBusy(bool busy, const QString& caption)
{
    showBusy(busy, ui->CmdWait, m_cmd, caption);
}

void MxLst::runCommand(int index)
{
    // A double-click reaches here too while a listing is being built.
    if (isBusy())
        return;
    const std::optional<Right> right = JournalCommandRight(index);
    if (right && !RequireRight(m_context, *right))
        return;
    switch (index) {
    case JournalCmd::Query:
        runQuery();
        break;
    case JournalCmd::Export:
        exportListing();
        break;
    case JournalCmd::Close:
        close();
        break;
    case JournalCmd::LateEntry:
    case JournalCmd::Modify:
        openEditor(index);
        break;
    case JournalCmd::DeleteOne:
        deleteSelected();
        break;
    case JournalCmd::BulkDelete:
        deleteListing();
        break;
    case JournalCmd::History:
        openHistory();
        break;
    default:
        break;
    }
}

void MxLst::runQuery()
{
    Dialogs& dialogs = m_context.dialogs;
    if (ui->CmbItm->count() == 0) {
        dialogs.inform(QStringLiteral("这个账本还没有录入任何记录，不能进行报表统计！"));
        return;
    }
    const JournalFilter filter = currentFilter();
    const JournalStatement statement = BuildJournalStatement(filter);
    m_lastStatement = statement.sql;

    setBusy(true, QStringLiteral("正在读取数据，请稍候……"));
    std::optional<WaitCursor> hourglass(std::in_place);
    YieldEvents();
    if (stopRequested()) {
        setBusy(false);
        return;
    }
    Database& db = m_context.db;
    const QString count = db.RunQuery(statement.sql);
    if (NumericValue(count) <= 0) {
        hourglass.reset();
        setBusy(false);
        // The old listing goes in both cases: no later command may act on lines that were not read.
        clearListing();
        dialogs.inform(QStringLiteral("没有符合条件的数据！"));
        return;
    }

    // A copy, so that a read by another window while this one yields cannot change the rows.
    const ResultGrid rows = db.grid();
    clearListing();
    JournalLines lines(m_grid, m_context.session.itemLabel(), m_context.session.quantityLabel(),
                       statement.balanceMode);
    // The caption follows every row; the window repaints it as the pace allows.
    PacedYield paced;
    const bool answered =
        FillJournal(lines, rows, db, filter.ledgerId, filter.periodStart, [&](const QString& caption) {
            ui->CmdWait->setText(caption);
            paced();
            return !stopRequested();
        });
    hourglass.reset();
    setBusy(false);
    if (stopRequested())
        return;
    // With the server gone during the opening balances, every balance after them would be wrong.
    if (!answered) {
        dialogs.inform(QStringLiteral("连接服务器失败，请重试！"));
        return;
    }
    showListing(lines);
}

void MxLst::clearListing()
{
    ui->Lst->clear();
    ui->Lst2->clear();
    m_lineItems.clear();
}

void MxLst::showListing(const JournalLines& lines)
{
    AddDrawnLines(ui->Lst, m_grid, lines.lines());
    ui->Lst2->addItems(lines.ids());
    m_lineItems = lines.items();
}

QString MxLst::selectedEntryId() const
{
    const int row = ui->Lst->currentRow();
    if (row < 0 || !ui->Lst->item(row)->isSelected())
        return QString();
    return ui->Lst2->item(row)->text();
}

QString MxLst::chartItem() const
{
    if (!selectedEntryId().isEmpty())
        return m_lineItems.value(ui->Lst->currentRow());
    const QString condition = CleanInput(ui->CmbItm->currentText());
    if (ui->CmbGX1->currentIndex() == 0 && condition != AllItemsEntry(m_context.session.itemLabel()))
        return condition;
    return QString();
}

} // namespace lanzhou
