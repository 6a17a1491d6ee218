// The main window under the hands of a new user: Enter on every panel, the item box taking exactly
// what is typed, a second ledger registered after the first, a login the server half answers, the
// embedded file taken away, and the window closed with a half-typed item.
#include "AppConstants.h"
#include "KuangDriver.h"
#include "LedgerList.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

QString setting(TestContext& t, const QString& section, const QString& key)
{
    return t.settings.read(AppConstants::settingsApp(), section, key);
}

// Runs one statement on the embedded file beside the program, as another tool would.
void alterEmbeddedFile(TestContext& t, const QString& sql)
{
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other-tool"));
        db.setDatabaseName(t.db->config().server.plain());
        QVERIFY(db.open());
        QVERIFY(QSqlQuery(db).exec(sql));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("other-tool"));
}

} // namespace

class TestKuangRobustness : public QObject
{
    Q_OBJECT
private slots:
    void enterPressesThePostButtonOnEveryPanel()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"));
        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.press(QStringLiteral("CmbZbNm"), Qt::Key_Return);
        QCOMPARE(window.panel(), Kuang::LoginPanel);
        d.press(QStringLiteral("TxtPwd"), Qt::Key_Return);
        QCOMPARE(window.panel(), Kuang::EntryPanel);
        d.type(QStringLiteral("Cmb"), QStringLiteral("螺丝"));
        d.press(QStringLiteral("Cmb"), Qt::Key_Enter);
        QCOMPARE(QApplication::focusWidget(), d.w<QWidget>(QStringLiteral("Txt")));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(t.rows(QStringLiteral("select ITEM,SL from Zhang")).size(), 1);
        QCOMPARE(d.text(QStringLiteral("Lab5")), QStringLiteral("+5  已保存！"));
    }

    // The item is exactly the typed text; leaving the box matches a whole item in any letter case, and
    // a new item starts its running total afresh.
    void itemBoxTakesTheTypedText()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"));
        t.exec(QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                              "('L1','管理员','2026-11-01 08:00','E1','screw',40,'')"));
        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.click(QStringLiteral("Cmd"));
        d.click(QStringLiteral("Cmd"));
        d.type(QStringLiteral("Cmb"), QStringLiteral("SCREW"));
        d.press(QStringLiteral("Cmb"), Qt::Key_Tab);
        QCOMPARE(d.text(QStringLiteral("Lab4")), QStringLiteral("当前存量：40"));
        d.type(QStringLiteral("Cmb"), QStringLiteral("scr"));
        d.press(QStringLiteral("Cmb"), Qt::Key_Tab);
        QCOMPARE(d.text(QStringLiteral("Cmb")), QStringLiteral("scr"));
        QCOMPARE(d.text(QStringLiteral("Lab4")), QStringLiteral("新物品"));
        d.type(QStringLiteral("Txt"), QStringLiteral("+3"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(d.text(QStringLiteral("Lab4")), QStringLiteral("当前存量：3"));
        QCOMPARE(t.rows(QStringLiteral("select ITEM from Zhang where SL=3")).value(0),
                 QStringList{QStringLiteral("scr")});
    }

    void registeredLedgerOpensWithItsOwnOperators()
    {
        TestContext t;
        t.session.serverDateText = QStringLiteral("2026-11-15");
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"), QStringLiteral("张三"));
        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.click(QStringLiteral("Cmd"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(window.panel(), Kuang::EntryPanel);
        d.chooseMenu(QStringLiteral("CmdMenu"), QStringLiteral("Menu_BackZB"));

        QTimer::singleShot(0, [] {
            WindowDriver ledgerWindow(QApplication::activeModalWidget());
            ledgerWindow.type(QStringLiteral("TxtZbID"), QStringLiteral("13800000002"));
            ledgerWindow.click(QStringLiteral("Cmd_3"));
            ledgerWindow.type(QStringLiteral("TxtZbNm"), QStringLiteral("杂货店"));
            ledgerWindow.click(QStringLiteral("Cmd_5"));
            ledgerWindow.click(QStringLiteral("Opt_1"));
            ledgerWindow.click(QStringLiteral("Cmd_0"));
        });
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.pick(QStringLiteral("CmbZbNm"), LedgerList::addEntryText());
        QCOMPARE(window.panel(), Kuang::LoginPanel);
        auto* operators = d.w<QComboBox>(QStringLiteral("CmbUser"));
        QCOMPARE(operators->count(), 1);
        QCOMPARE(operators->currentText(), QStringLiteral("管理员"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(window.panel(), Kuang::EntryPanel);
        QCOMPARE(t.session.operatorName, QStringLiteral("管理员"));
    }

    // A password accepted but the items not read: the login panel stays as it was, nothing is
    // remembered, and the next try goes through.
    void loginWithoutItemsStaysForARetry()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"), QStringLiteral("张三"),
                      QStringLiteral("pw"));
        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.click(QStringLiteral("Cmd"));
        d.type(QStringLiteral("TxtPwd"), QStringLiteral("pw"));
        d.click(QStringLiteral("Chk2"));
        alterEmbeddedFile(t, QStringLiteral("alter table Zhang rename to ZhangAway"));
        t.dialogs.clear();
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("连接服务器失败，请重试！")});
        QCOMPARE(window.panel(), Kuang::LoginPanel);
        QVERIFY(!d.w<QLabel>(QStringLiteral("labHello"))->isVisible());
        QCOMPARE(d.text(QStringLiteral("TxtPwd")), QStringLiteral("pw"));
        QVERIFY(d.w<QCheckBox>(QStringLiteral("Chk2"))->isChecked());
        QCOMPARE(setting(t, QStringLiteral("L1"), QStringLiteral("FR")), QString());
        QCOMPARE(setting(t, QStringLiteral("FR"), QStringLiteral("张三#L1")), QString());

        alterEmbeddedFile(t, QStringLiteral("alter table ZhangAway rename to Zhang"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(window.panel(), Kuang::EntryPanel);
        QCOMPARE(setting(t, QStringLiteral("FR"), QStringLiteral("张三#L1")), QStringLiteral("pw"));
    }

    // The embedded file taken away while the program runs: posting fails, and no empty database
    // takes its place.
    void vanishedEmbeddedFileIsAFailure()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"));
        Kuang window(t.context());
        window.show();
        WindowDriver d(&window);
        d.click(QStringLiteral("Cmd"));
        d.click(QStringLiteral("Cmd"));
        const QString file = t.db->config().server.plain();
        for (const QString& suffix : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
            QFile::remove(file + suffix);
        d.type(QStringLiteral("Cmb"), QStringLiteral("螺丝"));
        d.type(QStringLiteral("Txt"), QStringLiteral("+1"));
        d.click(QStringLiteral("Cmd"));
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("连接服务器失败，请重试！"));
        QCOMPARE(d.text(QStringLiteral("Txt")), QStringLiteral("+1"));
        QVERIFY(!QFile::exists(file));
    }

    // Destroying the window (the program ending) while the item box holds a known item's text and the
    // focus runs none of its handlers.
    void destroyedWithAnItemTyped()
    {
        TestContext t;
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("五金仓库"));
        t.exec(QStringLiteral("insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                              "('L1','管理员','2026-11-01 08:00','E1','螺丝',40,'')"));
        auto* window = new Kuang(t.context());
        window->show();
        WindowDriver d(window);
        d.click(QStringLiteral("Cmd"));
        d.click(QStringLiteral("Cmd"));
        d.type(QStringLiteral("Cmb"), QStringLiteral("螺"));
        typeText(d.w<QComboBox>(QStringLiteral("Cmb"))->lineEdit(), QStringLiteral("丝"));
        delete window;
        QCOMPARE(t.rows(QStringLiteral("select ID from Zhang")).size(), 1);
    }
};

QTEST_MAIN(TestKuangRobustness)
#include "tst_kuang_robustness.moc"
