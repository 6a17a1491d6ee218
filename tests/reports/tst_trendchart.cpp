#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "MxLst.h"
#include "TestContext.h"
#include "TrendChart.h"
#include "WindowDriver.h"

#include <QBarSet>
#include <QChartView>
#include <QDateEdit>
#include <QImageReader>
#include <QLineSeries>
#include <QStackedBarSeries>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

// Ledger L1 (物品, 存量) on 2026-11-15; the chart's default period runs from 2025-12-01. A型螺丝 holds 100
// from before it and moves on four days (a thousand entries of 1 on the 11th), with an entry without a
// quantity; a tombstone, another ledger and another item count nowhere. C型垫圈 holds 4 from before and
// has one entry whose time is not a date.
const QDate today(2026, 11, 15);
const QMap<QDate, double> moves = {
    {QDate(2026, 11, 8), 10}, {QDate(2026, 11, 9), -2.5}, {QDate(2026, 11, 11), 1000}, {today, 7}};

void fillLedger(TestContext& t)
{
    t.openLedger(u"L1"_s, u"五金仓库"_s);
    t.exec(u"insert into Zhang (ZBID,TM,ITEM,SL) values ('L1','2025-06-01 08:00','A型螺丝',100),"
           "('L1','2026-11-08 23:59','A型螺丝',10),('L1','2026-11-09 00:00','A型螺丝',-2.5),"
           "('L1','2026-11-13 10:00','A型螺丝',NULL),"
           "('管理员#L1#2026-11-14 10:00','2026-11-12 10:00','A型螺丝',50),"
           "('L2','2026-11-12 10:00','A型螺丝',1000),('L1','2026-11-12 10:00','B型螺母',3),"
           "('L1','2025-01-01 08:00','C型垫圈',4),('L1','2026-02-30 08:00','C型垫圈',9),"_s +
           QStringList(1000, u"('L1','2026-11-11 12:00','A型螺丝',1)"_s).join(u','));
    // The journal lists it today, as an entry with its ID.
    t.exec(u"insert into Zhang (ZBID,TM,ID,ITEM,SL) values ('L1','2026-11-15 23:59','M1','A型螺丝',7)"_s);
}

// The steps of a chart, each as "balance+increase-decrease".
using Steps = QStringList;
QString stepText(double balance, double increase, double decrease)
{
    return u"%1+%2-%3"_s.arg(balance).arg(increase).arg(0.0 - decrease);
}

// A chart window of one item, shown, read through the real chart's series.
struct Chart
{
    Chart(TestContext& t, const QString& item) : window(t.context(), item), d(&window) { window.show(); }
    void draw(const QDate& start, const QDate& end) const
    {
        d.w<QDateEdit>(u"DtpStart"_s)->setDate(start);
        d.w<QDateEdit>(u"DtpEnd"_s)->setDate(end);
        d.click(u"Cmd_0"_s);
    }
    QChart* chart() const { return d.w<QChartView>(u"ChartView"_s)->chart(); }
    // Step i is the line's point i and the bars' value i.
    Steps steps() const
    {
        const auto* line = qobject_cast<QLineSeries*>(chart()->series().at(1));
        const QList<QBarSet*> bars = qobject_cast<QStackedBarSeries*>(chart()->series().at(0))->barSets();
        Steps shown;
        for (int i = 0; i < line->count(); ++i)
            shown.append(stepText(line->at(i).y(), bars.at(0)->at(i), bars.at(1)->at(i)));
        return shown;
    }

    TrendChart window;
    WindowDriver d;
};

} // namespace

class TestTrendChart : public QObject
{
    Q_OBJECT
private slots:
    // The default period by day ends at the balance list's figure; every day holds the running sum;
    // weeks and months sum the same days.
    void points_data() { addBackendRows(); }
    void points()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        fillLedger(t);
        JournalOpener journal(t.context(), nullptr);
        KcLst balances(t.context(), journal);
        balances.show();
        WindowDriver(&balances).click(u"Cmd_0"_s);
        Chart c(t, u"A型螺丝"_s);
        c.d.click(u"Cmd_0"_s);
        const Steps days = c.steps();
        QCOMPARE(CellTexts(WindowDriver(&balances).lines(u"Lst"_s).at(3)),
                 u"A型螺丝|"_s + days.last().section(u'+', 0, 0) + u'|');
        Steps expected;
        double balance = 100;
        for (QDate day(2025, 12, 1); day <= today; day = day.addDays(1)) {
            const double moved = moves.value(day);
            balance += moved;
            expected.append(stepText(balance, qMax(moved, 0.0), qMin(moved, 0.0)));
        }
        QCOMPARE(days, expected);
        QCOMPARE(c.d.text(u"LabNote"_s), QString());

