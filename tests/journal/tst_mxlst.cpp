#include "JournalFixture.h"

#include "Session.h"
#include "TextGrid.h"
#include "TextUtils.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <cmath>
#include <map>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

const QString sampleHead = QStringLiteral("select id ,usr,tm,item,sl,bz  from Zhang Where ZBID='L1'  And "
                                          "TM>='2026-11-15 00:00'  And TM<='2026-11-15 23:59' ");

QStringList lines(MxLst& journal)
{
    QStringList out;
    QListWidget* lst = list(&journal, QStringLiteral("Lst"));
    for (int i = 0; i < lst->count(); ++i)
        out.append(lst->item(i)->text());
    return out;
}

// Where the column bars and rule junctions of a line stand, in twips of the list font.
QList<int> crossings(const TextGrid& grid, const QString& line)
{
    QList<int> at;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (c == QChar(0x2502) || c == QChar(0x253C))
            at.append(qRound(grid.widthTwips(QStringView(line).left(i))));
    }
    return at;
}

} // namespace

// The journal window driven offscreen: filters, statements, the text table and its commands.
class TestMxLst : public QObject
{
    Q_OBJECT
private slots:
    void listingInBalanceMode_data() { addBackendRows(); }
    void listingInBalanceMode()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        AppContext context = t.context();
        MxLst journal(context);
        journal.show();

        QCOMPARE(journal.windowTitle(), QStringLiteral("物品流水账"));
        QCOMPARE(journal.findChild<QLabel*>(QStringLiteral("LabItm"))->text(), QStringLiteral("物品："));
        QComboBox* items = combo(&journal, QStringLiteral("CmbItm"));
        QCOMPARE(items->itemText(0), QStringLiteral("全部物品"));
        QCOMPARE(items->count(), 5); // A, B, C and the one d/D item: tombstones and other ledgers stay out
        QCOMPARE(combo(&journal, QStringLiteral("CmbSort"))->itemText(0), QStringLiteral("物品"));
        QCOMPARE(combo(&journal, QStringLiteral("CmbUsr"))->currentText(), QString());
        QCOMPARE(combo(&journal, QStringLiteral("Cmb_0"))->itemText(0), QStringLiteral("2016"));
        QCOMPARE(combo(&journal, QStringLiteral("Cmb2_0"))->itemText(30), QStringLiteral("2046"));

        click(&journal, QStringLiteral("Cmd_0"));
        QCOMPARE(t.dialogs.shown().size(), 0);
        QCOMPARE(journal.lastStatement(), sampleHead + QStringLiteral(" order by Item,TM,ID "));
        QCOMPARE(listedIds(journal),
                 (QStringList{QStringLiteral("A02"), QStringLiteral("A03"), QStringLiteral("A04"),
                              QStringLiteral("A05"), QStringLiteral("A07"), QStringLiteral("A09"),
                              QStringLiteral("A10")}));

