#include "HzLst.h"
#include "JournalOpener.h"
#include "MxLst.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QComboBox>
#include <QFile>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString head = u"select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='L1'  And TM>='2026-11-01 00:00'  "
                     "And TM<='2026-11-15 23:59'  And Item="_s;

// The summary of ledger L1 (物品, 存量) on 2026-11-15; its period runs from 2026-11-01 00:00 to
// 2026-11-15 23:59. Each item's moves try one rule: the bounds, a zero quantity, a sum of zero, nothing
// in the period; a tombstone and another ledger's entry must not count.
struct SummaryWindow
{
    explicit SummaryWindow(const QString& backend, const QString& more = {})
        : t(backend), journal(open(t, more), nullptr), d(t.context(), journal)
    {}

    static AppContext open(TestContext& t, const QString& more)
    {
        t.openLedger(u"L1"_s, u"五金仓库"_s);
        t.session.serverDateText = u"2026-11-15"_s;
        t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
               "('L1','管理员','2026-10-31 23:59','M1','A型螺丝',100,''),"
               "('L1','管理员','2026-11-01 00:00','M2','A型螺丝',10,''),"
               "('L1','管理员','2026-11-09 10:00','M3','A型螺丝',-2.5,''),"
               "('L1','管理员','2026-11-15 23:59','M4','A型螺丝',5,''),"
               "('L1','管理员','2026-11-16 00:00','M5','A型螺丝',1000,''),"
               "('L1','管理员','2026-10-02 08:00','M6','B型螺母',-2,''),"
               "('L1','管理员','2026-11-03 08:00','M7','B型螺母',2,''),"
               "('L1','管理员','2026-11-04 08:00','M8','B型螺母',0,''),"
               "('L1','管理员','2026-12-01 08:00','M9','C型垫圈',7,''),"
               "('L1','管理员','2026-11-05 08:00','M10','x''y [1]#?',3,''),"
               "('L1','管理员','2026-11-05 09:00','M11','C型不锈钢加长垫圈（国标GB97.1规格M12）',-1.25,''),"
               "('管理员#L1#2026-11-14 10:00','管理员','2026-11-05 11:00','T1','A型螺丝',50,''),"
               "('L2','管理员','2026-11-05 11:00','O1','A型螺丝',1000,'')"_s +
               more);
        return t.context();
    }

    QStringList lines() const { return d.lines(u"Lst"_s); }
    // The data lines' cells, one line per item: item|opening|increase|decrease|closing.
    QStringList dataLines() const
    {
        QStringList data;
        for (const QString& line : lines().mid(3))
            if (line.contains(QChar(0x2502)) && !line.contains(u"合计："_s))
                data.append(CellTexts(line).chopped(1));
        return data;
    }
    bool exportEnabled() const { return d.w<QWidget>(u"Cmd_1"_s)->isEnabled(); }

    TestContext t;
    JournalOpener journal;
    Shown<HzLst> d;
};

} // namespace

