#include "JournalFixture.h"

#include "TextGrid.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

const QString head = u"select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='L1'  And TM>='2026-11-"_s;

// The trimmed cells of a line, split at its bars.
QStringList cells(const QString& line)
{
    QStringList parts = line.split(QChar(0x2502));
    for (QString& part : parts)
        part = part.trimmed();
    return parts;
}

// Where the column bars and rule junctions of a line stand, in twips of the list font.
QList<int> crossings(const TextGrid& grid, const QString& line)
{
    QList<int> at;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) == QChar(0x2502) || line.at(i) == QChar(0x253C))
            at.append(qRound(grid.widthTwips(QStringView(line).left(i))));
    }
    return at;
}

const auto split = [](const QString& words) { return words.split(u' '); };

} // namespace

// The journal window driven offscreen: filters, statements, the text table and its commands.
class TestMxLst : public QObject
{
    Q_OBJECT
private slots:
    // Balance mode from 2026-11-02: each item's running balance from its opening balance, totals and
    // aligned columns. A failed read keeps the listing; a period that ends before it starts clears it.
    void listing_data() { addBackendRows(); }
    void listing()
    {
        QFETCH(QString, backend);
        JournalWindow j(backend);
        const WindowDriver& d = j.d;
        // Just inside and just outside the period.
        addEntries(j.t, u"('L1','管理员','2026-11-02 00:00','A12','B型螺母',-30.25,''),"
                        "('L1','管理员','2026-11-01 23:59','A13','B型螺母',12,'')"_s);
        QCOMPARE(j.window->windowTitle(), u"物品流水账"_s);
        QCOMPARE(d.text(u"LabItm"_s), u"物品："_s);
        // A, B, C and the one d/D item: tombstones and other ledgers stay out.
        QCOMPARE(d.w<QComboBox>(u"CmbItm"_s)->count(), 5);
        QCOMPARE(d.text(u"CmbItm"_s), u"全部物品"_s);
        QCOMPARE(d.w<QComboBox>(u"CmbSort"_s)->itemText(0), u"物品"_s);
        d.pick(u"Cmb_2"_s, u"02"_s);
        d.click(u"Cmd_0"_s);
        QCOMPARE(j.t.dialogs.texts(), QStringList());
        QCOMPARE(j.window->lastStatement(),
                 head + u"02 00:00'  And TM<='2026-11-15 23:59'  order by Item,TM,ID "_s);
        // Framed blank, titles, rule, framed blank, rule, entries, rule, totals, rule, framed blank.
        QCOMPARE(j.lines(u"Lst2"_s), QStringList(5, QString()) + split(u"A02 A03 A12 A04 A05 A07 A09 A10"_s) +
                                         QStringList(4, QString()));
        QVERIFY(d.w<QListWidget>(u"Lst2"_s)->isHidden());
        const QStringList shown = j.lines();
        QCOMPARE(cells(shown.at(1)), split(u"操作员 时间 物品 增加 减少 存量 备注"_s));
        QCOMPARE(cells(shown.at(5)),
                 (QStringList{
                     u"管理员"_s, u"2026-11-15 08:00"_s, u"A型螺丝"_s, u"10"_s, {}, u"110"_s, u"入库"_s}));
        QCOMPARE(cells(shown.at(6)),
                 (QStringList{
                     u"张三"_s, u"2026-11-15 09:00"_s, u"A型螺丝"_s, {}, u"2.5"_s, u"107.5"_s, u"计划外"_s}));
        const auto column = [&](int cell) {
            QStringList texts;
            for (int i = 5; i < 13; ++i)
                texts.append(cells(shown.at(i)).at(cell));
            return texts;
        };
        // Zero is an increase; D型弹簧 and d型弹簧 are one item with one opening balance (5).
        QCOMPARE(column(3), (QStringList{u"10"_s, {}, {}, u"0"_s, {}, u"1.12345679"_s, u"3"_s, u"2"_s}));
        QCOMPARE(column(4), (QStringList{{}, u"2.5"_s, u"30.25"_s, {}, u"4"_s, {}, {}, {}}));
        QCOMPARE(column(5), split(u"110 107.5 -18.25 -18.25 -22.25 1.12345679 8 10"_s));
        QCOMPARE(cells(shown.at(14)),
                 (QStringList{{}, {}, u"合计："_s, u"16.12345679"_s, u"36.75"_s, u"96.37345679"_s, {}}));
        // The long item name is clipped at its column, the remark is not.
        const QStringList longItem = cells(shown.at(10));
        const QString longName = u"C型不锈钢加长垫圈（国标GB97.1规格M12）"_s;
        QVERIFY(longItem.at(2).size() < longName.size() && longName.startsWith(longItem.at(2)));
        QCOMPARE(longItem.at(6), u"一条不会被截短的很长很长的备注"_s);

        // Every bar and rule junction of the six columns stands at the same place on every line.
        const TextGrid grid(TextGrid::listFont());
        const QList<int> columns = crossings(grid, shown.at(1)).mid(0, 6);
        QCOMPARE(columns.size(), 6);
        for (const QString& line : shown)
            QCOMPARE(crossings(grid, line).mid(0, 6), columns);
        QVERIFY(shown.at(2).startsWith(QChar(0x2500)));
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->font().family(), TextGrid::listFont().family());
        saveScreenshot(j.window.get(), u"journal.png"_s);