        const QStringList shown = lines(journal);
        QListWidget* ids = list(&journal, QStringLiteral("Lst2"));
        QCOMPARE(ids->count(), shown.size());
        QVERIFY(ids->isHidden());
        // Framed blank, titles, rule, framed blank, rule, 7 entries, rule, totals, rule, framed blank.
        QCOMPARE(shown.size(), 16);
        QCOMPARE(cells(shown.at(1)),
                 (QStringList{QStringLiteral("操作员"), QStringLiteral("时间"), QStringLiteral("物品"),
                              QStringLiteral("增加"), QStringLiteral("减少"), QStringLiteral("存量"),
                              QStringLiteral("备注")}));
        QCOMPARE(cells(shown.at(5)),
                 (QStringList{QStringLiteral("管理员"), QStringLiteral("2026-11-15 08:00"),
                              QStringLiteral("A型螺丝"), QStringLiteral("10"), QString(),
                              QStringLiteral("110"), QStringLiteral("入库")}));
        QCOMPARE(cells(shown.at(6)), (QStringList{QStringLiteral("张三"), QStringLiteral("2026-11-15 09:00"),
                                                  QStringLiteral("A型螺丝"), QString(), QStringLiteral("2.5"),
                                                  QStringLiteral("107.5"), QStringLiteral("计划外")}));
        // Zero is an increase; the end minute is inside the period.
        QCOMPARE(cells(shown.at(7)).mid(3, 3),
                 (QStringList{QStringLiteral("0"), QString(), QStringLiteral("0")}));
        QCOMPARE(cells(shown.at(8)).mid(3, 3),
                 (QStringList{QString(), QStringLiteral("4"), QStringLiteral("-4")}));
        // The long item name is clipped at its column, the remark is not.
        const QStringList longItem = cells(shown.at(9));
        QVERIFY(longItem.at(2).size() < QStringLiteral("C型不锈钢加长垫圈（国标GB97.1规格M12）").size());
        QVERIFY(QStringLiteral("C型不锈钢加长垫圈（国标GB97.1规格M12）").startsWith(longItem.at(2)));
        QCOMPARE(longItem.at(3), QStringLiteral("1.12345679"));
        QCOMPARE(longItem.at(6), QStringLiteral("一条不会被截短的很长很长的备注"));
        // "D型弹簧" and "d型弹簧" are one item: one opening balance (5) carried through both.
        QCOMPARE(cells(shown.at(10)).at(5), QStringLiteral("8"));
        QCOMPARE(cells(shown.at(11)).at(5), QStringLiteral("10"));
        QCOMPARE(cells(shown.at(13)),
                 (QStringList{QString(), QString(), QStringLiteral("合计："), QStringLiteral("16.12345679"),
                              QStringLiteral("6.5"), QStringLiteral("114.62345679"), QString()}));
        for (int i : {0, 1, 2, 3, 4, 12, 13, 14, 15})
            QCOMPARE(ids->item(i)->text(), QString());
        QCOMPARE(ids->item(5)->text(), QStringLiteral("A02"));

