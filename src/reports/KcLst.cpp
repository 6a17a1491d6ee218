#include "KcLst.h"

#include "ui_KcLst.h"

#include "BalanceLines.h"
#include "BalanceQuery.h"
#include "Clock.h"
#include "CsvExport.h"
#include "Database.h"
#include "DateUtils.h"
#include "Dialogs.h"
#include "EventLoop.h"
#include "JournalOpener.h"
#include "LedgerItems.h"
#include "ReportItems.h"
#include "Rights.h"
#include "Session.h"
#include "TextUtils.h"
#include "TrendChart.h"
#include "WaitCursor.h"
#include "WindowRules.h"

#include <optional>

namespace lanzhou {

namespace {

const QChar bar(0x2502);

} // namespace

KcLst::KcLst(const AppContext& context, JournalOpener& journal, QWidget* parent)
    : ReportWindow(context, parent), ui(std::make_unique<Ui::KcLst>()), m_journal(journal),
      m_grid(TextGrid::listFont()), m_sortClause(QStringLiteral(" order by Item "))
{
    ui->setupUi(this);
    const Session& session = m_context.session;
    setWindowTitle(session.itemLabel() + session.quantityLabel() + QStringLiteral("表"));
    ui->Lab2->setText(session.itemLabel() + QStringLiteral("："));
    FillReportItems(ui->Cmb, m_context);
    TakeTypedTextAsIs(ui->Cmb);
    ui->Txt->setText(QStringLiteral("0"));
    ui->Lst->setFont(TextGrid::listFont());
    ui->CmdWait->hide();

    setCommandButtons({ui->Cmd_0, ui->Cmd_1, ui->Cmd_2});
    // The head names the columns, not an item.
    connect(ui->Lst, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* line) {
        if (!isBusy() && ui->Lst->row(line) >= BalanceLines::headCount)
            drillDown(line->text());
    });
    connect(ui->CmdChart, &QPushButton::clicked, this, [this] {
        if (!isBusy())
            OpenTrendChart(m_context, Right::BalanceList,
                           SelectedListedItem(ui->Lst, BalanceLines::headCount, ui->Cmb), this);
    });
    drawHead();
}

// Out of line, where the form's class is complete.
KcLst::~KcLst() = default;

void KcLst::setBusy(bool busy)
{
    markBusy(busy);
    ui->CmdWait->setText(busy ? QStringLiteral("正在读取数据，请稍候……") : QString());
    ui->CmdWait->setVisible(busy);
    for (QPushButton* button : m_cmd)
        button->setEnabled(!busy);
    m_cmd[Export]->setEnabled(!busy && hasRows());
}

bool KcLst::hasRows() const
{
    return ui->Lst->count() > BalanceLines::headCount;
}

void KcLst::drawHead()
{
    ui->Lst->clear();
    ui->Lst->addItems(
        BalanceLines::head(m_grid, m_context.session.itemLabel(), m_context.session.quantityLabel()));
    m_cmd[Export]->setEnabled(false);
}

double KcLst::readThreshold()
{
    const QString typed = ui->Txt->text();
    if (typed.isEmpty())
        return noQuantityCondition;
    const double threshold = NumericValue(typed);
    ui->Txt->setText(FormatQuantity(threshold));
    return threshold;
}

void KcLst::runReport()
{
    const Session& session = m_context.session;
    Dialogs& dialogs = m_context.dialogs;
    if (ui->Cmb->count() == 0) {
        dialogs.inform(QStringLiteral("这个账本还没有录入任何记录，不能进行报表统计！"));
        return;
    }
    const double threshold = readThreshold();
    QString item = CleanInput(ui->Cmb->currentText());
    if (item == AllItemsEntry(session.itemLabel()))
        item.clear();
    m_lastStatement = BalanceStatement(session.ledgerId(), item, ui->CmbGX1->currentIndex() == 1,
                                       m_sortClause, m_context.db.config().kind);

    setBusy(true);
    std::optional<WaitCursor> hourglass(std::in_place);
    YieldEvents();
    const bool read = !m_context.db.RunQuery(m_lastStatement).isEmpty();
    hourglass.reset();
    setBusy(false);
    if (stopRequested())
        return;
    if (!read) {
        // The list the operator saw stays, so that a retry is one click away.
        dialogs.inform(QStringLiteral("连接服务器失败，请重试！"), QStringLiteral("提示"));
        return;
    }

    drawHead();
    const ResultGrid& rows = m_context.db.grid();
    const auto relation = QuantityRelation(ui->CmbGX2->currentIndex());
    QStringList lines;
    double sum = 0;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        const QString name = rows.cell(i, 0);
        const double total = NumericValue(rows.cell(i, 1));
        if (name.isEmpty() || !PassesQuantityCondition(total, relation, threshold))
            continue;
        lines.append(BalanceLines::row(m_grid, name, total));
        sum += total;
    }
    if (lines.isEmpty()) {
        dialogs.inform(QStringLiteral("没有符合条件的数据！"));
        return;
    }
    ui->Lst->addItems(lines + BalanceLines::closing(m_grid, sum));
    m_cmd[Export]->setEnabled(true);
}

void KcLst::exportReport()
{
    if (!hasRows()) {
        m_context.dialogs.inform(QStringLiteral("请先【统计】出相关数据，再进行Excel导出操作！"));
        return;
    }
    const QString path = AskExportFileName(m_context, windowTitle());
    if (path.isEmpty())
        return;
    CsvFile file(path);
    // The closing lines stay out of the file.
    for (int i = 0; i < ui->Lst->count() - BalanceLines::closingCount; ++i) {
        const QString line = ui->Lst->item(i)->text();
        if (line.contains(bar))
            file.writeLine(CsvLine(line, true));
    }
    ReportExport(m_context, path, file.finish());
}

void KcLst::drillDown(const QString& line)
{
    const QString item = ListedItemOfLine(ui->Cmb, line);
    if (item.isEmpty())
        return;
    const QString lastEntry = m_context.db.RunScalar(LastEntryStatement(m_context.session.ledgerId(), item));
    // From the first of January of the year of the last entry; the end of the period stays.
    const QDate last = ParseDate(lastEntry, m_context.clock.today());
    m_journal.drillDown(
        item, {QString::number(last.year()), QStringLiteral("01"), QStringLiteral("01"), {}, {}}, {});
}

} // namespace lanzhou
