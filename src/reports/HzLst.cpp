#include "HzLst.h"

#include "ui_HzLst.h"

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
#include "SummaryFigures.h"
#include "TextUtils.h"
#include "TrendChart.h"
#include "WaitCursor.h"
#include "WindowRules.h"

#include <QGuiApplication>

#include <optional>

namespace lanzhou {

namespace {

// Column widths in twips: the item, then opening, increase, decrease and closing.
constexpr int itemWidth = 3000;
constexpr int figureWidth = 1000;
const QList<int> columns = {itemWidth, figureWidth, figureWidth, figureWidth, figureWidth};
// The top rule, the column titles and the rule under them.
constexpr int headLines = 3;

const QChar rule(0x2500);
const QChar bar(0x2502);

} // namespace

HzLst::HzLst(const AppContext& context, JournalOpener& journal, QWidget* parent)
    : ReportWindow(context, parent), ui(std::make_unique<Ui::HzLst>()), m_journal(journal),
      m_grid(TextGrid::listFont())
{
    ui->setupUi(this);
    setWindowTitle(m_context.session.itemLabel() + QStringLiteral("汇总表"));
    ui->Lst->setFont(TextGrid::listFont());
    ui->Lst->setUniformItemSizes(true);
    ui->Lst->setTextElideMode(Qt::ElideNone);
    ui->CmdWait->hide();

    m_start = {ui->Cmb_0, ui->Cmb_1, ui->Cmb_2, ui->Cmb_3, ui->Cmb_4};
    m_end = {ui->Cmb2_0, ui->Cmb2_1, ui->Cmb2_2, ui->Cmb2_3, ui->Cmb2_4};
    fillControls();
    TakeTypedTextAsIs(ui->CmbItm);
    ClampDayOnChange(m_start);
    ClampDayOnChange(m_end);
    drawHead();

    setCommandButtons({ui->Cmd_0, ui->Cmd_1, ui->Cmd_2});
    connect(ui->Lst, &QListWidget::currentRowChanged, this, &HzLst::stepOffRule);
    connect(ui->Lst, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { drillDown(ui->Lst->row(item)); });
    connect(ui->CmdChart, &QPushButton::clicked, this, [this] {
        if (!isBusy())
            OpenTrendChart(m_context, Right::Summary, SelectedListedItem(ui->Lst, headLines, ui->CmbItm),
                           this);
    });
}

// Out of line, where the form's class is complete.
HzLst::~HzLst() = default;

void HzLst::fillControls()
{
    const Session& session = m_context.session;
    ui->LabItm->setText(session.itemLabel() + QStringLiteral("："));
    FillReportItems(ui->CmbItm, m_context);
    ui->CmbGX1->addItems({QStringLiteral("等于"), QStringLiteral("字符包含")});

    // From the first of the month 00:00 to today 23:59, by the server's date.
    const QDate today = ParseDate(session.serverDateText, m_context.clock.today());
    FillPeriodLists(m_start, today.year());
    FillPeriodLists(m_end, today.year());
    SelectPeriod(m_start, today.year(), today.month(), 1, 0, 0);
    SelectPeriod(m_end, today.year(), today.month(), today.day(), 23, 59);
}

void HzLst::drawHead()
{
    ui->Lst->clear();
    ui->Cmd_1->setEnabled(false);
    m_totals = {};
    const QString& quantity = m_context.session.quantityLabel();
    addLine(m_grid.ruleLine(TextGrid::Top, columns));
    addLine(m_grid.textCell(QStringLiteral("  ") + m_context.session.itemLabel(), itemWidth) +
            m_grid.textCell(QStringLiteral("  期初") + quantity, figureWidth) +
            m_grid.textCell(QStringLiteral("  增加"), figureWidth) +
            m_grid.textCell(QStringLiteral("  减少"), figureWidth) +
            m_grid.textCell(QStringLiteral("  期末") + quantity, figureWidth));
    addLine(m_grid.ruleLine(TextGrid::Middle, columns));
}

void HzLst::addLine(const QString& line)
{
    ui->Lst->addItem(line);
}

void HzLst::addFigures(const ItemFigures& figures)
{
    const std::array<double, 4> shown = {figures.opening, figures.increase, figures.decrease,
                                         figures.closing()};
    QString line = m_grid.textCell(figures.item, itemWidth);
    for (size_t i = 0; i < shown.size(); ++i) {
        m_totals[i] += shown[i];
        line += m_grid.numberCell(shown[i], figureWidth);
    }
    addLine(line);
    addLine(m_grid.ruleLine(TextGrid::Middle, columns));
    ui->Lst->setCurrentRow(ui->Lst->count() - 1);
}

void HzLst::setWaiting(const QString& caption)
{
    markBusy(true);
    ui->CmdWait->setText(caption);
    ui->CmdWait->show();
    for (QPushButton* button : m_cmd)
        button->setEnabled(false);
}

void HzLst::endWaiting()
{
    markBusy(false);
    ui->CmdWait->hide();
    ui->Cmd_0->setEnabled(true);
    ui->Cmd_2->setEnabled(true);
}

void HzLst::runReport()
{
    Dialogs& dialogs = m_context.dialogs;
    const QString& itemLabel = m_context.session.itemLabel();
    if (ui->CmbItm->count() == 0) {
        dialogs.inform(QStringLiteral("这个账本还没有录入任何记录，不能进行报表统计！"));
        return;
    }
    const QString start = PeriodText(m_start);
    const QString end = PeriodText(m_end);
    const bool exportable = ui->Cmd_1->isEnabled();
    setWaiting(QStringLiteral("正在读取数据，请稍候……"));
    YieldEvents();

    QString condition = CleanInput(ui->CmbItm->currentText());
    if (condition == AllItemsEntry(itemLabel))
        condition.clear();
    QStringList listed;
    for (int i = firstListedItem; i < ui->CmbItm->count(); ++i)
        listed.append(ui->CmbItm->itemText(i));
    const bool contains = ui->CmbGX1->currentIndex() == 1;
    const QStringList selected = SelectSummaryItems(listed, condition, contains);
    if (selected.isEmpty()) {
        endWaiting();
        // The last report stays as it was, and so does its export.
        ui->Cmd_1->setEnabled(exportable);
        dialogs.inform(
            contains ? QStringLiteral("账本中不存在字符包含“") + condition + QStringLiteral("”的") + itemLabel
                     : QStringLiteral("账本中不存在“") + condition + QStringLiteral("”这个") + itemLabel);
        return;
    }

    setWaiting(QStringLiteral("正在提交汇总表请求 ……"));
    std::optional<WaitCursor> hourglass(std::in_place);
    YieldEvents();
    drawHead();
    const bool hideZeroSums = ui->Chk->isChecked();
    int shownRows = 0;
    PacedYield paced;
    const bool answered = ReadSummaryFigures(
        m_context.db, m_context.session.ledgerId(), selected, start, end, [&](const ItemFigures& figures) {
            ui->CmdWait->setText(QStringLiteral("正在读取 ") + figures.item + QStringLiteral(" ……"));
            if (!hideZeroSums || !figures.sumsToZero()) {
                addFigures(figures);
                ++shownRows;
            }
            paced();
            return !stopRequested();
        });
    hourglass.reset();
    endWaiting();
    if (stopRequested())
        return;

    // A server gone in the middle would leave the rest as zeros: no report rather than a wrong one.
    if (!answered) {
        drawHead();
        dialogs.inform(QStringLiteral("连接服务器失败，请重试！"));
        return;
    }
    if (shownRows == 0) {
        addLine(m_grid.ruleLine(TextGrid::Middle, columns));
        addLine(m_grid.blankCells(columns));
        dialogs.inform(QStringLiteral("没有符合条件的") + itemLabel + QStringLiteral("！"));
        return;
    }
    QString totals = m_grid.textCell(QStringLiteral("      合计："), itemWidth);
    for (const double total : m_totals)
        totals += m_grid.numberCell(total, figureWidth);
    addLine(totals);
    addLine(m_grid.ruleLine(TextGrid::Bottom, columns));
    ui->Cmd_1->setEnabled(true);
}

void HzLst::exportReport()
{
    const QString path = AskExportFileName(m_context, windowTitle());
    if (path.isEmpty())
        return;
    CsvFile file(path);
    // The head line, then every line with cells; the top rule and the rules between lines are left out.
    file.writeLine(CsvLine(ui->Lst->item(1)->text(), false));
    for (int row = 2; row < ui->Lst->count(); ++row) {
        const QString line = ui->Lst->item(row)->text();
        if (!line.contains(bar))
            continue;
        ui->Lst->setCurrentRow(row);
        YieldEvents();
        file.writeLine(CsvLine(line, false));
    }
    ReportExport(m_context, path, file.finish());
}

void HzLst::stepOffRule(int row)
{
    const int cameFrom = std::exchange(m_lastRow, row);
    if (row < 0 || !ui->Lst->item(row)->text().startsWith(rule))
        return;
    // A click moves to the next line; a key moving up moves on up, so that it can pass the rule.
    const bool byMouse = QGuiApplication::mouseButtons() != Qt::NoButton;
    const bool upwards = !byMouse && row < cameFrom && row > 0;
    const bool atEnd = row + 1 >= ui->Lst->count();
    const int neighbour = upwards || atEnd ? row - 1 : row + 1;
    if (neighbour >= 0)
        ui->Lst->setCurrentRow(neighbour);
}

void HzLst::drillDown(int row)
{
    // The head names the columns, not an item.
    if (row < headLines)
        return;
    const QString listed = ListedItemOfLine(ui->CmbItm, ui->Lst->item(row)->text());
    if (listed.isEmpty())
        return;
    m_journal.drillDown(listed, ChosenPeriod(m_start), ChosenPeriod(m_end));
}

} // namespace lanzhou
