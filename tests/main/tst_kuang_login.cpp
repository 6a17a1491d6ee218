#include "KuangDriver.h"

#include "AppConstants.h"

#include <QCheckBox>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {
QString setting(TestContext& t, const QString& section, const QString& key)
{
    return t.settings.read(AppConstants::settingsApp(), section, key);
}
void clickBox(KuangDriver& d, const char* name)
{
    QTest::mouseClick(d.w<QCheckBox>(name), Qt::LeftButton);
}
} // namespace

// Operator login: the exact password, the rights, remembered passwords and automatic login.
class TestKuangLogin : public QObject
{
    Q_OBJECT
private slots:
    void passwordsAndRemembering_data() { addBackendRows(); }
    void passwordsAndRemembering()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L1"), QStringLiteral("甲账本"), QStringLiteral("张三"),
                      QStringLiteral("Secret"), QStringLiteral("1000"));
        KuangDriver d(t.context());
        d.post();
        d.type("TxtPwd", QStringLiteral("secret"));
        d.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("密码错误，您不能登入！"));
        QCOMPARE(t.dialogs.shown().constLast().title, QStringLiteral("提示"));
        QCOMPARE(d.window->panel(), Kuang::LoginPanel);
        QVERIFY(d.w<QPushButton>("Cmd")->isEnabled());
        QCOMPARE(setting(t, QStringLiteral("L1"), QStringLiteral("FR")), QString());

        // Ticking automatic login ticks remember-password; clearing remember clears automatic login.
        clickBox(d, "Chk");
        QVERIFY(d.w<QCheckBox>("Chk2")->isChecked());
        clickBox(d, "Chk2");
        QVERIFY(!d.w<QCheckBox>("Chk")->isChecked());
        clickBox(d, "Chk2");
        d.type("TxtPwd", QStringLiteral("Secret"));
        QTest::keyClick(d.w<QLineEdit>("TxtPwd"), Qt::Key_Return);
        QCOMPARE(d.window->panel(), Kuang::EntryPanel);
        QCOMPARE(t.session.rights(), QStringLiteral("1000111111111111"));
        QCOMPARE(t.session.operatorName, QStringLiteral("张三"));
        QCOMPARE(setting(t, QStringLiteral("FR"), QStringLiteral("张三#L1")), QStringLiteral("Secret"));
        QCOMPARE(setting(t, QStringLiteral("AutoLogin"), QStringLiteral("FR")), QStringLiteral("0"));
        QCOMPARE(setting(t, QStringLiteral("L1"), QStringLiteral("FR")), QStringLiteral("张三"));

        // Back at the login, picking the operator brings back the remembered password.
        d.chooseMenu("CmdMenu", "Menu_Login");
        QCOMPARE(d.window->panel(), Kuang::LoginPanel);
        QVERIFY(d.w<QLineEdit>("TxtPwd")->text().isEmpty());
        d.pick("CmbUser", QStringLiteral("张三"));
        QCOMPARE(d.w<QLineEdit>("TxtPwd")->text(), QStringLiteral("Secret"));
        QVERIFY(d.w<QCheckBox>("Chk2")->isChecked());
        clickBox(d, "Chk");
        d.post();
        QCOMPARE(setting(t, QStringLiteral("AutoLogin"), QStringLiteral("FR")), QStringLiteral("1"));

        // Next time the ledger opens by itself and the operator logs in by himself.
        d.chooseMenu("CmdMenu", "Menu_BackZB");
        clickBox(d, "Chk");
        d.post();
        QCOMPARE(d.window->panel(), Kuang::EntryPanel);
        QCOMPARE(setting(t, QStringLiteral("AutoOpen"), QStringLiteral("FR")), QStringLiteral("1"));
        d.window.reset();
        KuangDriver next(t.context());
        QTRY_COMPARE(next.window->panel(), Kuang::EntryPanel);
        QCOMPARE(next.text("labHello"), QStringLiteral("您好！，张三"));

        // An operator removed on the server cannot log in.
        next.chooseMenu("CmdMenu", "Menu_Login");
        t.exec(QStringLiteral("delete from UsrLst where ZBID='L1'"));
        next.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("服务器已经删除【张三】这个操作员！"));
        QCOMPARE(next.window->panel(), Kuang::LoginPanel);
    }

    void automaticLoginNeedsPassword_data() { addBackendRows(); }
    void automaticLoginNeedsPassword()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        prepareLedger(t, QStringLiteral("L2"), QStringLiteral("乙账本"));
        t.settings.write(AppConstants::settingsApp(), QStringLiteral("AutoOpen"), QStringLiteral("FR"),
                         QStringLiteral("1"));
        t.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), QStringLiteral("FR"),
                         QString());
        KuangDriver d(t.context());
        QTest::qWait(20);
        // Without a last ledger nothing opens by itself.
        QCOMPARE(d.window->panel(), Kuang::OpenLedgerPanel);
        d.pick("CmbZbNm", QStringLiteral("乙账本"));
        d.post();
        clickBox(d, "Chk");
        const DbConfig working = t.db->config();
        *t.db = Database(unreachableConfig(backend));
        d.post();
        QCOMPARE(t.dialogs.lastText(), QStringLiteral("连接服务器失败，请重试！"));
        QCOMPARE(d.window->panel(), Kuang::LoginPanel);
        *t.db = Database(working);
        d.post();
        QCOMPARE(t.dialogs.lastText(),
                 QStringLiteral("管理员，您好！您还没有设置密码！\n只有设置密码后才可以设置自动登入！"));
        QCOMPARE(d.window->panel(), Kuang::EntryPanel);
        QCOMPARE(setting(t, QStringLiteral("AutoLogin"), QStringLiteral("FR")), QString());
        QVERIFY(!d.w<QCheckBox>("Chk")->isVisible() && !d.w<QCheckBox>("Chk2")->isVisible());
    }
};

QTEST_MAIN(TestKuangLogin)
#include "tst_kuang_login.moc"