        j.serverDown([&] { d.click(u"Cmd_0"_s); });
        QCOMPARE(j.lines(), shown);
        d.pick(u"Cmb_2"_s, u"16"_s);
        d.click(u"Cmd_0"_s);
        QCOMPARE(j.t.dialogs.texts(), QStringList(2, u"没有符合条件的数据！"_s));
        QCOMPARE(j.t.dialogs.shown().at(1).title, QString());
        QCOMPARE(j.lines() + j.lines(u"Lst2"_s), QStringList());
        QVERIFY(d.w<QPushButton>(u"Cmd_0"_s)->isEnabled());
        QVERIFY(d.w<QPushButton>(u"CmdWait"_s)->isHidden());
    }

    // Each filter and sort on the sample day, set as control=entry pairs: its clause, whether the
    // balance column stays, the entries listed.
    void filtersAndSorts_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("filters");
        QTest::addColumn<QString>("clauses");
        QTest::addColumn<bool>("balance");
        QTest::addColumn<QString>("ids");
        const QString byItem = u" order by Item,TM,ID "_s;
        const QString all = u"A02 A03 A04 A05 A07 A09 A10"_s;
        for (const QString& b : backends()) {
            const auto row = [&](const QString& filters, const QString& clauses, bool balance,
                                 const QString& ids) {
                QTest::newRow(qPrintable(b + u'/' + filters)) << b << filters << clauses << balance << ids;
            };
            // Cleaned of blanks and apostrophes; the server compares items without letter case.
            row(u"CmbItm= a型'螺丝 "_s, u" And Item='a型螺丝' "_s + byItem, true, u"A02 A03"_s);
            row(u"CmbItm=型螺;CmbGX1=包含"_s, u" And Item like '%型螺%' "_s + byItem, true,
                u"A02 A03 A04 A05"_s);
            row(u"CmbItm=%;CmbGX1=包含"_s, u" And Item like '%%%' "_s + byItem, true, all);
            row(u"CmbItm=全部物品"_s, byItem, true, all);
            row(u"CmbSL=增加"_s, u" And SL>=0 "_s + byItem, false, u"A02 A04 A07 A09 A10"_s);
            row(u"CmbSL=减少"_s, u" And SL<0 "_s + byItem, false, u"A03 A05"_s);
            row(u"TxtBZ=计划'外"_s, u" And Bz like '%计划外%' "_s + byItem, false, u"A03"_s);
            row(u"TxtBZ=_"_s, u" And Bz like '%_%' "_s + byItem, false, u"A02 A03 A04 A07"_s);
            row(u"CmbUsr=张三"_s, u" And Usr = '张三' "_s + byItem, false, u"A03 A04"_s);
            row(u"CmbSort=时间"_s, u" order by TM,ID "_s, false, u"A07 A02 A03 A04 A09 A10 A05"_s);
            row(u"CmbSort=数值"_s, u" order by SL desc,Item,TM "_s, false, u"A02 A09 A10 A07 A04 A03 A05"_s);
        }
    }
    void filtersAndSorts()
    {
        QFETCH(QString, backend);
        QFETCH(QString, filters);
        QFETCH(QString, clauses);
        QFETCH(bool, balance);
        QFETCH(QString, ids);
        JournalWindow j(backend);
        for (const QString& set : filters.split(u';')) {
            const QString control = set.section(u'=', 0, 0);
            auto* list = qobject_cast<QComboBox*>(j.d.w<QWidget>(control));
            if (list && !list->isEditable())
                j.d.pick(control, set.section(u'=', 1));
            else
                j.d.type(control, set.section(u'=', 1));
        }
        j.d.click(u"Cmd_0"_s);

        QCOMPARE(j.t.dialogs.texts(), QStringList());
        QCOMPARE(j.window->lastStatement(), head + u"15 00:00'  And TM<='2026-11-15 23:59' "_s + clauses);
        QCOMPARE(j.ids(), split(ids));
        const QStringList shown = j.lines();
        QCOMPARE(cells(shown.at(1)).contains(u"存量"_s), balance);
        // Entry and totals lines: three text cells, two amounts, the balance in balance mode, the remark.
        QCOMPARE(cells(shown.at(5)).size(), balance ? 7 : 6);
        QCOMPARE(cells(shown.at(shown.size() - 3)).size(), balance ? 7 : 6);
    }

    // A ledger without entries, the period lists, and a window opened while the server is down.
    void emptyLedgerAndPeriods_data() { addBackendRows(); }
    void emptyLedgerAndPeriods()
    {
        QFETCH(QString, backend);
        JournalWindow j(backend, false);
        const WindowDriver& d = j.d;
        QCOMPARE(d.w<QComboBox>(u"CmbItm"_s)->count(), 0);
        d.click(u"Cmd_0"_s);
        QCOMPARE(j.t.dialogs.texts(), QStringList{u"这个账本还没有录入任何记录，不能进行报表统计！"_s});
        QVERIFY(j.window->lastStatement().isEmpty());

        // Picking any list of a period end keeps its day inside the month.
        const auto days = [&](const QString& set, const QString& list, const QString& entry) {
            d.pick(set + list, entry);
            return d.text(set + u"_2"_s);
        };
        for (const QString& set : {u"Cmb"_s, u"Cmb2"_s}) {
            QCOMPARE(d.text(set + u"_0"_s) + d.text(set + u"_1"_s) + d.text(set + u"_2"_s), u"20261115"_s);
            QCOMPARE(days(set, u"_2"_s, u"31"_s), u"30"_s); // November
            days(set, u"_1"_s, u"12"_s);
            QCOMPARE(days(set, u"_2"_s, u"31"_s), u"31"_s);
            QCOMPARE(days(set, u"_1"_s, u"06"_s), u"30"_s);
            QCOMPARE(days(set, u"_1"_s, u"02"_s), u"28"_s);
            days(set, u"_0"_s, u"2028"_s);
            QCOMPARE(days(set, u"_2"_s, u"31"_s), u"29"_s);
            QCOMPARE(days(set, u"_0"_s, u"2027"_s), u"28"_s);
            QCOMPARE(days(set, u"_3"_s, u"05"_s), u"28"_s);
        }
        // Ten years back, twenty ahead; 24 hours, 60 minutes.
        QCOMPARE(d.w<QComboBox>(u"Cmb_0"_s)->itemText(0) + d.w<QComboBox>(u"Cmb2_0"_s)->itemText(30),
                 u"20162046"_s);
        QCOMPARE(d.w<QComboBox>(u"Cmb_3"_s)->itemText(23), u"23"_s);
        QCOMPARE(d.w<QComboBox>(u"Cmb2_4"_s)->count(), 60);

        // Opened while the server is down, the item list comes from the session.
        j.t.session.items = {u"A型螺丝"_s};
        j.serverDown([&] {
            MxLst offline(j.context);
            QCOMPARE(WindowDriver(&offline).w<QComboBox>(u"CmbItm"_s)->itemText(1), u"A型螺丝"_s);
            QCOMPARE(WindowDriver(&offline).w<QComboBox>(u"CmbItm"_s)->count(), 2);
        });
    }

    // The rights of late entry, modify and delete (positions 10 to 12), and the single delete: its
    // question, the tombstone, a server that is down, and the listing run again on the same line.
    void editCommands_data() { addBackendRows(); }
    void editCommands()
    {
        QFETCH(QString, backend);
        JournalWindow j(backend);
        const WindowDriver& d = j.d;
        TestContext& t = j.t;
        d.click(u"Cmd_0"_s);
        d.click(u"Cmd_5"_s);      // nothing selected
        d.clickLine(u"Lst"_s, 1); // the titles: no entry behind it
        d.click(u"Cmd_5"_s);
        QCOMPARE(t.dialogs.texts(), QStringList(2, u"请首先选择您要删除的记录行！"_s));
        t.dialogs.clear();
        t.session.setRights(u"1111111110001111"_s); // the query needs no right
        d.click(u"Cmd_0"_s);
        j.select(u"A02"_s);
        for (const QString& name : {u"Cmd_3"_s, u"Cmd_4"_s, u"Cmd_5"_s})
            d.click(name);
        d.doubleClickLine(u"Lst"_s, j.rowOf(u"A03"_s));
        QCOMPARE(t.dialogs.texts(), QStringList(4, u"对不起，您无此权限！"_s));
        QVERIFY(!j.editor());
        QCOMPARE(j.value(u"select count(*) from Zhang where ZBID='L1'"_s), u"10"_s);
        // One right granted alone opens only its own command.
        t.dialogs.clear();
        t.session.setRights(u"1111111111011111"_s);
        d.click(u"Cmd_4"_s);
        d.click(u"Cmd_3"_s);
        QCOMPARE(t.dialogs.texts(), QStringList{u"对不起，您无此权限！"_s});
        QVERIFY(j.editor());
        QCOMPARE(j.editor()->windowTitle(), u"漏账补录"_s);
        WindowDriver(j.editor()).click(u"Cmd_2"_s);
        t.session.setRights(QString());

        const int row = j.rowOf(u"A03"_s);
        j.select(u"A03"_s);
        t.dialogs.clear();
        t.dialogs.queueAnswer(DialogAnswer::No);
        d.click(u"Cmd_5"_s);
        QCOMPARE(t.dialogs.texts(), QStringList{u"真的要删除这条记录吗？"_s});
        QCOMPARE(t.dialogs.shown().at(0).icon, DialogIcon::Question);
        QCOMPARE(t.dialogs.shown().at(0).buttons, DialogButtons::YesNo);
        QCOMPARE(t.dialogs.shown().at(0).defaultAnswer, DialogAnswer::No);
        QCOMPARE(j.ids().size(), 7);

        const QStringList before = j.lines();
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        j.serverDown([&] { d.click(u"Cmd_5"_s); });
        QCOMPARE(t.dialogs.lastText(), u"连接服务器失败，请重试！"_s);
        QCOMPARE(t.dialogs.shown().constLast().title, u"提示"_s);
        QCOMPARE(j.lines(), before);
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->currentRow(), row);
        QVERIFY(d.w<QPushButton>(u"Cmd_5"_s)->isEnabled());

        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click(u"Cmd_5"_s);
        QCOMPARE(t.dialogs.shown().size(), 4);
        QCOMPARE(j.entry(u"A03"_s),
                 (QList<QStringList>{{u"管理员#L1#2026-11-15 09:05"_s, u"张三"_s, u"2026-11-15 09:00"_s,
                                      u"A型螺丝"_s, u"-2.5"_s, u"计划外"_s}}));
        // The listing was run again and the selection stays on the same line.
        QCOMPARE(j.ids(), split(u"A02 A04 A05 A07 A09 A10"_s));
        QCOMPARE(d.w<QListWidget>(u"Lst"_s)->currentRow(), row);
        QCOMPARE(j.lines(u"Lst2"_s).at(row), u"A04"_s);
    }
};

QTEST_MAIN(TestMxLst)
#include "tst_mxlst.moc"
