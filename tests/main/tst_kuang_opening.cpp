#include "KuangDriver.h"

#include "AppConstants.h"
#include "LedgerList.h"
#include "ZbTyp.h"

#include <QApplication>
#include <QCheckBox>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {
QString setting(TestContext& t, const QString& section, const QString& key)
{
    return t.settings.read(AppConstants::settingsApp(), section, key);
}

// Runs `steps` on the ledger window as soon as it is shown modally.
void onLedgerWindow(const std::function<void(QWidget*)>& steps)
{
    QTimer::singleShot(0, [steps] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(qobject_cast<ZbTyp*>(dialog));
        steps(dialog);
    });
}

template <class T> T* child(QWidget* parent, const char* name)
{
    return parent->findChild<T*>(QString::fromLatin1(name));
}
} // namespace

// The ledger list, opening a ledger and the server's commands, driven through the main window.
class TestKuangOpening : public QObject
{
    Q_OBJECT
private slots:
    void registerOpenLoginPost_data() { addBackendRows(); }
    void registerOpenLoginPost()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        t.session.serverDateText = QStringLiteral("2026-11-15");
        t.session.serverDateDay = 15;
        KuangDriver d(t.context());
        auto* names = d.w<QComboBox>("CmbZbNm");
        QCOMPARE(names->count(), 1);
        QCOMPARE(names->itemText(0), LedgerList::addEntryText());
        QCOMPARE(d.text("LabTop"), QStringLiteral("岚 舟 云 记 账"));
        QCOMPARE(d.w<QPushButton>("Cmd")->text(), QStringLiteral("打开账本"));
        QVERIFY(!d.w<QComboBox>("Cmb")->isVisible() && !d.w<QComboBox>("CmbZbID")->isVisible());

