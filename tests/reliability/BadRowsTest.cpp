// Rows that other clients could have written: NULL quantities, items and labels, posting times in a
// wrong form, rights strings too long or with other characters than 0 and 1. Every window opens on
// them and shows what is stored.
#include "AppConstants.h"
#include "Figures.h"
#include "KuangDriver.h"
#include "TestContext.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace lanzhou::test {

namespace {

// Ledger B1 (物品, 存量) with rows of every odd kind; ledger B2 without labels. Operator 甲 holds a
// rights string of 40 characters (all 16 rights, zeros beyond), 乙 one with letters among the ones.
const QString kFixture[] = {
    u"insert into Zblst (ZBid,ZbNm,Item,SL,Msg) values ('B1','坏行账本','物品','存量','您好！')"_s,
    u"insert into Zblst (ZBid,ZbNm,Item,SL,Msg) values ('B2','无标签账本',NULL,NULL,'您好！')"_s,
    u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('B1','甲','','1111111111111111000000000000000000000000')"_s,
    u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('B1','乙','','1Y1x1111111111A1')"_s,
    u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
    "('B1','甲','2026-11-02 08:00','R1','螺丝',NULL,'空数量'),"
    "('B1','甲','2026/11/1','R2','螺丝',2,'斜线'),"
    "('B1','甲','','R3','螺丝',3,'空时间'),"
    "('B1','甲','abc','R4','螺丝',4,'字母'),"
    "('B1','甲','2026-11-03','R5','螺丝',5,'无时刻'),"
    "('B1','甲','2026-11-04 10:00','R6',NULL,6,'无物品'),"
    "('B1','甲','2026-11-05 10:00','R7','螺丝',10,'正常')"_s,
};

// The cells of the journal line behind an entry ID.
QString entryLine(const WindowDriver& j, const QString& id)
{
    return CellTexts(j.lines(u"Lst"_s).value(j.lines(u"Lst2"_s).indexOf(id)));
}

// The cells of every line of a report that has cells, lines joined by line breaks.
QString tableCells(const WindowDriver& report)
{
    QStringList cells;
    for (const QString& line : report.lines(u"Lst"_s))
        if (line.contains(QChar(0x2502)))
            cells.append(CellTexts(line));
    return cells.join(u'\n');
}

} // namespace

class BadRowsTest : public QObject
{
    Q_OBJECT
private slots:
    void badRows_data() { addBackendRows(everyServerSetting()); }
    void badRows();
};

