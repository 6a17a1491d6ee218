#include "EntryStatements.h"
#include "MxEd.h"
#include "MxLst.h"
#include "TestContext.h"
#include "TextGrid.h"
#include "WindowDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFontMetrics>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString head = u"select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='L1'  And TM>='2026-11-"_s;
const QString& refused = kNoRightText;
const QString question = u"真的要删除这条记录吗？"_s;

QString texts(const WindowDriver& d, const QString& names)
{
    QStringList texts;
    for (const QString& name : names.split(u' '))
        texts.append(d.text(name));
    return texts.join(u' ');
}

bool insideScreen(QWidget* window)
{
    return window->screen()->availableGeometry().contains(window->frameGeometry());
}

// The journal of ledger L1 (物品, 存量) as 管理员 with all rights on 2026-11-15, shown. The sample
// ledger: movements before, inside and after that day, a tombstoned entry, an entry of another
// ledger, one item written in two letter cases, an item name too long for its column.
struct JournalWindow
{
    explicit JournalWindow(bool sample = true) : t(rowBackend()), d(open(t, sample)) {}

    static AppContext open(TestContext& t, bool sample)
    {
        t.openLedger(u"L1"_s, u"五金仓库"_s);
        t.session.setOperators({u"管理员"_s, u"张三"_s});
        t.knowServerDate();
        if (sample)
            t.exec(
                u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                "('L1','管理员','2026-10-01 08:00','A01','A型螺丝',100,'期初'),"
                "('L1','管理员','2026-11-15 08:00','A02','A型螺丝',10,'入库'),"
                "('L1','张三','2026-11-15 09:00','A03','A型螺丝',-2.5,'计划外'),"
                "('L1','张三','2026-11-15 10:00','A04','B型螺母',0,'盘点'),"
                "('L1','管理员','2026-11-15 23:59','A05','B型螺母',-4,''),"
                "('L1','管理员','2026-11-16 00:00','A06','B型螺母',7,''),"
                "('L1','管理员','2026-11-15 00:00','A07','C型不锈钢加长垫圈（国标GB97.1规格M12）',"
                "1.123456789,'一条不会被截短的很长很长的备注，写到窗口之外，也能向右滚动看到它的最后一个字'),"
                "('L1','管理员','2026-11-01 00:00','A11','d型弹簧',5,''),"
                "('L1','管理员','2026-11-15 12:00','A09','D型弹簧',3,''),"
                "('L1','管理员','2026-11-15 13:00','A10','d型弹簧',2,''),"
                "('管理员#L1#2026-11-14 10:00','管理员','2026-11-15 11:00','A08','A型螺丝',50,''),"
                "('L2','管理员','2026-11-15 11:00','B01','A型螺丝',1000,'')"_s);
        return t.context();
    }

    QStringList lines(const QString& name = u"Lst"_s) const { return d.lines(name); }
    QString ids() const { return lines(u"Lst2"_s).join(u' ').simplified(); }
    int rowOf(const QString& id) const { return lines(u"Lst2"_s).indexOf(id); }
    void select(const QString& id) const { d.clickLine(u"Lst"_s, rowOf(id)); }
    void run(const QString& pairs = {}) const
    {
        if (!pairs.isEmpty())
            d.act(pairs);
        d.click(u"Cmd_0"_s);
    }
    MxEd* editor() const
    {
        for (MxEd* open : d->findChildren<MxEd*>())
            if (open->isVisible())
                return open;
        return nullptr;
    }
    // ZBID|USR|TM|ITEM|SL|BZ of the rows with the ID.
    QString entry(const QString& id)
    {
        return t.text(u"select ZBID,USR,TM,ITEM,SL,BZ from Zhang where ID='"_s + id + u'\'');
    }