        d.click("Cmd2");
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("没有账本可删除！"));
        d.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("请首先按提示增加账本，然后再【打开账本】！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QTest::mouseClick(d.w<QCheckBox>("Chk"), Qt::LeftButton);
        saveScreenshot(d.window.get(), QStringLiteral("open-ledger.png"));

        onLedgerWindow([](QWidget* dialog) {
            typeText(child<QLineEdit>(dialog, "TxtZbID"), QStringLiteral("13800000001"));
            saveScreenshot(dialog, QStringLiteral("zbtyp.png"));
            QTest::mouseClick(child<QPushButton>(dialog, "Cmd_3"), Qt::LeftButton);
            auto* name = child<QLineEdit>(dialog, "TxtZbNm");
            name->selectAll();
            typeText(name, QStringLiteral("五金仓库"));
            QTest::mouseClick(child<QPushButton>(dialog, "Cmd_5"), Qt::LeftButton);
            QTest::mouseClick(child<QWidget>(dialog, "Opt_1"), Qt::LeftButton);
            QTest::mouseClick(child<QPushButton>(dialog, "Cmd_0"), Qt::LeftButton);
        });
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.pick("CmbZbNm", LedgerList::addEntryText());

        const auto& question = t.dialogs.shown().constLast();
        QCOMPARE(question.text,
                 QStringLiteral("已经把账本【五金仓库】加入账本列表框，\n是否现在就打开该账本？"));
        QCOMPARE(question.icon, DialogIcon::Information);
        QCOMPARE(question.defaultAnswer, DialogAnswer::No);
        QCOMPARE(d.window->panel(), Kuang::LoginPanel);
        QCOMPARE(setting(t, QStringLiteral("FR"), QStringLiteral("0Z")),
                 QStringLiteral("13800000001#五金仓库"));
        QCOMPARE(setting(t, QStringLiteral("FR"), QStringLiteral("1Z")), QString());
        QCOMPARE(setting(t, QStringLiteral("ZBID"), QStringLiteral("FR")), QStringLiteral("13800000001"));
        QCOMPARE(setting(t, QStringLiteral("AutoOpen"), QStringLiteral("FR")), QStringLiteral("1"));
        QCOMPARE(d.w<QComboBox>("CmbUser")->currentText(), QStringLiteral("管理员"));
        QCOMPARE(d.text("Lab1"), QStringLiteral("操作员"));
        QCOMPARE(d.w<QPushButton>("Cmd")->text(), QStringLiteral(" 登 入"));
        QCOMPARE(d.w<QCheckBox>("Chk")->text(), QStringLiteral("自动登入"));
        QVERIFY(!d.w<QCheckBox>("Chk")->isChecked());
        saveScreenshot(d.window.get(), QStringLiteral("login.png"));

        d.post();
        QCOMPARE(d.window->panel(), Kuang::EntryPanel);
        QCOMPARE(d.text("labHello"), QStringLiteral("您好！，管理员"));
        QCOMPARE(t.session.rights(), QStringLiteral("1111111111111111"));
        QCOMPARE(setting(t, QStringLiteral("13800000001"), QStringLiteral("FR")), QStringLiteral("管理员"));
        QCOMPARE(setting(t, QStringLiteral("AutoLogin"), QStringLiteral("FR")), QStringLiteral("0"));
        QCOMPARE(d.text("Lab2"), QStringLiteral("存量增减"));
        QCOMPARE(d.w<QPushButton>("Cmd")->text(), QStringLiteral(" 记 账 "));

        d.typeItem(QStringLiteral("螺丝"));
        d.leaveItemBox();
        QCOMPARE(d.text("Lab4"), QStringLiteral("新物品"));
        d.type("Txt", QStringLiteral("10"));
        QCOMPARE(d.w<QLineEdit>("Txt")->text(), QStringLiteral("+10"));
        QTest::keyClick(d.w<QLineEdit>("Txt"), Qt::Key_Return);
        QCOMPARE(d.text("Lab5"), QStringLiteral("+10  已保存！"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("当前存量：10"));
        QVERIFY(d.w<QLineEdit>("Txt")->text().isEmpty());

        t.clock.advance(1000);
        d.type("Txt", QStringLiteral("-5 计划外"));
        d.post();
        QVERIFY(d.w<QLabel>("Lab5")->isVisible());
        QCOMPARE(d.text("Lab5"), QStringLiteral("-5  已保存！"));
        QCOMPARE(d.text("Lab4"), QStringLiteral("当前存量：5"));
        QCOMPARE(d.w<QComboBox>("Cmb")->count(), 1);
        d.type("Txt", QStringLiteral("-"));
        saveScreenshot(d.window.get(), QStringLiteral("entry.png"));

        const auto rows = t.rows(
            QStringLiteral("select USR,TM,ID,ITEM,SL,BZ from Zhang where ZBID='13800000001' order by ID"));
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0).mid(0, 4),
                 (QStringList{QStringLiteral("管理员"), QStringLiteral("2026-11-15 09:05"),
                              QStringLiteral("N11153273025"), QStringLiteral("螺丝")}));
        QCOMPARE(rows.at(0).at(4).toDouble(), 10.0);
        QCOMPARE(rows.at(0).at(5), QString());
        QCOMPARE(rows.at(1).at(2), QStringLiteral("N11153273125"));
        QCOMPARE(rows.at(1).at(4).toDouble(), -5.0);
        QCOMPARE(rows.at(1).at(5), QStringLiteral("计划外"));
    }

    void ledgerList_data() { addBackendRows(); }
    void ledgerList()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        const QString app = AppConstants::settingsApp();
        const QStringList stored{QStringLiteral("A1#甲"), QStringLiteral("#坏"), QStringLiteral("ab@x.cn#乙"),
                                 QStringLiteral("无井号"), QStringLiteral("C3#丙")};
        for (int i = 0; i < stored.size(); ++i)
            t.settings.write(app, QStringLiteral("FR"), QString::number(i) + u'Z', stored.at(i));
        t.settings.write(app, QStringLiteral("ZBID"), QStringLiteral("FR"), QStringLiteral("ab@x.cn"));
        t.exec(QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL) values ('ab@x.cn','乙','物品','存量')"));
        KuangDriver d(t.context());
        auto* names = d.w<QComboBox>("CmbZbNm");
        auto* ids = d.w<QComboBox>("CmbZbID");
        QCOMPARE(names->count(), 4);
        QCOMPARE(names->currentText(), QStringLiteral("乙"));
        QCOMPARE(ids->currentText(), QStringLiteral("ab@x.cn"));

        // Adding a ledger already in the list, typed in other letters, selects it.
        d.pick("CmbZbNm", QStringLiteral("甲"));
        onLedgerWindow([](QWidget* dialog) {
            child<QComboBox>(dialog, "CmbLX")->setCurrentIndex(2);
            typeText(child<QLineEdit>(dialog, "TxtZbID"), QStringLiteral("AB@X.CN"));
            QTest::mouseClick(child<QPushButton>(dialog, "Cmd_3"), Qt::LeftButton);
        });
        d.pick("CmbZbNm", LedgerList::addEntryText());
        QCOMPARE(names->count(), 4);
        QCOMPARE(names->currentText(), QStringLiteral("乙"));
        QCOMPARE(ids->currentText(), QStringLiteral("ab@x.cn"));
        QVERIFY(t.dialogs.shown().isEmpty());

        t.dialogs.queueAnswer(DialogAnswer::No);
        d.click("Cmd2");
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("真的要删除《乙》这个账本吗？"));
        QCOMPARE(t.dialogs.shown().constLast().icon, DialogIcon::Question);
        QCOMPARE(t.dialogs.shown().constLast().defaultAnswer, DialogAnswer::No);
        QCOMPARE(names->count(), 4);
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("1Z")), QStringLiteral("#坏"));

        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click("Cmd2");
        QCOMPARE(names->currentText(), QStringLiteral("甲"));
        QCOMPARE(ids->currentText(), QStringLiteral("A1"));
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("0Z")), QStringLiteral("A1#甲"));
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("1Z")), QStringLiteral("C3#丙"));
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("2Z")), QString());
        QCOMPARE(t.settings.read(app, QStringLiteral("ZBID"), QStringLiteral("FR")), QString());

        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.click("Cmd2");
        QCOMPARE(names->currentText(), QStringLiteral("丙"));
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("0Z")), QStringLiteral("C3#丙"));
        QCOMPARE(t.settings.read(app, QStringLiteral("FR"), QStringLiteral("1Z")), QString());
        QVERIFY(t.dialogs.allAnswersUsed());
    }

    void serverCommands_data() { addBackendRows(); }
    void serverCommands()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L9"), QStringLiteral("通知账本"));
        t.exec(QStringLiteral("delete from UsrLst where ZBID='L9'"));
        t.exec(QStringLiteral("update Zblst set Cmd='notice', Msg='今晚维护' where ZBid='L9'"));
        KuangDriver d(t.context());
        const auto reopen = [&d] {
            d.chooseMenu("CmdMenu", "Menu_BackZB");
            QCOMPARE(d.window->panel(), Kuang::OpenLedgerPanel);
            QCOMPARE(d.w<QComboBox>("CmbZbID")->currentText(), QStringLiteral("L9"));
            d.post();
        };

        d.post();
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("今晚维护")});
        QCOMPARE(d.window->panel(), Kuang::LoginPanel);
        // A ledger without operators gets its administrator on first open.
        QCOMPARE(t.rows(QStringLiteral("select Usr,PWD from UsrLst where ZBID='L9'")),
                 (QList<QStringList>{{QStringLiteral("管理员"), QString()}}));

        t.exec(QStringLiteral("update Zblst set Msg='http://example.com/notice' where ZBid='L9'"));
        reopen();
        QCOMPARE(t.shell.openedUrls, QStringList{QStringLiteral("http://example.com/notice")});
        QCOMPARE(t.dialogs.shown().size(), 1);

        t.exec(QStringLiteral("update Zblst set Cmd='Http://example.com/once', Msg='' where ZBid='L9'"));
        reopen();
        reopen();
        QCOMPARE(t.shell.openedUrls.size(), 2);
        QCOMPARE(t.shell.openedUrls.constLast(), QStringLiteral("Http://example.com/once"));
        QCOMPARE(t.rows(QStringLiteral("select Cmd from Zblst where ZBid='L9'")).value(0).value(0),
                 QStringLiteral("2026-11-15"));

        t.exec(QStringLiteral("update Zblst set Cmd='STOP', Msg='账本已停用' where ZBid='L9'"));
        reopen();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("账本已停用\n\n打开账本操作失败！"));
        QCOMPARE(d.window->panel(), Kuang::OpenLedgerPanel);
        QVERIFY(d.w<QPushButton>("Cmd")->isEnabled());
        QVERIFY(!d.w<QPushButton>("CmdWait")->isVisible());
    }

    void serverDownOrLedgerGone_data() { addBackendRows(); }
    void serverDownOrLedgerGone()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲"));
        const DbConfig working = t.db->config();
        *t.db = Database(unreachableConfig(backend));
        KuangDriver d(t.context());
        d.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("连接服务器失败！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QString());
        QCOMPARE(d.window->panel(), Kuang::OpenLedgerPanel);
        QVERIFY(d.w<QPushButton>("Cmd")->isEnabled());
        QCOMPARE(
            t.settings.read(AppConstants::settingsApp(), QStringLiteral("AutoOpen"), QStringLiteral("FR")),
            QString());

        *t.db = Database(working);
        t.exec(QStringLiteral("delete from Zblst where ZBid='L1'"));
        d.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("服务器上不存在该账本！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QCOMPARE(d.window->panel(), Kuang::OpenLedgerPanel);
    }
};

QTEST_MAIN(TestKuangOpening)
#include "tst_kuang_opening.moc"