void BadRowsTest::badRows()
{
    QFETCH(QString, backend);
    const auto check = [&backend](bool ok) { return Figures::count(u"bad-rows"_s, backend, ok); };
#define CHECK_EQUAL(actual, expected)                                                                        \
    QVERIFY2(check((actual) == (expected)), qPrintable(u"%1 <> %2"_s.arg(actual, expected)))
    TestContext t(backend);
    for (const QString& statement : kFixture)
        t.exec(statement);
    const QString app = AppConstants::settingsApp();
    t.settings.write(app, u"FR"_s, u"0Z"_s, u"B1#坏行账本"_s);
    t.settings.write(app, u"FR"_s, u"1Z"_s, u"B2#无标签账本"_s);
    t.settings.write(app, u"ZBID"_s, u"FR"_s, u"B2"_s);
    t.knowServerDate();

    KuangDriver d(t.context());

    // A ledger whose labels are NULL: the labels read as empty texts.
    d.logIn(u"管理员"_s);
    d.enter(u"螺丝"_s, u"+1"_s);
    CHECK_EQUAL(d.text(u"Lab2"_s) + u'|' + d.text(u"Lab4"_s) + u'|' + d.text(u"Lab5"_s),
                u"增减|当前：1|+1  已保存！"_s);

    // 乙: "Y" in position 2 refuses increases, "x" in position 4 hides the quantity.
    d.chooseMenu(u"CmdMenu"_s, u"Menu_BackZB"_s);
    d.pick(u"CmbZbNm"_s, u"坏行账本"_s);
    d.logIn(u"乙"_s);
    d.enter(u"螺丝"_s, u"+5"_s);
    d.enter(u"螺丝"_s, u"-2"_s);
    CHECK_EQUAL(t.dialogs.texts().join(u'|'), u"对不起，您只能记录存量减少的账目！"_s);
    CHECK_EQUAL(d.text(u"Lab4"_s) + d.text(u"Lab5"_s), u"-2  已保存！"_s);

    // 甲: the 40 characters are kept; only the first 16 count. The item list holds no nameless item,
    // and picking the item shows the server's sum, NULL quantities adding nothing.
    d.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
    d.pick(u"CmbUser"_s, u"甲"_s);
    d.post();
    CHECK_EQUAL(t.session.rights(), u"1111111111111111000000000000000000000000"_s);
    auto* items = d.w<QComboBox>(u"Cmb"_s);
    CHECK_EQUAL(QString::number(items->count()) + items->itemText(0), u"1螺丝"_s);
    d.pick(u"Cmb"_s, u"螺丝"_s);
    CHECK_EQUAL(d.text(u"Lab4"_s), u"当前存量：22"_s);
    d.enter(u"螺丝"_s, u"+1"_s);

    // The journal by item with balances from the first of the month: a NULL quantity is 0, a time without
    // hours listed as stored, a NULL item its own group; the empty time counts before the period.
    d.chooseMenu(u"CmdRpt"_s, u"Menu_JxcMx"_s);
    WindowDriver j(d.window()->findChild<QWidget*>(u"MxLst"_s));
    j.act(u"Cmb_2=01;Cmd_0"_s);
    const QString byItem = QStringList{entryLine(j, u"R1"_s), entryLine(j, u"R5"_s), entryLine(j, u"R6"_s),
                                       CellTexts(j.lines(u"Lst"_s).value(j.lines(u"Lst"_s).size() - 3))}
                               .join(u'\n');
    CHECK_EQUAL(byItem, u"甲|2026-11-02 08:00|螺丝|0||3|空数量\n甲|2026-11-03|螺丝|5||8|无时刻\n"
                        "甲|2026-11-04 10:00||6||6|无物品\n||合计：|22|2|23|"_s);
    // By time up to next year: the slashed time sorts after every dashed one and is listed as stored.
    j.act(u"CmbSort=时间;Cmb2_0=2027;Cmd_0"_s);
    const QStringList ids = j.lines(u"Lst2"_s);
    CHECK_EQUAL(ids.filter(u"R"_s).join(u' ') + u'|' + entryLine(j, u"R2"_s),
                u"R1 R5 R6 R7 R2|甲|2026/11/1|螺丝|2||斜线"_s);

    // The entry editor on the slashed time and on the NULL quantity.
    QString edited;
    for (const QString& id : {u"R2"_s, u"R1"_s}) {
        j.doubleClickLine(u"Lst"_s, j.lines(u"Lst2"_s).indexOf(id));
        WindowDriver e(j.window()->findChild<QWidget*>(u"MxEd"_s));
        for (const QString& name :
             {u"CmbItm"_s, u"TxtSL"_s, u"Cmb_0"_s, u"Cmb_1"_s, u"Cmb_2"_s, u"Cmb_3"_s, u"Cmb_4"_s})
            edited += e.text(name) + u' ';
        e.click(u"Cmd_2"_s);
    }
    CHECK_EQUAL(edited, u"螺丝 +2 2026 11 01 00 00 螺丝 +0 2026 11 02 08 00 "_s);

    // The summary and the balance list: NULL quantities add nothing, the NULL item is no item.
    d.activate();
    d.chooseMenu(u"CmdRpt"_s, u"Menu_JxcHZ"_s);
    WindowDriver h(d.window()->findChild<QWidget*>(u"HzLst"_s));
    h.click(u"Cmd_0"_s);
    CHECK_EQUAL(tableCells(h), u"物品|期初存量|增加|减少|期末存量|\n螺丝|3|16|2|17|\n合计：|3|16|2|17|"_s);
    d.activate();
    d.chooseMenu(u"CmdRpt"_s, u"Menu_SumSL"_s);
    WindowDriver k(d.window()->findChild<QWidget*>(u"KcLst"_s));
    k.click(u"Cmd_0"_s);
    CHECK_EQUAL(tableCells(k), u"物品|存量|\n螺丝|23|\n合计：|23|"_s);
    // Its drill-down: the last time "abc" is no date, so the journal keeps its start year.
    k.doubleClickLine(u"Lst"_s, int(k.lines(u"Lst"_s).indexOf(QRegularExpression(u"^螺丝.*"_s))));
    CHECK_EQUAL(j.text(u"CmbItm"_s) + j.text(u"Cmb_0"_s) + j.text(u"Cmb_1"_s) + j.text(u"Cmb_2"_s),
                u"螺丝20260101"_s);

    // The operators: "1" grants, anything else refuses; a long string shows its first 16 positions.
    d.activate();
    QString boxes;
    whenModal([&boxes](const WindowDriver& g) {
        for (int row : {1, 2}) {
            g.clickLine(u"Lst"_s, row);
            for (int i = 0; i < 16; ++i)
                boxes += g.w<QCheckBox>(u"Chk_%1"_s.arg(i))->isChecked() ? u'1' : u'0';
            boxes += u' ';
        }
        g.click(u"Cmd_1"_s);
    });
    d.chooseMenu(u"CmdMenu"_s, u"Menu_Guanli"_s);
    CHECK_EQUAL(boxes, u"1111111111111111 1010111111111101 "_s);
    CHECK_EQUAL(t.dialogs.texts().join(u'|'), u"对不起，您只能记录存量减少的账目！"_s);
#undef CHECK_EQUAL
}

int RunBadRows(int argc, char** argv)
{
    BadRowsTest test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace lanzhou::test

#include "BadRowsTest.moc"