class TestSummary : public QObject
{
    Q_OBJECT
private slots:
    // The default period over every item: four figures each, the totals, a rule after every line; the
    // export; a click on a rule moves off it and a double-click drills into the journal; the zero-sum rows
    // hidden when asked; a server down gives its message and no report, and the next run works.
    void figures_data() { addBackendRows(); }
    void figures()
    {
        SummaryWindow s(rowBackend());
        const WindowDriver& d = s.d;
        QCOMPARE(s.d->windowTitle(), u"物品汇总表"_s);
        auto* items = d.w<QComboBox>(u"CmbItm"_s);
        QCOMPARE(items->itemText(0) + u'|' + items->itemText(1) + u'|' + QString::number(items->count()),
                 u"全部物品||7"_s);
        QVERIFY(!s.exportEnabled());
        d.click(u"Cmd_0"_s);
        QStringList data = s.dataLines();
        data.sort(); // in the order the server groups the items
        QCOMPARE(data, (QStringList{u"A型螺丝|100|15|2.5|112.5"_s, u"B型螺母|-2|2|0|0"_s,
                                    u"C型不锈钢加长垫圈（国标GB97.1规格|0|0|1.25|-1.25"_s,
                                    u"C型垫圈|0|0|0|0"_s, u"x'y [1]#?|0|3|0|3"_s}));
        const QStringList all = s.lines();
        QCOMPARE(CellTexts(all.at(1)), u"物品|期初存量|增加|减少|期末存量|"_s);
        QCOMPARE(CellTexts(all.at(all.size() - 2)), u"合计：|98|20|3.75|114.25|"_s);
        for (qsizetype i = 4; i < all.size() - 2; i += 2)
            QVERIFY2(all.at(i).startsWith(QChar(0x2500)), qPrintable(all.at(i)));
        QVERIFY(s.exportEnabled() && d.w<QWidget>(u"CmdWait"_s)->isHidden());
        saveScreenshot(s.d.window(), u"summary.png"_s);
        const QString path = s.t.dir.filePath(u"汇总.CSV"_s);
        s.t.dialogs.queueText(path);
        s.t.dialogs.queueAnswer(DialogAnswer::No);
        d.click(u"Cmd_1"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList written = QString::fromUtf8(file.readAll()).split(u"\r\n"_s);
        QCOMPARE(written.takeLast(), QString());
        QCOMPARE(
            written.takeFirst(),
            u"  物品                            ,  期初存量  ,  增加      ,  减少      ,  期末存量  ,"_s);
        QCOMPARE(
            written.takeLast(),
            u"      合计：                      ,          98,          20,        3.75,      114.25,"_s);
        written.sort();
        QCOMPARE(
            written,
            (QStringList{
                u"A型螺丝                           ,         100,          15,         2.5,       112.5,"_s,
                u"B型螺母                           ,          -2,           2,           0,           0,"_s,
                u"C型不锈钢加长垫圈（国标GB97.1规格 ,           0,           0,        1.25,       -1.25,"_s,
                u"C型垫圈                           ,           0,           0,           0,           0,"_s,
                u"x'y [1]#?                         ,           0,           3,           0,           3,"_s}));
        QCOMPARE(s.t.dialogs.shown().at(0).title, u"物品汇总表 导出到Excel文件"_s);
        d.clickLine(u"Lst"_s, 4);
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->currentRow(), 5);
        d.doubleClickLine(u"Lst"_s, 5);
        QCOMPARE(s.journal.open()->lastStatement(),
                 head + u'\'' + s.dataLines().at(1).section(u'|', 0, 0) + u"'  order by Item,TM,ID "_s);

        // The four figures sum to zero: B (-2 + 2 + 0 + 0), C型垫圈 (nothing before the end), and the
        // long C (0 + 0 + 1.25 - 1.25), although its decrease is not zero.
        s.t.dialogs.clear();
        d.click(u"Chk"_s);
        d.click(u"Cmd_0"_s);
        QCOMPARE(s.dataLines().join(u' '), u"A型螺丝|100|15|2.5|112.5 x'y [1]#?|0|3|0|3"_s);
        s.t.setServerDown(true);
        d.click(u"Cmd_0"_s);
        s.t.setServerDown(false);
        QCOMPARE(s.t.dialogs.texts(), QStringList{kRetryText});
        QCOMPARE(s.lines().size(), 3);
        QVERIFY(!s.exportEnabled() && d.w<QWidget>(u"Cmd_0"_s)->isEnabled());
        d.click(u"Cmd_0"_s);
        QCOMPARE(s.dataLines().size(), 2);
        // The journal opened above and the summary take turns on one kept link.
        QCOMPARE(s.t.db->openLinks(), 1);
    }

    // More items than one batch of reads holds: each keeps its own figures across the batches.
    void manyItems_data() { addBackendRows(); }
    void manyItems()
    {
        QStringList rows, expected;
        for (int i = 1; i <= 205; ++i) {
            const QString item = u"I%1"_s.arg(i, 3, 10, QLatin1Char('0'));
            rows.append(u",('L1','管理员','2026-11-02 08:00','%1','%1',%2,'')"_s.arg(item).arg(i));
            expected.append(item + u"|0|%1|0|%1"_s.arg(i));
        }
        SummaryWindow s(rowBackend(), rows.join(QString()));
        s.d.click(u"Cmd_0"_s);
        QStringList shown = s.dataLines().filter(QRegularExpression(u"^I\\d"_s));
        shown.sort();
        QCOMPARE(shown, expected);
    }

    // Item conditions: typed text, how it is matched, the items reported or the message shown.
    void conditions_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("contains");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("all") << u"全部物品"_s << false << u"5"_s;
        QTest::newRow("empty") << u""_s << true << u"5"_s;
        QTest::newRow("equal, any case") << u"a型螺丝"_s << false << u"A型螺丝"_s;
        QTest::newRow("equal, cleaned") << u" x'y [1]#? "_s << false << u"账本中不存在“xy [1]#?”这个物品"_s;
        QTest::newRow("contains") << u"型螺"_s << true << u"A型螺丝 B型螺母"_s;
        QTest::newRow("brackets plain") << u"[1]#?"_s << true << u"x'y [1]#?"_s;
        QTest::newRow("star") << u"a*丝"_s << true << u"A型螺丝"_s;
        QTest::newRow("none equal") << u"螺"_s << false << u"账本中不存在“螺”这个物品"_s;
        QTest::newRow("none contains") << u"[2]"_s << true << u"账本中不存在字符包含“[2]”的物品"_s;
    }
    void conditions()
    {
        QFETCH(QString, text);
        QFETCH(bool, contains);
        QFETCH(QString, outcome);
        SummaryWindow s(u"sqlite"_s);
        s.d.click(u"Cmd_0"_s);
        const QStringList before = s.lines();
        s.d.type(u"CmbItm"_s, text);
        s.d.pickIndex(u"CmbGX1"_s, contains ? 1 : 0);
        s.d.click(u"Cmd_0"_s);
        if (outcome.startsWith(u"账本"_s)) {
            QCOMPARE(s.t.dialogs.texts(), QStringList{outcome});
            QCOMPARE(s.lines(), before); // the last report stays, exportable
            QVERIFY(s.exportEnabled());
            return;
        }
        QStringList reported;
        for (const QString& line : s.dataLines())
            reported.append(line.section(u'|', 0, 0));
        QCOMPARE(outcome.size() == 1 ? QString::number(reported.size()) : reported.join(u' '), outcome);
    }
};

QTEST_MAIN(TestSummary)
#include "tst_summary.moc"