        // Every bar and rule junction of the six columns stands at the same place on every line.
        const TextGrid grid(TextGrid::listFont());
        const QList<int> columns = crossings(grid, shown.at(1)).mid(0, 6);
        QCOMPARE(columns.size(), 6);
        for (const QString& line : shown)
            QCOMPARE(crossings(grid, line).mid(0, 6), columns);
        QVERIFY(shown.at(2).startsWith(QChar(0x2500)));
        QCOMPARE(list(&journal, QStringLiteral("Lst"))->font().family(), TextGrid::listFont().family());
        saveScreenshot(&journal, QStringLiteral("journal.png"));
    }

    // The balance column against sums computed here from every row of the ledger.
    void balancesAgreeWithTheLedger_data() { addBackendRows(); }
    void balancesAgreeWithTheLedger()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        // A wider period: from 2026-11-02, so that part of November counts as opening balance.
        addEntry(t, QStringLiteral("L1"), QStringLiteral("管理员"), QStringLiteral("2026-11-02 00:00"),
                 QStringLiteral("A12"), QStringLiteral("B型螺母"), QStringLiteral("-30.25"), QString());
        addEntry(t, QStringLiteral("L1"), QStringLiteral("管理员"), QStringLiteral("2026-11-01 23:59"),
                 QStringLiteral("A13"), QStringLiteral("B型螺母"), QStringLiteral("12"), QString());
        AppContext context = t.context();
        MxLst journal(context);
        pick(combo(&journal, QStringLiteral("Cmb_2")), QStringLiteral("02"));
        click(&journal, QStringLiteral("Cmd_0"));

        std::map<QString, double> opening;
        std::map<QString, double> balance;
        double increase = 0;
        double decrease = 0;
        const auto all = t.rows(QStringLiteral("select item,tm,sl,id from Zhang where ZBID='L1'"));
        for (const QStringList& row : all) {
            const QString item = row.at(0).toLower();
            const double sl = row.at(2).toDouble();
            if (row.at(1) < QLatin1String("2026-11-02 00:00"))
                opening[item] += sl;
            else if (row.at(1) <= QLatin1String("2026-11-15 23:59")) {
                balance[item] += sl;
                (sl >= 0 ? increase : decrease) += std::abs(sl);
            }
        }
        double grand = 0;
        for (const auto& [item, moved] : balance)
            grand += opening[item] + moved;

        const QStringList shown = lines(journal);
        QListWidget* ids = list(&journal, QStringLiteral("Lst2"));
        std::map<QString, double> running;
        int entries = 0;
        for (int i = 0; i < shown.size(); ++i) {
            if (ids->item(i)->text().isEmpty())
                continue;
            ++entries;
            const QStringList c = cells(shown.at(i));
            const QString item = c.at(2).toLower();
            if (!running.count(item))
                running[item] = opening[item];
            running[item] += c.at(3).isEmpty() ? -c.at(4).toDouble() : c.at(3).toDouble();
            QCOMPARE(c.at(5), FormatQuantity(running[item]));
        }
        QCOMPARE(entries, 8);
        const QStringList totals = cells(shown.at(shown.size() - 3));
        QCOMPARE(totals.at(3), FormatQuantity(increase));
        QCOMPARE(totals.at(4), FormatQuantity(decrease));
        QCOMPARE(totals.at(5), FormatQuantity(grand));
    }

    // Each filter and sort: its clause, whether the balance column stays, and what is listed.
    void filtersAndSorts_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("relation");
        QTest::addColumn<int>("sign");
        QTest::addColumn<QString>("remark");
        QTest::addColumn<QString>("op");
        QTest::addColumn<int>("sort");
        QTest::addColumn<QString>("clauses");
        QTest::addColumn<bool>("balance");
        QTest::addColumn<QStringList>("ids");
        const QStringList allByItem{QStringLiteral("A02"), QStringLiteral("A03"), QStringLiteral("A04"),
                                    QStringLiteral("A05"), QStringLiteral("A07"), QStringLiteral("A09"),
                                    QStringLiteral("A10")};
        for (const QString& b : backends()) {
            const auto row = [&](const char* name) {
                return &(QTest::newRow(qPrintable(b + QLatin1Char('/') + QLatin1String(name))) << b);
            };
            *row("item equal, other case")
                << QStringLiteral("a型螺丝") << 0 << 0 << QString() << QString() << 0
                << QStringLiteral(" And Item='a型螺丝'  order by Item,TM,ID ") << true
                << QStringList{QStringLiteral("A02"), QStringLiteral("A03")};
            *row("item contains") << QStringLiteral("型螺") << 1 << 0 << QString() << QString() << 0
                                  << QStringLiteral(" And Item like '%型螺%'  order by Item,TM,ID ") << true
                                  << QStringList{QStringLiteral("A02"), QStringLiteral("A03"),
                                                 QStringLiteral("A04"), QStringLiteral("A05")};
            *row("item with apostrophe") << QStringLiteral(" A型'螺丝 ") << 0 << 0 << QString() << QString()
                                         << 0 << QStringLiteral(" And Item='A型螺丝'  order by Item,TM,ID ")
                                         << true << QStringList{QStringLiteral("A02"), QStringLiteral("A03")};
            *row("item percent") << QStringLiteral("%") << 1 << 0 << QString() << QString() << 0
                                 << QStringLiteral(" And Item like '%%%'  order by Item,TM,ID ") << true
                                 << allByItem;
            *row("item underscore") << QStringLiteral("_") << 1 << 0 << QString() << QString() << 0
                                    << QStringLiteral(" And Item like '%_%'  order by Item,TM,ID ") << true
                                    << allByItem;
            *row("all items entry") << QStringLiteral("全部物品") << 0 << 0 << QString() << QString() << 0
                                    << QStringLiteral(" order by Item,TM,ID ") << true << allByItem;
            *row("increases") << QString() << 0 << 1 << QString() << QString() << 0
                              << QStringLiteral(" And SL>=0  order by Item,TM,ID ") << false
                              << QStringList{QStringLiteral("A02"), QStringLiteral("A04"),
                                             QStringLiteral("A07"), QStringLiteral("A09"),
                                             QStringLiteral("A10")};
            *row("decreases") << QString() << 0 << 2 << QString() << QString() << 0
                              << QStringLiteral(" And SL<0  order by Item,TM,ID ") << false
                              << QStringList{QStringLiteral("A03"), QStringLiteral("A05")};
            *row("remark with apostrophe")
                << QString() << 0 << 0 << QStringLiteral("计划'外") << QString() << 0
                << QStringLiteral(" And Bz like '%计划外%'  order by Item,TM,ID ") << false
                << QStringList{QStringLiteral("A03")};
            *row("remark underscore") << QString() << 0 << 0 << QStringLiteral("_") << QString() << 0
                                      << QStringLiteral(" And Bz like '%_%'  order by Item,TM,ID ") << false
                                      << QStringList{QStringLiteral("A02"), QStringLiteral("A03"),
                                                     QStringLiteral("A04"), QStringLiteral("A07")};
            *row("operator") << QString() << 0 << 0 << QString() << QStringLiteral("张三") << 0
                             << QStringLiteral(" And Usr = '张三'  order by Item,TM,ID ") << false
                             << QStringList{QStringLiteral("A03"), QStringLiteral("A04")};
            *row("by time") << QString() << 0 << 0 << QString() << QString() << 1
                            << QStringLiteral(" order by TM,ID ") << false
                            << QStringList{QStringLiteral("A07"), QStringLiteral("A02"),
                                           QStringLiteral("A03"), QStringLiteral("A04"),
                                           QStringLiteral("A09"), QStringLiteral("A10"),
                                           QStringLiteral("A05")};
            *row("by quantity") << QString() << 0 << 0 << QString() << QString() << 2
                                << QStringLiteral(" order by SL desc,Item,TM ") << false
                                << QStringList{QStringLiteral("A02"), QStringLiteral("A09"),
                                               QStringLiteral("A10"), QStringLiteral("A07"),
                                               QStringLiteral("A04"), QStringLiteral("A03"),
                                               QStringLiteral("A05")};
            *row("item and time sort") << QStringLiteral("B型螺母") << 0 << 0 << QString() << QString() << 1
                                       << QStringLiteral(" And Item='B型螺母'  order by TM,ID ") << false
                                       << QStringList{QStringLiteral("A04"), QStringLiteral("A05")};
        }
    }
    void filtersAndSorts()
    {
        QFETCH(QString, backend);
        QFETCH(QString, item);
        QFETCH(int, relation);
        QFETCH(int, sign);
        QFETCH(QString, remark);
        QFETCH(QString, op);
        QFETCH(int, sort);
        QFETCH(QString, clauses);
        QFETCH(bool, balance);
        QFETCH(QStringList, ids);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        AppContext context = t.context();
        MxLst journal(context);
        journal.show();

        QComboBox* items = combo(&journal, QStringLiteral("CmbItm"));
        if (!item.isEmpty()) {
            items->lineEdit()->clear();
            typeText(items->lineEdit(), item);
        }
        pickIndex(combo(&journal, QStringLiteral("CmbGX1")), relation);
        pickIndex(combo(&journal, QStringLiteral("CmbSL")), sign);
        typeText(journal.findChild<QLineEdit*>(QStringLiteral("TxtBZ")), remark);
        if (!op.isEmpty())
            pick(combo(&journal, QStringLiteral("CmbUsr")), op);
        pickIndex(combo(&journal, QStringLiteral("CmbSort")), sort);
        click(&journal, QStringLiteral("Cmd_0"));

        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(journal.lastStatement(), sampleHead + clauses);
        QCOMPARE(listedIds(journal), ids);
        const QStringList shown = lines(journal);
        QCOMPARE(cells(shown.at(1)).contains(QStringLiteral("存量")), balance);
        // Entry and totals lines: three text cells, two amounts, the balance in balance mode, the remark.
        QCOMPARE(cells(shown.at(5)).size(), balance ? 7 : 6);
        QCOMPARE(cells(shown.at(shown.size() - 3)).size(), balance ? 7 : 6);
    }

    void emptyResultsAndEmptyLedger_data() { addBackendRows(); }
    void emptyResultsAndEmptyLedger()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        {
            AppContext context = t.context();
            MxLst empty(context);
            QCOMPARE(combo(&empty, QStringLiteral("CmbItm"))->count(), 0);
            click(&empty, QStringLiteral("Cmd_0"));
            QCOMPARE(t.dialogs.texts(),
                     QStringList{QStringLiteral("这个账本还没有录入任何记录，不能进行报表统计！")});
            QVERIFY(empty.lastStatement().isEmpty());
        }
        addSampleEntries(t);
        t.dialogs.clear();
        AppContext context = t.context();
        MxLst journal(context);
        click(&journal, QStringLiteral("Cmd_0"));
        QCOMPARE(listedIds(journal).size(), 7);

        // A period whose start lies after its end finds nothing, and the old listing goes.
        pick(combo(&journal, QStringLiteral("Cmb_2")), QStringLiteral("16"));
        click(&journal, QStringLiteral("Cmd_0"));
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("没有符合条件的数据！")});
        QCOMPARE(t.dialogs.shown().at(0).title, QString());
        QCOMPARE(list(&journal, QStringLiteral("Lst"))->count(), 0);
        QCOMPARE(list(&journal, QStringLiteral("Lst2"))->count(), 0);
        QVERIFY(button(&journal, QStringLiteral("Cmd_0"))->isEnabled());
        QVERIFY(button(&journal, QStringLiteral("CmdWait"))->isHidden());
    }

    // Picking any list of a period end keeps its day inside the month.
    void dayStaysInsideTheMonth()
    {
        TestContext t;
        openJournalLedger(t);
        AppContext context = t.context();
        MxLst journal(context);
        for (const QString& set : {QStringLiteral("Cmb"), QStringLiteral("Cmb2")}) {
            QComboBox* year = combo(&journal, set + QStringLiteral("_0"));
            QComboBox* month = combo(&journal, set + QStringLiteral("_1"));
            QComboBox* day = combo(&journal, set + QStringLiteral("_2"));
            QComboBox* hour = combo(&journal, set + QStringLiteral("_3"));
            QCOMPARE(year->currentText(), QStringLiteral("2026"));
            QCOMPARE(month->currentText(), QStringLiteral("11"));
            QCOMPARE(day->currentText(), QStringLiteral("15"));
            pick(day, QStringLiteral("31"));
            QCOMPARE(day->currentText(), QStringLiteral("30")); // November
            pick(month, QStringLiteral("12"));
            pick(day, QStringLiteral("31"));
            QCOMPARE(day->currentText(), QStringLiteral("31"));
            pick(month, QStringLiteral("06"));
            QCOMPARE(day->currentText(), QStringLiteral("30"));
            pick(month, QStringLiteral("02"));
            QCOMPARE(day->currentText(), QStringLiteral("28"));
            pick(year, QStringLiteral("2028"));
            pick(day, QStringLiteral("31"));
            QCOMPARE(day->currentText(), QStringLiteral("29"));
            pick(year, QStringLiteral("2027"));
            QCOMPARE(day->currentText(), QStringLiteral("28"));
            pick(hour, QStringLiteral("05"));
            QCOMPARE(day->currentText(), QStringLiteral("28"));
        }
        QCOMPARE(combo(&journal, QStringLiteral("Cmb_3"))->itemText(23), QStringLiteral("23"));
        QCOMPARE(combo(&journal, QStringLiteral("Cmb2_4"))->count(), 60);
    }

    void rightsGuardTheEdits_data() { addBackendRows(); }
    void rightsGuardTheEdits()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        // Late entry, modify and delete refused (positions 10 to 12); the query needs no right.
        t.session.setRights(QStringLiteral("1111111110001111"));
        AppContext context = t.context();
        MxLst journal(context);
        journal.show();
        click(&journal, QStringLiteral("Cmd_0"));
        clickLine(list(&journal, QStringLiteral("Lst")), rowOfEntry(journal, QStringLiteral("A02")));
        for (const QString& name :
             {QStringLiteral("Cmd_3"), QStringLiteral("Cmd_4"), QStringLiteral("Cmd_5")})
            click(&journal, name);
        doubleClickLine(list(&journal, QStringLiteral("Lst")), rowOfEntry(journal, QStringLiteral("A03")));
        QCOMPARE(t.dialogs.texts(), QStringList(4, QStringLiteral("对不起，您无此权限！")));
        QVERIFY(!openEditor(journal));
        QCOMPARE(t.rows(QStringLiteral("select count(*) from Zhang where ZBID='L1'")).at(0).at(0),
                 QStringLiteral("10"));

        // One right granted alone opens only its own command.
        t.dialogs.clear();
        t.session.setRights(QStringLiteral("1111111111011111"));
        click(&journal, QStringLiteral("Cmd_4"));
        click(&journal, QStringLiteral("Cmd_3"));
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("对不起，您无此权限！")});
        QVERIFY(openEditor(journal));
        QCOMPARE(openEditor(journal)->windowTitle(), QStringLiteral("漏账补录"));
    }

    // Command 5 deletes the selected entry through the editor's question and tombstone.
    void deleteSelectedEntry_data() { addBackendRows(); }
    void deleteSelectedEntry()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        AppContext context = t.context();
        MxLst journal(context);
        journal.show();
        click(&journal, QStringLiteral("Cmd_0"));
        QListWidget* lst = list(&journal, QStringLiteral("Lst"));

        click(&journal, QStringLiteral("Cmd_5"));
        clickLine(lst, 1); // the titles: no entry behind it
        click(&journal, QStringLiteral("Cmd_5"));
        QCOMPARE(t.dialogs.texts(), QStringList(2, QStringLiteral("请首先选择您要删除的记录行！")));

        const int row = rowOfEntry(journal, QStringLiteral("A03"));
        clickLine(lst, row);
        t.dialogs.clear();
        t.dialogs.queueAnswer(DialogAnswer::No);
        click(&journal, QStringLiteral("Cmd_5"));
        QCOMPARE(t.dialogs.shown().size(), 1);
        QCOMPARE(t.dialogs.shown().at(0).text, QStringLiteral("真的要删除这条记录吗？"));
        QCOMPARE(t.dialogs.shown().at(0).icon, DialogIcon::Question);
        QCOMPARE(t.dialogs.shown().at(0).buttons, DialogButtons::YesNo);
        QCOMPARE(t.dialogs.shown().at(0).defaultAnswer, DialogAnswer::No);
        QCOMPARE(listedIds(journal).size(), 7);

        t.dialogs.queueAnswer(DialogAnswer::Yes);
        click(&journal, QStringLiteral("Cmd_5"));
        QCOMPARE(t.dialogs.shown().size(), 2);
        QCOMPARE(t.rows(QStringLiteral("select ZBID,USR,TM,ITEM,SL,BZ from Zhang where ID='A03'")),
                 (QList<QStringList>{{QStringLiteral("管理员#L1#2026-11-15 09:05"), QStringLiteral("张三"),
                                      QStringLiteral("2026-11-15 09:00"), QStringLiteral("A型螺丝"),
                                      QStringLiteral("-2.5"), QStringLiteral("计划外")}}));
        QVERIFY(!listedIds(journal).contains(QStringLiteral("A03")));
        // The listing was run again and the selection stays on the same line.
        QCOMPARE(lst->currentRow(), row);
        QCOMPARE(list(&journal, QStringLiteral("Lst2"))->item(row)->text(), QStringLiteral("A04"));
    }

    // A server that is down: the query says so and keeps the listing, a delete keeps the entry.
    void serverDown_data() { addBackendRows(); }
    void serverDown()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        openJournalLedger(t);
        addSampleEntries(t);
        AppContext context = t.context();
        MxLst journal(context);
        journal.show();
        click(&journal, QStringLiteral("Cmd_0"));
        const QStringList before = lines(journal);
        const int row = rowOfEntry(journal, QStringLiteral("A02"));
        clickLine(list(&journal, QStringLiteral("Lst")), row);

        Database dead(unreachableConfig(QStringLiteral("postgresql")));
        std::swap(*t.db, dead);
        click(&journal, QStringLiteral("Cmd_0"));
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        click(&journal, QStringLiteral("Cmd_5"));
        std::swap(*t.db, dead);

        QCOMPARE(t.dialogs.texts(), (QStringList{QStringLiteral("没有符合条件的数据！"),
                                                 QStringLiteral("真的要删除这条记录吗？"),
                                                 QStringLiteral("连接服务器失败，请重试！")}));
        QCOMPARE(t.dialogs.shown().at(2).title, QStringLiteral("提示"));
        QCOMPARE(lines(journal), before);
        QCOMPARE(list(&journal, QStringLiteral("Lst"))->currentRow(), row);
        QCOMPARE(t.rows(QStringLiteral("select ZBID from Zhang where ID='A02'")).at(0).at(0),
                 QStringLiteral("L1"));
        QVERIFY(button(&journal, QStringLiteral("Cmd_0"))->isEnabled());
        QVERIFY(button(&journal, QStringLiteral("Cmd_5"))->isEnabled());

        // Opened while the server is down, the item list comes from the session.
        t.session.items = {QStringLiteral("A型螺丝")};
        AppContext deadContext{t.session, dead, t.dialogs, t.shell, t.clock, t.settings};
        MxLst offline(deadContext);
        QComboBox* items = combo(&offline, QStringLiteral("CmbItm"));
        QCOMPARE(items->count(), 2);
        QCOMPARE(items->itemText(1), QStringLiteral("A型螺丝"));
    }
};

QTEST_MAIN(TestMxLst)
#include "tst_mxlst.moc"
