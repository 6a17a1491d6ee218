#include "JournalOpener.h"
#include "KcLst.h"
#include "MxLst.h"
#include "TestContext.h"
#include "TextGrid.h"
#include "WindowDriver.h"

#include <QApplication>
#include <QFile>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString longName = u"C型不锈钢加长垫圈（国标GB97.1规格M12，表面镀锌钝化处理）"_s;
const QString cutName = u"C型不锈钢加长垫圈（国标GB97.1规格M12，表面镀"_s; // as its column cuts it

// The balance list of ledger L1 (物品, 存量), shown. Totals: A型螺丝 107.5, B型螺母 0, the long item 1.25
// (last entry in 2024), D型垫片 -4, E50%_特价 3, and 9 on an empty item name; a tombstone and another
// ledger's entries count nowhere.
struct BalanceWindow
{
    explicit BalanceWindow(const QString& backend)
        : t(backend), journal(open(t), nullptr), d(t.context(), journal)
    {}

    static AppContext open(TestContext& t)
    {
        t.openLedger(u"L1"_s, u"五金仓库"_s);
        t.exec(u"insert into Zhang (ZBID,TM,ITEM,SL) values ('L1','2026-11-01','A型螺丝',110),"
               "('L1','2026-11-02','A型螺丝',-2.5),('L1','2026-11-01','B型螺母',5),"
               "('L1','2026-11-02','B型螺母',-5),('L1','2023-05-01 08:00','%1',1),"
               "('L1','2024-03-01 08:00','%1',0.25),('管理员#L1#2025-01-01','2025-01-01 08:00','%1',50),"
               "('L1','2026-11-03','D型垫片',-4),('L1','2026-11-04','E50%_特价',3),"
               "('L1','2026-11-05','',9),('L2','2026-11-15','A型螺丝',1000)"_s.arg(longName));
        return t.context();
    }

    QStringList lines() const { return d.lines(u"Lst"_s); }
    // The rows and the totals below the column titles as "item=total", joined by ";".
    QString listed() const
    {
        QStringList rows;
        for (const QString& line : lines().mid(2)) {
            const QStringList cells = SplitCells(line);
            if (cells.size() > 1)
                rows.append(cells.at(0).trimmed() + u'=' + cells.at(1).trimmed());
        }
        return rows.join(u';');
    }
    static MxLst* openJournal()
    {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<MxLst*>(top))
                return found;
        return nullptr;
    }

    TestContext t;
    JournalOpener journal;
    Shown<KcLst> d;
};

// Where a line's first bar or junction stands, in twips.
double firstCrossing(const QString& line)
{
    static const TextGrid grid(TextGrid::listFont());
    return grid.widthTwips(QStringView(line).left(line.indexOf(QRegularExpression(u"[│┬┼┴]"_s))));
}

} // namespace

