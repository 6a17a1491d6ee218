#include "KuangDriver.h"

#include "AppConstants.h"

#include <QApplication>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {
// Logs the operator in again after his rights changed on the server.
void relogin(TestContext& t, KuangDriver& d, const QString& rights)
{
    t.exec(QStringLiteral("update UsrLst set QX='%1' where ZBID='L1'").arg(rights));
    d.chooseMenu("CmdMenu", "Menu_Login");
    d.post();
    QCOMPARE(d.window->panel(), Kuang::EntryPanel);
}

void attempt(KuangDriver& d, const QString& item, const QString& quantity)
{
    d.typeItem(item);
    d.type("Txt", quantity);
    d.post();
}

int entryCount(TestContext& t)
{
    return t.rows(QStringLiteral("select ID from Zhang where ZBID='L1'")).size();
}
} // namespace

// Quick entry: refusals, cleaning, the quantity line, a server that goes away, two clients on one ledger.
class TestKuangEntry : public QObject
{
    Q_OBJECT
private slots:
    void refusalsWriteNothing_data() { addBackendRows(); }
    void refusalsWriteNothing()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"), QStringLiteral("管理员"), QString(),
                      QStringLiteral("1001"));
        KuangDriver d(t.context());
        openAndLogin(d);
        attempt(d, QStringLiteral("螺丝"), QStringLiteral("+5"));
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("对不起，您没有【记账】的权限！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QCOMPARE(d.w<QLineEdit>("Txt")->text(), QStringLiteral("+5"));

        relogin(t, d, QStringLiteral("1101"));
        attempt(d, QStringLiteral("螺丝"), QStringLiteral("-5"));
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("对不起，您只能记录存量增加的账目！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QString());
        relogin(t, d, QStringLiteral("1011"));
        attempt(d, QStringLiteral("螺丝"), QStringLiteral("-0"));
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("对不起，您只能记录存量减少的账目！"));

        relogin(t, d, QStringLiteral("1111"));
        const QList<QPair<QString, QString>> refused{
            {QStringLiteral("  "), QStringLiteral("请输入或选择物品！")},
            {QStringLiteral("全部物品"), QStringLiteral("物品中不能包含“全部物品”这样的词！")},
            {QStringLiteral("+"), QStringLiteral("请输入存量增减数字！")},
            {QStringLiteral("+ 5"),
             QStringLiteral("请在存量增减栏输入数字，备注信息请放在数字之后，并用空格隔开！")}};
        for (const auto& [typed, message] : refused) {
            const bool isItem = !typed.startsWith(u'+');
            attempt(d, isItem ? typed : QStringLiteral("螺丝"), isItem ? QStringLiteral("+5") : typed);
            QCOMPARE(t.dialogs.lastText(), message);
        }
        QCOMPARE(entryCount(t), 0);
        QVERIFY(d.w<QPushButton>("Cmd")->isEnabled());
    }

    void cleaningAndQuantityLine_data() { addBackendRows(); }
    void cleaningAndQuantityLine()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"));
        t.exec(QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                              "('L1','管理员','2026-11-01 08:00','N11010000001','垫片',7.5,'')"));
        KuangDriver d(t.context());
        openAndLogin(d);
        QCOMPARE(d.w<QComboBox>("Cmb")->count(), 1);

        // Enter in the item box moves on to the quantity box; typed digits get their sign.
        d.typeItem(QStringLiteral("it's 螺丝,大│─号"));
        QTest::keyClick(d.w<QComboBox>("Cmb"), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), d.w<QLineEdit>("Txt"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("新物品"));
        d.type("Txt", QStringLiteral(".5 备注'甲,乙│丙 - 丁"));
        QCOMPARE(d.w<QLineEdit>("Txt")->text(), QStringLiteral("+0.5 备注'甲,乙│丙 - 丁"));
        d.post();
        QCOMPARE(d.text("Lab5"), QStringLiteral("+0.5  已保存！"));
        QCOMPARE(d.w<QComboBox>("Cmb")->itemText(1), QStringLiteral("its 螺丝，大|-号"));

        const QString longRemark(300, QChar(0x957F));
        d.typeItem(QStringLiteral("𠀀😀"));
        d.type("Txt", QStringLiteral("-2 ") + longRemark);
        d.post();
        d.typeItem(QStringLiteral("垫片"));
        d.w<QLineEdit>("Txt")->setText(QStringLiteral("+1 第一行\n第二行"));
        d.post();
        const auto rows =
            t.rows(QStringLiteral("select ITEM,SL,BZ from Zhang where ZBID='L1' and ID<>'N11010000001' "
                                  "order by SL"));
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows.at(0).at(0), QStringLiteral("𠀀😀"));
        QCOMPARE(rows.at(0).at(2), longRemark);
        QCOMPARE(rows.at(1).at(0), QStringLiteral("its 螺丝，大|-号"));
        QCOMPARE(rows.at(1).at(2), QStringLiteral("备注甲，乙丙-丁"));
        QCOMPARE(rows.at(2).at(2), QStringLiteral("第一行第二行"));

        // Picking an item asks the server for its total; leaving the box in other letters picks it too.
        d.pick("Cmb", QStringLiteral("垫片"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("当前存量：8.5"));
        QVERIFY(!d.w<QLabel>("Lab5")->isVisible());
        d.pick("Cmb", QStringLiteral("𠀀😀"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("当前存量：-2"));

        // Switched off, the line only invites a look.
        t.settings.write(QStringLiteral("L1"), QStringLiteral("管理员"), QStringLiteral("AutoShowSL"),
                         QStringLiteral("False"));
        d.chooseMenu("CmdMenu", "Menu_Login");
        d.post();
        d.pick("Cmb", QStringLiteral("垫片"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("点击这里查看存量"));
        d.type("Txt", QStringLiteral("+1"));
        d.post();
        QCOMPARE(d.text("Lab4"), QStringLiteral("点击这里查看存量"));
    }

    void serverGoneWhilePosting_data() { addBackendRows(); }
    void serverGoneWhilePosting()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"));
        KuangDriver d(t.context());
        openAndLogin(d);
        const DbConfig working = t.db->config();
        *t.db = Database(unreachableConfig(backend));
        attempt(d, QStringLiteral("螺丝"), QStringLiteral("+3 到货"));
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("连接服务器失败，请重试！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QCOMPARE(d.w<QComboBox>("Cmb")->currentText(), QStringLiteral("螺丝"));
        QCOMPARE(d.w<QLineEdit>("Txt")->text(), QStringLiteral("+3 到货"));
        QVERIFY(d.w<QPushButton>("Cmd")->isEnabled());
        QVERIFY(!d.w<QLabel>("Lab5")->isVisible());

        *t.db = Database(working);
        d.post();
        QCOMPARE(d.text("Lab5"), QStringLiteral("+3  已保存！"));
        QCOMPARE(entryCount(t), 1);
    }

    void journalMenu()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"), QStringLiteral("管理员"), QString(),
                      QStringLiteral("111110"));
        KuangDriver d(t.context());
        openAndLogin(d);
        d.chooseMenu("CmdRpt", "Menu_JxcMx");
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("对不起，您无此权限！"));
        QCOMPARE(d.window->findChild<QAction*>(QStringLiteral("Menu_JxcMx"))->text(),
                 QStringLiteral("物品流水账"));
        QVERIFY(d.window->findChildren<QWidget*>(QStringLiteral("MxLst")).isEmpty());

        relogin(t, d, QStringLiteral("111111"));
        d.chooseMenu("CmdRpt", "Menu_JxcMx");
        d.activate();
        d.chooseMenu("CmdRpt", "Menu_JxcMx");
        const auto journals = d.window->findChildren<QWidget*>(QStringLiteral("MxLst"));
        QCOMPARE(journals.size(), 1);
        QVERIFY(journals.first()->isVisible() && journals.first()->isWindow());
    }

    // Two clients on one PostgreSQL ledger see each other's entries once they pick the item again.
    void twoClientsOneLedger()
    {
        TestContext t(QStringLiteral("postgresql"));
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"));
        SecondClient other(t.db->config());
        other.settings.write(AppConstants::settingsApp(), QStringLiteral("FR"), QStringLiteral("0Z"),
                             QStringLiteral("L1#甲"));
        other.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), QStringLiteral("FR"),
                             QStringLiteral("L1"));
        KuangDriver a(t.context());
        openAndLogin(a);
        KuangDriver b(other.context());
        openAndLogin(b);

        a.activate();
        attempt(a, QStringLiteral("螺丝"), QStringLiteral("+10"));
        QCOMPARE(a.text("Lab4"), QStringLiteral("当前存量：10"));
        b.activate();
        attempt(b, QStringLiteral("螺丝"), QStringLiteral("-3"));
        // Its own running total knows only its own post until it asks the server again.
        QCOMPARE(b.text("Lab4"), QStringLiteral("当前存量：-3"));
        b.pick("Cmb", QStringLiteral("螺丝"));
        QCOMPARE(b.text("Lab4"), QStringLiteral("当前存量：7"));
        a.activate();
        a.pick("Cmb", QStringLiteral("螺丝"));
        QCOMPARE(a.text("Lab4"), QStringLiteral("当前存量：7"));
        a.type("Txt", QStringLiteral("+1"));
        a.post();
        QCOMPARE(a.text("Lab4"), QStringLiteral("当前存量：8"));
        QCOMPARE(t.rows(QStringLiteral("select USR from Zhang where ZBID='L1'")).size(), 3);
        QVERIFY(other.dialogs.shown().isEmpty() && t.dialogs.shown().isEmpty());
    }
};

QTEST_MAIN(TestKuangEntry)
#include "tst_kuang_entry.moc"