        c.d.pick(u"CmbStep"_s, u"按周"_s);
        QCOMPARE(c.steps().size(), 50);
        QCOMPARE(c.steps().mid(48), Steps({u"110+10-0"_s, u"1114.5+1007-2.5"_s}));
        c.d.pick(u"CmbStep"_s, u"按月"_s);
        QCOMPARE(c.steps().size(), 12);
        QCOMPARE(c.steps().mid(10), Steps({u"100+0-0"_s, u"1114.5+1017-2.5"_s}));
        QCOMPARE(c.chart()->title(), u"物品：A型螺丝 · 存量走势"_s);
    }

    // An item with nothing in the period draws flat at its opening, past a time that is not a date; a
    // period that ends before it starts and a server that is down leave the chart as it was.
    void refusals_data() { addBackendRows(); }
    void refusals()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        fillLedger(t);
        Chart c(t, u"C型垫圈"_s);
        c.d.click(u"Cmd_0"_s);
        const Steps flat = c.steps();
        QCOMPARE(flat, Steps(350, u"4+0-0"_s));
        QCOMPARE(c.d.text(u"LabNote"_s), u"该时段内没有账目"_s);

        c.draw(today, today.addDays(-1));
        QCOMPARE(t.dialogs.texts(), QStringList{u"开始日期不能晚于结束日期！"_s});
        t.setServerDown(true);
        c.draw(today, today);
        t.setServerDown(false);
        QCOMPARE(t.dialogs.lastText(), u"连接服务器失败，请重试！"_s);
        QCOMPARE(t.dialogs.shown().last().title, u"提示"_s);
        QCOMPARE(c.steps(), flat);
        QCOMPARE(c.d.text(u"LabNote"_s), u"该时段内没有账目"_s);
    }

    // The journal, the summary and the balance list open the chart of the selected line's item (the
    // journal also of its item condition), each under its own right; without an item they refuse.
    void opening_data()
    {
        // An empty rights string grants all; a line is clicked after 统计. The outcome is the dialog
        // shown and the title of the chart opened.
        for (const char* column : {"window", "rights", "line", "condition", "outcome"})
            QTest::addColumn<QString>(column);
        const QString none;
        QTest::newRow("balance list") << u"KcLst"_s << none << u"3"_s << none << u"A型螺丝 趋势图"_s;
        QTest::newRow("summary") << u"HzLst"_s << none << u"5"_s << none << u"B型螺母 趋势图"_s;
        QTest::newRow("journal line") << u"MxLst"_s << none << u"5"_s << none << u"A型螺丝 趋势图"_s;
        QTest::newRow("journal condition")
            << u"MxLst"_s << none << none << u"C型垫圈"_s << u"C型垫圈 趋势图"_s;
        QTest::newRow("no line") << u"KcLst"_s << none << none << none << u"请首先选择一个物品！"_s;
        QTest::newRow("no right") << u"HzLst"_s << u"1111110"_s << u"3"_s << none
                                  << u"对不起，您无此权限！"_s;
    }
    void opening()
    {
        QFETCH(QString, window);
        QFETCH(QString, rights);
        QFETCH(QString, line);
        QFETCH(QString, condition);
        QFETCH(QString, outcome);
        TestContext t;
        fillLedger(t);
        JournalOpener journal(t.context(), nullptr);
        std::unique_ptr<QWidget> opener;
        if (window == u"KcLst"_s)
            opener = std::make_unique<KcLst>(t.context(), journal);
        else if (window == u"HzLst"_s)
            opener = std::make_unique<HzLst>(t.context(), journal);
        else
            opener = std::make_unique<MxLst>(t.context());
        opener->show();
        WindowDriver d(opener.get());
        if (!line.isEmpty()) {
            d.click(u"Cmd_0"_s);
            d.clickLine(u"Lst"_s, line.toInt());
        }
        if (!condition.isEmpty())
            d.type(u"CmbItm"_s, condition);
        t.session.setRights(rights);
        d.click(u"CmdChart"_s);
        const auto* chart = opener->findChild<TrendChart*>();
        QCOMPARE(t.dialogs.lastText() + (chart ? chart->windowTitle() : QString()), outcome);
    }

    // The picture is saved as PNG where the save dialog says, under the export right.
    void savePicture()
    {
        TestContext t;
        fillLedger(t);
        Chart c(t, u"A型螺丝"_s);
        c.draw(QDate(2026, 10, 1), today);
        saveScreenshot(&c.window, u"trendchart.png"_s);
        t.session.setRights(u"1111111011111111"_s);
        c.d.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.texts(), QStringList{u"对不起，您无此权限！"_s});
        t.session.setRights(QString());
        t.dialogs.queueText(t.dir.path() + u"/走势"_s);
        c.d.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.shown().last().title, u"A型螺丝 趋势图 保存为图片"_s);
        QImageReader picture(t.dir.path() + u"/走势.png"_s);
        QCOMPARE(picture.format(), QByteArray("png"));
        QCOMPARE(picture.size(), c.d.w<QChartView>(u"ChartView"_s)->size());
    }
};

QTEST_MAIN(TestTrendChart)
#include "tst_trendchart.moc"