    TestContext t;
    Shown<MxLst> d;
};

} // namespace
// The journal and its entry editor, driven offscreen as a person would.
class TestJournal : public QObject
{
    Q_OBJECT
private slots:
    // Balance mode from 2026-11-02: each item's running balance from its opening balance, totals and
    // aligned columns; lines scroll sideways to their end. A period that ends before it starts clears
    // the listing, so that no command acts on lines that were not read (as a failed read does).
    void listing_data() { addBackendRows(); }
    void listing()
    {
        JournalWindow j;
        const WindowDriver& d = j.d;
        // Just inside and just outside the period.
        j.t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                 "('L1','管理员','2026-11-02 00:00','A12','B型螺母',-30.25,''),"
                 "('L1','管理员','2026-11-01 23:59','A13','B型螺母',12,'')"_s);
        QCOMPARE(j.d->windowTitle(), u"物品流水账"_s);
        QCOMPARE(texts(d, u"LabItm CmbItm CmbSort"_s), u"物品： 全部物品 物品"_s);
        // A, B, C and the one d/D item: tombstones and other ledgers stay out.
        QCOMPARE(d.w<QComboBox>(u"CmbItm"_s)->count(), 5);
        j.run(u"Cmb_2=02"_s);
        QCOMPARE(j.d->lastStatement(),
                 head + u"02 00:00'  And TM<='2026-11-15 23:59'  order by Item,TM,ID "_s);
        // Framed blank, titles, rule, framed blank, rule, entries, rule, totals, rule, framed blank;
        // the hidden Lst2 has the entry ID of each line.
        QCOMPARE(j.lines(u"Lst2"_s).join(u' '), u"     A02 A03 A12 A04 A05 A07 A09 A10    "_s);
        QVERIFY(d.w<QListWidget>(u"Lst2"_s)->isHidden());
        const QStringList shown = j.lines();
        QCOMPARE(CellTexts(shown.at(1)), u"操作员|时间|物品|增加|减少|存量|备注"_s);
        QCOMPARE(CellTexts(shown.at(6)), u"张三|2026-11-15 09:00|A型螺丝||2.5|107.5|计划外"_s);
        QStringList amounts; // increase|decrease|balance of each entry
        for (int i = 5; i < 13; ++i)
            amounts.append(CellTexts(shown.at(i)).section(u'|', 3, 5));
        // Zero is an increase; D型弹簧 and d型弹簧 are one item with one opening balance (5).
        QCOMPARE(amounts.join(u' '),
                 u"10||110 |2.5|107.5 |30.25|-18.25 0||-18.25 |4|-22.25 1.12345679||1.12345679 3||8 2||10"_s);
        QCOMPARE(CellTexts(shown.at(14)), u"||合计：|16.12345679|36.75|96.37345679|"_s);
        // The long item name is clipped at its column, the remark is not.
        const QString longItem = CellTexts(shown.at(10)).section(u'|', 2, 2);
        QVERIFY(longItem.size() < 24 && u"C型不锈钢加长垫圈（国标GB97.1规格M12）"_s.startsWith(longItem));
        QCOMPARE(CellTexts(shown.at(10)).section(u'|', 6),
                 u"一条不会被截短的很长很长的备注，写到窗口之外，也能向右滚动看到它的最后一个字"_s);
        auto* list = d.w<QListWidget>(u"Lst"_s);
        const int longest = QFontMetrics(list->font()).horizontalAdvance(shown.at(10));
        QVERIFY(insideScreen(j.d.window()) && longest > list->viewport()->width());
        QTRY_VERIFY(list->horizontalScrollBar()->maximum() + list->viewport()->width() >= longest);
        // Every bar and rule junction of the six columns stands at the same place (in twips) on every line.
        QCOMPARE(list->font().family(), TextGrid::listFont().family());
        const TextGrid grid(TextGrid::listFont());
        const auto crossings = [&](const QString& line) {
            QList<int> at;
            for (qsizetype i = 0; i < line.size() && at.size() < 6; ++i) {
                if (line.at(i) == QChar(0x2502) || line.at(i) == QChar(0x253C))
                    at.append(qRound(grid.widthTwips(QStringView(line).left(i))));
            }
            return at;
        };
        QCOMPARE(crossings(shown.at(1)).size(), 6);
        for (const QString& line : shown)
            QCOMPARE(crossings(line), crossings(shown.at(1)));
        QVERIFY(shown.at(2).startsWith(QChar(0x2500)));
        saveScreenshot(j.d.window(), u"journal.png"_s);
        j.run(u"Cmb_2=16"_s);
        QCOMPARE(j.lines() + j.lines(u"Lst2"_s), QStringList());
        QCOMPARE(j.t.dialogs.texts(), QStringList{kNoDataText});
        QCOMPARE(j.t.dialogs.shown().at(0).title, QString());
        j.run(u"Cmb_2=02"_s);
        QCOMPARE(j.lines(), shown);