class TestBalanceList : public QObject
{
    Q_OBJECT
private slots:
    // Each condition set as control=entry pairs: the item clause, Txt after the run, the rows and totals.
    void conditions_data()
    {
        addTextColumns({"backend", "conditions", "clause", "txt", "listed"});
        const QString positive = u"A型螺丝=107.5;"_s + cutName + u"=1.25;E50%_特价=3;合计：=111.75"_s;
        const QString all =
            u"A型螺丝=107.5;B型螺母=0;"_s + cutName + u"=1.25;D型垫片=-4;E50%_特价=3;合计：=107.75"_s;
        for (const QString& b : backends()) {
            const auto row = [&](QString conditions, QString clause, QString txt, QString listed) {
                QTest::newRow(qPrintable(b + u'/' + conditions))
                    << b << conditions << clause << txt << listed;
            };
            row(u"CmbGX2=大于"_s, {}, u"0"_s, positive);
            row(u"CmbGX2=小于"_s, {}, u"0"_s, u"D型垫片=-4;合计：=-4"_s);
            row(u"CmbGX2=等于"_s, {}, u"0"_s, u"B型螺母=0;合计：=0"_s);
            row(u"Txt=;CmbGX2=小于"_s, {}, {}, all);
            row(u"Txt=2012.822;CmbGX2=等于"_s, {}, u"2012.822"_s, all);
            row(u"Txt=abc"_s, {}, u"0"_s, positive);
            row(u"Txt=-10;CmbGX2=小于"_s, {}, u"-10"_s, {});
            row(u"Cmb= E50%_特'价 "_s, u" And Item='E50%_特价' "_s, u"0"_s, u"E50%_特价=3;合计：=3"_s);
            row(u"Cmb=型_%丝;CmbGX1=字符包含"_s, u" And Item like '%型_%丝%' "_s, u"0"_s,
                u"A型螺丝=107.5;合计：=107.5"_s);
            row(u"Cmb=;CmbGX1=字符包含"_s, {}, u"0"_s, positive);
        }
    }
    void conditions()
    {
        QFETCH(QString, backend);
        QFETCH(QString, conditions);
        QFETCH(QString, clause);
        QFETCH(QString, txt);
        QFETCH(QString, listed);
        BalanceWindow b(backend);
        b.d.act(conditions + u";Cmd_0"_s);
        QCOMPARE(b.d->lastStatement(), u"select Item,sum(SL) from Zhang Where ZBID='L1' "_s + clause +
                                           u" Group by Item  order by Item "_s);
        QCOMPARE(b.d.text(u"Txt"_s), txt);
        QCOMPARE(b.listed(), listed);
        QCOMPARE(b.t.dialogs.texts(), listed.isEmpty() ? QStringList{kNoDataText} : QStringList());
        QCOMPARE(b.d.w<QWidget>(u"Cmd_1"_s)->isEnabled(), !listed.isEmpty());
        // Cut to fit, every item keeps its bar under the head's.
        for (const QString& line : b.lines())
            QCOMPARE(firstCrossing(line), firstCrossing(b.lines().at(1)));
    }

    // The window's frame, the export with its right, the drill-down into the journal.
    void commands_data() { addBackendRows(); }
    void commands()
    {
        BalanceWindow b(rowBackend());
        const WindowDriver& d = b.d;
        TestContext& t = b.t;
        QCOMPARE(b.d->windowTitle() + d.text(u"Lab2"_s) + d.text(u"Cmb"_s) + d.text(u"Txt"_s),
                 u"物品存量表物品：全部物品0"_s);
        QVERIFY(!d.w<QWidget>(u"Cmd_1"_s)->isEnabled());
        d.click(u"Cmd_0"_s);
        const QStringList shown = b.lines();
        QCOMPARE(SplitCells(shown.at(1)).join(u'|').simplified(), u"物品 | 存量 |"_s);
        QVERIFY(shown.at(0).endsWith(u'┬') && shown.at(2).endsWith(u'┼') && shown.at(6).endsWith(u'┼'));
        QVERIFY(shown.last().endsWith(u'┴'));
        saveScreenshot(b.d.window(), u"balancelist.png"_s);

        t.session.setRights(u"1111111011111111"_s);
        d.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.texts(), QStringList{kNoRightText});
        t.session.setRights(QString());
        const QString path = t.dir.path() + u"/库存.csv"_s;
        t.dialogs.queueText(t.dir.path() + u"/库存"_s);
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.shown().at(1).title, u"物品存量表 导出到Excel文件"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(file.readAll()),
                 u" 物品 , 存量 ,\r\nA型螺丝 , 107.5,\r\n"_s + cutName + u" , 1.25,\r\nE50%_特价 , 3,\r\n"_s);
        QCOMPARE(t.shell.openedUrls, QStringList{u"file://"_s + path});

        // The totals, the titles and a rule name no item.
        for (const int row : {int(shown.size()) - 2, 1, 2})
            d.doubleClickLine(u"Lst"_s, row);
        QVERIFY(!BalanceWindow::openJournal());
        d.doubleClickLine(u"Lst"_s, 4);
        QVERIFY(BalanceWindow::openJournal());
        QCOMPARE(BalanceWindow::openJournal()->lastStatement(),
                 u"select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='L1'  And TM>='2024-01-01 00:00'  "
                 "And TM<='2026-11-15 23:59'  And Item='%1'  order by Item,TM,ID "_s.arg(longName));
    }
};

QTEST_MAIN(TestBalanceList)
#include "tst_balancelist.moc"