        // One opening read that fails while the server still answers the others counts as 0: B型螺母
        // then starts from its first entry in the period.
        if (j.t.backendName != u"sqlite"_s)
            return;
        j.t.alter({u"alter table Zhang rename to ZhangRows"_s,
                   u"create view Zhang as select ZBID,USR,TM,ID,ITEM,case when ITEM='B型螺母' and "
                   u"TM<'2026-11-02' then json(ITEM) else SL end as SL,BZ from ZhangRows"_s});
        j.t.dialogs.clear();
        j.run();
        QCOMPARE(j.t.dialogs.texts(), QStringList());
        QCOMPARE(CellTexts(j.lines().at(7)).section(u'|', 3, 5), u"|30.25|-30.25"_s);
    }

    // Each filter and sort on the sample day, set as control=entry pairs: its clauses (ordered by item
    // unless they say otherwise), whether the balance column stays, the entries listed.
    void filtersAndSorts_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("filters");
        QTest::addColumn<QString>("clauses");
        QTest::addColumn<bool>("balance");
        QTest::addColumn<QString>("ids");
        const QString all = u"A02 A03 A04 A05 A07 A09 A10"_s;
        for (const QString& b : backends()) {
            const auto row = [&](QString filters, QString clauses, bool balance, QString ids) {
                QTest::newRow(qPrintable(b + u'/' + filters)) << b << filters << clauses << balance << ids;
            };
            // Cleaned of blanks and apostrophes; the server compares items without letter case.
            row(u"CmbItm= a型'螺丝 "_s, u" And Item='a型螺丝' "_s, true, u"A02 A03"_s);
            row(u"CmbItm=型螺;CmbGX1=包含"_s, u" And Item like '%型螺%' "_s, true, u"A02 A03 A04 A05"_s);
            row(u"CmbItm=%;CmbGX1=包含"_s, u" And Item like '%%%' "_s, true, all);
            row(u"CmbItm=全部物品"_s, QString(), true, all);
            row(u"CmbSL=增加"_s, u" And SL>=0 "_s, false, u"A02 A04 A07 A09 A10"_s);
            row(u"CmbSL=减少"_s, u" And SL<0 "_s, false, u"A03 A05"_s);
            row(u"TxtBZ=计划'外"_s, u" And Bz like '%计划外%' "_s, false, u"A03"_s);
            row(u"TxtBZ=_"_s, u" And Bz like '%_%' "_s, false, u"A02 A03 A04 A07"_s);
            row(u"CmbUsr=张三"_s, u" And Usr = '张三' "_s, false, u"A03 A04"_s);
            row(u"CmbSort=时间"_s, u" order by TM,ID "_s, false, u"A07 A02 A03 A04 A09 A10 A05"_s);
            row(u"CmbSort=数值"_s, u" order by SL desc,Item,TM "_s, false, u"A02 A09 A10 A07 A04 A03 A05"_s);
        }
    }
    void filtersAndSorts()
    {
        QFETCH(QString, filters);
        QFETCH(QString, clauses);
        QFETCH(bool, balance);
        QFETCH(QString, ids);
        JournalWindow j;
        j.run(filters);
        if (!clauses.contains(u"order by"_s))
            clauses += u" order by Item,TM,ID "_s;
        QCOMPARE(j.d->lastStatement(), head + u"15 00:00'  And TM<='2026-11-15 23:59' "_s + clauses);
        QCOMPARE(j.ids(), ids);
        // Titles, entries and totals: three text cells, two amounts, the balance in balance mode, the remark.
        const QStringList shown = j.lines();
        for (qsizetype line : {qsizetype(1), qsizetype(5), shown.size() - 3})
            QCOMPARE(CellTexts(shown.at(line)).count(u'|'), balance ? 6 : 5);
    }

    // A ledger without entries: the query refuses; the period lists keep the day inside the month. Opened
    // while the server is down, the journal takes its items from the session.
    void emptyLedger_data() { addBackendRows(); }
    void emptyLedger()
    {
        JournalWindow j(false);
        const WindowDriver& d = j.d;
        j.run();
        QCOMPARE(j.t.dialogs.texts(), QStringList{u"这个账本还没有录入任何记录，不能进行报表统计！"_s});
        QVERIFY(j.d->lastStatement().isEmpty());
        // List, entry, day after.
        const QStringList steps = u"_2 31 30 _1 12 30 _2 31 31 _1 06 30 _1 02 28 _0 2028 28 _2 31 29 "
                                  "_0 2027 28 _3 05 28"_s.split(u' ');
        for (const QString& lists : {u"Cmb"_s, u"Cmb2"_s}) {
            QCOMPARE(texts(d, lists + u"_0 "_s + lists + u"_1 "_s + lists + u"_2"_s), u"2026 11 15"_s);
            for (qsizetype i = 0; i < steps.size(); i += 3) {
                d.pick(lists + steps.at(i), steps.at(i + 1));
                QCOMPARE(d.text(lists + u"_2"_s), steps.at(i + 2));
            }
        }
        // Ten years back, twenty ahead.
        QCOMPARE(d.w<QComboBox>(u"Cmb_0"_s)->itemText(0) + d.w<QComboBox>(u"Cmb2_0"_s)->itemText(30),
                 u"20162046"_s);
        j.t.session.setItems({u"A型螺丝"_s});
        j.t.setServerDown(true);
        const Shown<MxLst> offline(j.t.context());
        auto* items = offline.w<QComboBox>(u"CmbItm"_s);
        QCOMPARE(items->itemText(items->count() - 1) + QString::number(items->count()), u"A型螺丝2"_s);
    }

    // The edit commands: their rights, the single delete, modify through the editor and its delete.
    void edits_data() { addBackendRows(); }
    void edits()
    {
        JournalWindow j;
        const WindowDriver& d = j.d;
        TestContext& t = j.t;
        j.run();
        d.act(u"Cmd_5;Lst@1;Cmd_5;Cmd_4"_s); // nothing selected, then the titles: no entry behind them
        const QString pickDelete = u"请首先选择您要删除的记录行！"_s;
        QCOMPARE(t.dialogs.texts(), (QStringList{pickDelete, pickDelete, u"请首先选择您要修改的记录行！"_s}));
        // Late entry, modify and delete refused (positions 10 to 12); the query needs no right. One right
        // granted alone opens only its own command.
        t.dialogs.clear();
        t.session.setRights(u"1111111110001111"_s);
        j.run();
        j.select(u"A02"_s);
        d.act(u"Cmd_3;Cmd_4;Cmd_5"_s);
        d.doubleClickLine(u"Lst"_s, j.rowOf(u"A03"_s));
        t.session.setRights(u"1111111111011111"_s);
        d.act(u"Cmd_4;Cmd_3"_s);
        QCOMPARE(t.dialogs.texts(), QStringList(5, refused));
        WindowDriver(j.editor()).click(u"Cmd_2"_s);
        QCOMPARE(t.text(u"select count(*) from Zhang where ZBID='L1'"_s), u"10"_s);
        // The single delete: No keeps the entry; Yes tombstones it, and the listing runs again with the
        // selection on the same line.
        t.session.setRights(QString());
        t.dialogs.clear();
        const int row = j.rowOf(u"A03"_s);
        j.select(u"A03"_s);
        t.dialogs.queueAnswer(DialogAnswer::No);
        d.click(u"Cmd_5"_s);
        const auto asked = t.dialogs.shown().at(0);
        QVERIFY(asked.icon == DialogIcon::Question && asked.buttons == DialogButtons::YesNo &&
                asked.defaultAnswer == DialogAnswer::No);
        QCOMPARE(j.entry(u"A03"_s).left(3), u"L1|"_s);
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click(u"Cmd_5"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{question, question}));
        QCOMPARE(j.entry(u"A03"_s),
                 u"管理员#L1#2026-11-15 09:05|张三|2026-11-15 09:00|A型螺丝|-2.5|计划外"_s);
        QCOMPARE(j.ids(), u"A02 A04 A05 A07 A09 A10"_s);
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->currentRow(), row);
        // Modify: the old row keeps everything but its ledger ID, the new one has a new ID.
        t.dialogs.clear();
        const int modified = j.rowOf(u"A02"_s);
        j.select(u"A02"_s);
        d.click(u"Cmd_4"_s);
        WindowDriver e(j.editor());
        QVERIFY(j.editor()->isModal() && insideScreen(j.editor()));
        QCOMPARE(j.editor()->windowTitle(), u"修改账目"_s);
        QCOMPARE(texts(e, u"CmbItm TxtSL TxtBZ Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s),
                 u"A型螺丝 +10 入库 2026 11 15 08 00"_s);
        QVERIFY(e.w<QWidget>(u"FrmWait"_s)->isHidden() && e.w<QWidget>(u"Chk"_s)->isHidden() &&
                e.w<QWidget>(u"Cmd_1"_s)->isVisible());
        e.act(u"TxtSL=-3.5;TxtBZ=返工 - 退回;Cmb_4=30"_s);
        e.press(u"TxtBZ"_s, Qt::Key_Return); // Enter in the remark box saves and closes
        QVERIFY(!j.editor());
        QCOMPARE(j.entry(u"A02"_s), u"管理员#L1#2026-11-15 09:05|管理员|2026-11-15 08:00|A型螺丝|10|入库"_s);
        QCOMPARE(j.entry(u"7827505800"_s), u"L1|管理员|2026-11-15 08:30|A型螺丝|-3.5|返工-退回"_s);
        // The journal runs again once the editor is gone, and the marker is spent.
        QTRY_VERIFY(t.session.journalRefreshMarker.isEmpty());
        QCOMPARE(j.ids(), u"7827505800 A04 A05 A07 A09 A10"_s);
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->currentRow(), modified);
        // Closing without saving; then the editor's delete: its right, the question, the tombstone.
        d.doubleClickLine(u"Lst"_s, j.rowOf(u"A04"_s));
        e.setWindow(j.editor());
        e.click(u"Cmd_2"_s);
        QVERIFY(!j.editor());
        d.click(u"Cmd_4"_s);
        e.setWindow(j.editor());
        t.session.setRights(u"11111111111011"_s);
        e.click(u"Cmd_1"_s);
        t.session.setRights(QString());
        t.dialogs.queueAnswer(DialogAnswer::No);
        e.click(u"Cmd_1"_s);
        QCOMPARE(j.editor(), e.window());
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        e.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{refused, question, question}));
        QVERIFY(!j.editor());
        QCOMPARE(j.entry(u"A04"_s), u"管理员#L1#2026-11-15 09:05|张三|2026-11-15 10:00|B型螺母|0|盘点"_s);
        QTRY_COMPARE(j.ids(), u"7827505800 A05 A07 A09 A10"_s);
        // An entry removed meanwhile cannot be modified.
        t.dialogs.clear();
        t.exec(u"update Zhang Set ZBID='张三#L1#2026-11-15 09:04' where ZBID='L1' and ID='A05'"_s);
        j.select(u"A05"_s);
        d.click(u"Cmd_4"_s);
        QVERIFY(!j.editor() && j.ids().contains(u"A05"_s));
        QCOMPARE(t.dialogs.texts(),
                 QStringList{u"您要修改的记录已经被删除！\n请返回\n重新【统计】再进行修改！"_s});
    }

    // Late entry: the checks in their order, each stopping the save; the quantity's sign; Enter moves on
    // and saves; the editor stays until Chk says otherwise; the journal does not run again.
    void lateEntry_data() { addBackendRows(); }
    void lateEntry()
    {
        JournalWindow j;
        TestContext& t = j.t;
        t.session.setLabels(t.session.itemLabel(), u"余额"_s);
        j.run();
        j.d.click(u"Cmd_3"_s);
        WindowDriver e(j.editor());
        QCOMPARE(j.editor()->windowTitle(), u"漏账补录"_s);
        QVERIFY(e.w<QWidget>(u"Cmd_1"_s)->isHidden());
        QCOMPARE(texts(e, u"CmbItm Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s), u" 2026 11 15 09 05"_s);
        QCOMPARE(e.w<QComboBox>(u"CmbItm"_s)->count(), 4); // the journal's items without 全部物品
        QStringList signs;
        for (const QString& item : {u" ' |x"_s, u"螺丝|"_s, u"螺丝| 7 5x"_s, u"新全部物品|+"_s,
                                    u"新全部 物品|-3"_s, u"全部物品|+2"_s}) {
            e.act(u"CmbItm="_s + item.section(u'|', 0, 0) + u";TxtSL="_s + item.section(u'|', 1));
            signs.append(e.text(u"TxtSL"_s));
            e.click(u"Cmd_0"_s);
        }
        QCOMPARE(signs, (QStringList{u"+x"_s, {}, u"+75x"_s, u"+"_s, u"-3"_s, u"+2"_s}));
        const QString number = u"请输入余额的数值！"_s;
        QCOMPARE(t.dialogs.texts(), (QStringList{u"请输入或选择物品！"_s, number, number, number,
                                                 u"物品中不能包含“全部物品”这样的词！"_s}));
        const auto& shown = t.dialogs.shown();
        QCOMPARE(shown.at(0).title + shown.at(1).title + shown.at(4).title, u"提示提示"_s);
        QCOMPARE(j.entry(u"7827507900"_s), u"L1|管理员|2026-11-15 09:05|新全部 物品|-3|"_s);
        t.dialogs.clear();
        e.act(u"CmbItm=新品 - 甲型;Cmb_1=01;Cmb_2=02;Cmb_3=00;Cmb_4=00;TxtSL=.5"_s);
        QCOMPARE(e.text(u"TxtSL"_s), u"+0.5"_s);
        e.press(u"TxtSL"_s, Qt::Key_Return);
        QVERIFY(e.w<QWidget>(u"TxtBZ"_s)->hasFocus());
        QCOMPARE(t.text(u"select count(*) from Zhang"_s), u"13"_s);
        e.type(u"TxtBZ"_s, u"补 -录"_s);
        e.press(u"TxtBZ"_s, Qt::Key_Return);
        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(j.entry(u"780086400"_s), u"L1|管理员|2026-01-02 00:00|新品-甲型|0.5|补-录"_s);
        QCOMPARE(j.editor(), e.window());
        QCOMPARE(e.text(u"Lab5"_s), u"新品-甲型 +0.5 补-录 已保存！"_s);
        QCOMPARE(texts(e, u"TxtSL TxtBZ CmbItm Cmb_0 Cmb_1 Cmb_2 Cmb_3 Cmb_4"_s),
                 u"  新品 - 甲型 2026 01 02 00 00"_s);
        // Ticked, the editor closes after the next late entry, which takes the same ID.
        e.press(u"Chk"_s, Qt::Key_Space);
        e.type(u"TxtSL"_s, u"5"_s);
        e.click(u"Cmd_0"_s);
        QVERIFY(!j.editor() && !j.ids().contains(u"7827507900"_s));
        QCOMPARE(t.text(u"select SL from Zhang where ID='780086400' order by SL"_s), u"0.5;5"_s);
    }

    // Export: refused without a listing or the right; a listing with the balance column and one without
    // appended to one file as titles, entries and totals; a folder that does not exist; a cancelled
    // dialog; Yes opens the file.
    void exportListing_data() { addBackendRows(); }
    void exportListing()
    {
        JournalWindow j;
        const WindowDriver& d = j.d;
        TestContext& t = j.t;
        d.click(u"Cmd_1"_s);
        j.run();
        t.session.setRights(u"1111111011110111"_s); // export (8) and bulk delete (13) refused
        d.act(u"Cmd_1;Cmd_6"_s);
        t.session.setRights(QString());
        QCOMPARE(t.dialogs.texts(),
                 (QStringList{u"请先使用【统计】功能列出历史记录，才能进行导出操作！"_s, refused, refused}));
        t.dialogs.clear();
        const QString path = t.dir.path() + u"/x.txt"_s;
        j.run(u"CmbItm=型螺;CmbGX1=包含"_s);
        t.dialogs.queueText(path);
        t.dialogs.queueAnswer(DialogAnswer::No);
        d.click(u"Cmd_1"_s);
        j.run(u"CmbSL=减少"_s);
        t.dialogs.queueText(path + u".csv"_s);
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click(u"Cmd_1"_s);
        QFile file(path + u".csv"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList written{u" 操作员 , 时间 ,物品 , 增加 , 减少 ,存量 , 备注"_s,
                                  u"管理员 ,2026-11-15 08:00 ,A型螺丝 , 10, , 110,入库"_s,
                                  u"张三 ,2026-11-15 09:00 ,A型螺丝 , , 2.5, 107.5,计划外"_s,
                                  u"张三 ,2026-11-15 10:00 ,B型螺母 , 0, , 0,盘点"_s,
                                  u"管理员 ,2026-11-15 23:59 ,B型螺母 , , 4, -4,"_s,
                                  u" , , 合计： , 10, 6.5, 103.5,"_s,
                                  u" 操作员 , 时间 ,物品 , 增加 , 减少 , 备注"_s,
                                  u"张三 ,2026-11-15 09:00 ,A型螺丝 , , 2.5,计划外"_s,
                                  u"管理员 ,2026-11-15 23:59 ,B型螺母 , , 4,"_s,
                                  u" , , 合计： , 0, 6.5,"_s};
        QCOMPARE(file.readAll(), (written.join(u"\r\n"_s) + u"\r\n"_s).toUtf8());
        const QString done = u"数据导出完成！\n\n是否需要打开这个Excel文件？"_s;
        QCOMPARE(t.dialogs.texts(), (QStringList{{}, done, {}, done}));
        QCOMPARE(t.dialogs.shown().at(0).title, u"物品流水账 导出到Excel文件"_s);
        QCOMPARE(t.shell.openedUrls, QStringList{u"file://"_s + path + u".csv"_s});
        t.dialogs.clear();
        t.dialogs.queueText(t.dir.path() + u"/missing/x"_s);
        d.click(u"Cmd_1"_s);
        t.dialogs.queueText(QString());
        d.click(u"Cmd_1"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{{}, u"导出失败"_s, {}}));
        QCOMPARE(j.ids(), u"A03 A05"_s);
    }

    // Bulk delete: refused without a listing; with a password, wrong and then right; without one,
    // Cancel, a server that is down at the second password read, and a server that goes down after the
    // first entry, then the retry. Every listed entry gets the batch's one stamp; heading, rules and
    // totals, unlisted entries and other ledgers stay.
    void bulkDelete_data() { addBackendRows(); }
    void bulkDelete()
    {
        JournalWindow j;
        const WindowDriver& d = j.d;
        TestContext& t = j.t;
        const QString stamp = u"管理员#L1#2026-11-15 09:05"_s, done = u"批量删除完成！"_s,
                      wrong = u"密码输入错误，删除操作取消！"_s;
        const auto under = [&](const QString& ledgerId) {
            return t.text(u"select ID from Zhang where ZBID='"_s + ledgerId + u"' order by ID"_s)
                .replace(u';', u' ');
        };
        const auto warning = [](const QString& howToGoOn) {
            return u"    您真的要删除表格中的所有历史记录吗？\n    数据删除后将不可恢复！\n    "_s +
                   howToGoOn + u"\n    如果想放弃删除，请点击【取消】按钮；"_s;
        };
        const QString typePassword =
            warning(u"如果确实要删除表格中所有数据，请输入您的操作员密码，再点击【确定】按钮。"_s);
        const QString confirm = warning(u"如果确认要继续进行删除操作，请点击【确定】按钮。"_s);
        d.click(u"Cmd_6"_s);
        t.exec(u"update UsrLst set PWD='密码' where Usr='管理员'"_s);
        j.run(u"CmbUsr=张三"_s);
        QStringList blanked = j.lines();
        blanked[j.rowOf(u"A03"_s)] = blanked[j.rowOf(u"A04"_s)] = QString();
        t.dialogs.queueText(u"密"_s);
        d.click(u"Cmd_6"_s);
        QCOMPARE(j.ids(), u"A03 A04"_s);
        t.dialogs.queueText(u"密码"_s);
        d.click(u"Cmd_6"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{u"请先使用【统计】功能列出历史记录，才能进行删除操作！"_s,
                                                 typePassword, wrong, typePassword, done}));
        QCOMPARE(t.dialogs.shown().at(1).title, u"警告"_s);
        QCOMPARE(under(stamp), u"A03 A04"_s);
        QCOMPARE(j.lines(), blanked);
        QCOMPARE(j.ids(), QString());

        t.exec(u"update UsrLst set PWD=NULL where Usr='管理员'"_s);
        t.dialogs.clear();
        j.run(u"CmbUsr="_s);
        t.dialogs.queueAnswer(DialogAnswer::Cancel);
        d.click(u"Cmd_6"_s);
        t.setServerDown(true);
        t.dialogs.queueAnswer(DialogAnswer::Ok);
        d.click(u"Cmd_6"_s);
        t.setServerDown(false);
        QCOMPARE(j.ids(), u"A02 A05 A07 A09 A10"_s);
        // While the batch runs it shows its caption and offers no command; then the server goes down.
        QString during;
        QTimer watch;
        connect(&watch, &QTimer::timeout, &watch, [&] {
            if (d.w<QWidget>(u"CmdWait"_s)->isHidden())
                return;
            watch.stop();
            during = d.text(u"CmdWait"_s) + QString::number(d.w<QWidget>(u"Cmd_6"_s)->isEnabled());
            t.setServerDown(true);
        });
        watch.start();
        t.dialogs.queueAnswer(DialogAnswer::Ok);
        d.click(u"Cmd_6"_s);
        t.setServerDown(false);
        QCOMPARE(during, u"正在删除数据，请稍候……0"_s);
        QVERIFY(j.d->isVisible() && d.w<QWidget>(u"Cmd_6"_s)->isEnabled() &&
                d.w<QWidget>(u"CmdWait"_s)->isHidden());
        QCOMPARE(j.ids(), u"A05 A07 A09 A10"_s);
        t.dialogs.queueAnswer(DialogAnswer::Ok);
        d.click(u"Cmd_6"_s);
        QCOMPARE(t.dialogs.texts(),
                 (QStringList{confirm, confirm, u"网络异常，删除操作强制取消！"_s, confirm,
                              done + u"\n有 4 条账目未能删除，请稍后重试。"_s, confirm, done}));
        const auto& box = t.dialogs.shown().at(0);
        QVERIFY(box.title == u"警告"_s && box.icon == DialogIcon::Warning &&
                box.buttons == DialogButtons::OkCancel && box.defaultAnswer == DialogAnswer::Cancel);
        QCOMPARE(under(stamp), u"A02 A03 A04 A05 A07 A09 A10"_s);
        QCOMPARE(under(u"L1"_s) + u' ' + under(u"L2"_s) + u' ' + under(u"管理员#L1#2026-11-14 10:00"_s),
                 u"A01 A06 A11 B01 A08"_s);
    }

    void entryIds_data()
    {
        QTest::addColumn<QDateTime>("when");
        QTest::addColumn<QString>("id");
        QTest::newRow("leap year end") << QDateTime(QDate(2028, 12, 31), QTime(23, 59)) << u"8031622340"_s;
        QTest::newRow("base zero") << QDateTime(QDate(1948, 3, 1), QTime(0, 1)) << u"05184060"_s;
        QTest::newRow("before 1948") << QDateTime(QDate(1900, 1, 1), QTime(1, 0)) << u"-480003600"_s;
        // A spring-forward night elsewhere changes nothing: the calendar has no daylight saving.
        QTest::newRow("local time") << QDateTime(QDate(2026, 3, 29), QTime(2, 30), Qt::LocalTime)
                                    << u"787525800"_s;
    }
    void entryIds()
    {
        QFETCH(QDateTime, when);
        QFETCH(QString, id);
        QCOMPARE(EditorEntryId(when), id);
    }
};

QTEST_MAIN(TestJournal)
#include "tst_journal.moc"
