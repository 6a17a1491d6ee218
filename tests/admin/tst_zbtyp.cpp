#include "TestContext.h"

#include "DateUtils.h"
#include "LedgerList.h"
#include "ZbTyp.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;

namespace {

template <typename T> T* control(QWidget& window, const QString& name)
{
    T* found = window.findChild<T*>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return found;
}

QLineEdit* box(QWidget& window, const QString& name)
{
    return control<QLineEdit>(window, name);
}

QPushButton* cmd(QWidget& window, int index)
{
    return control<QPushButton>(window, QStringLiteral("Cmd_%1").arg(index));
}

QRadioButton* opt(QWidget& window, int index)
{
    return control<QRadioButton>(window, QStringLiteral("Opt_%1").arg(index));
}

// Which of the three frames is showing: 0 contact, 1 name, 2 type; -1 unless exactly one.
int shownFrame(QWidget& window)
{
    int shown = -1;
    for (int i = 0; i < 3; ++i) {
        if (control<QFrame>(window, QStringLiteral("Frm_%1").arg(i))->isVisible()) {
            if (shown >= 0)
                return -1;
            shown = i;
        }
    }
    return shown;
}

// Types text key by key; characters beyond Latin-1 arrive as key events that carry only their text,
// as an input method delivers them.
void type(QWidget* widget, const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() < 128)
            QTest::keyClick(widget, char(c.unicode()));
        else
            QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void retype(QLineEdit* edit, const QString& text)
{
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    type(edit, text);
}

void pickKind(QWidget& window, const QString& kind)
{
    auto* combo = control<QComboBox>(window, QStringLiteral("CmbLX"));
    const int index = combo->findText(kind);
    QVERIFY(index >= 0);
    combo->setCurrentIndex(index);
}

// Types a contact of the given kind and presses the contact frame's button.
void lookUp(QWidget& window, const QString& kind, const QString& contact)
{
    pickKind(window, kind);
    retype(box(window, QStringLiteral("TxtZbID")), contact);
    QTest::mouseClick(cmd(window, 3), Qt::LeftButton);
}

QString serverToday(Database& db)
{
    return FormatDate(ParseDate(db.RunScalar(QStringLiteral("select Getdate()")), QDate()));
}

const QString kNameHelp = QStringLiteral("请输入账本名称，如：\r"
                                         "   “现金银行收支账”、“库存物品进出账”、\r"
                                         "   “对外应收应付账”、“专项资金消费账”……\r");

} // namespace

class TestZbTyp : public QObject
{
    Q_OBJECT
private slots:
    // The contact is cleaned, written back and checked against its kind before the server is asked;
    // a contact that passes goes on to registration because no ledger has it yet.
    void contactChecks_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("written");
        QTest::addColumn<QString>("message");
        const QString incompleteMobile = QStringLiteral("请完整输入您的手机（或其他联系方式）！");
        const QString mobileLength = QStringLiteral("手机号码应该为11位数字！");
        QTest::newRow("mobile with leading zero and dashes")
            << QStringLiteral("手机") << QStringLiteral("  0138-1234-5678 ") << QStringLiteral("13812345678")
            << QString();
        QTest::newRow("mobile with blanks and letters")
            << QStringLiteral("手机") << QStringLiteral("tel 138 1234 5678") << QStringLiteral("13812345678")
            << QString();
        QTest::newRow("mobile of zeros only")
            << QStringLiteral("手机") << QStringLiteral("0000000") << QString() << incompleteMobile;
        QTest::newRow("mobile with few digits") << QStringLiteral("手机") << QStringLiteral("ab-1234")
                                                << QStringLiteral("1234") << incompleteMobile;
        QTest::newRow("mobile of ten digits") << QStringLiteral("手机") << QStringLiteral("1381234567")
                                              << QStringLiteral("1381234567") << mobileLength;
        QTest::newRow("mobile with country code")
            << QStringLiteral("手机") << QStringLiteral("+86 13812345678") << QStringLiteral("8613812345678")
            << mobileLength;
        QTest::newRow("email without full stop")
            << QStringLiteral("邮箱") << QStringLiteral("zhang@example") << QStringLiteral("zhang@example")
            << QStringLiteral("您输入的  “zhang@example”不是正确的电子邮箱格式 ！");
        QTest::newRow("email without at sign")
            << QStringLiteral("邮箱") << QStringLiteral("zhang.example.cn")
            << QStringLiteral("zhang.example.cn")
            << QStringLiteral("您输入的  “zhang.example.cn”不是正确的电子邮箱格式 ！");
        QTest::newRow("email with full stop first")
            << QStringLiteral("邮箱") << QStringLiteral("a.b@cn") << QStringLiteral("a.b@cn") << QString();
        QTest::newRow("four characters before the email check")
            << QStringLiteral("邮箱") << QStringLiteral("a@b.") << QStringLiteral("a@b.")
            << QStringLiteral("请完整输入您的邮箱（或其他联系方式）！");
        QTest::newRow("four characters before the mobile check")
            << QStringLiteral("手机") << QStringLiteral("0138") << QStringLiteral("0138") << incompleteMobile;
        QTest::newRow("qq cleaned of apostrophe and hash")
            << QStringLiteral("QQ号") << QStringLiteral(" 12'34#5 ") << QStringLiteral("12345") << QString();
        QTest::newRow("qq short after cleaning")
            << QStringLiteral("QQ号") << QStringLiteral("#12#34#") << QStringLiteral("1234")
            << QStringLiteral("请完整输入您的QQ号（或其他联系方式）！");
    }
    void contactChecks()
    {
        QFETCH(QString, kind);
        QFETCH(QString, typed);
        QFETCH(QString, written);
        QFETCH(QString, message);
        TestContext t;
        AppContext context = t.context();
        LedgerList ledgers;
        ZbTyp window(context, ledgers, ZbTyp::Mode::AddLedger);
        window.show();
        QCOMPARE(shownFrame(window), 0);

        lookUp(window, kind, typed);
        QCOMPARE(box(window, QStringLiteral("TxtZbID"))->text(), written);
        if (message.isEmpty()) {
            QCOMPARE(t.dialogs.texts(), QStringList());
            QCOMPARE(shownFrame(window), 1);
            QCOMPARE(t.session.ledgerId, written);
        } else {
            QCOMPARE(t.dialogs.texts(), QStringList{message});
            QCOMPARE(t.dialogs.shown().constFirst().title, QString());
            QCOMPARE(t.dialogs.shown().constFirst().icon, DialogIcon::Information);
            QCOMPARE(shownFrame(window), 0);
            QCOMPARE(t.session.ledgerId, QString());
        }
        QVERIFY(window.isVisible());
        QCOMPARE(ledgers.size(), 0);
        QCOMPARE(t.session.modalResult, QString());
    }

    // A ledger that exists on the server joins the local list, or selects the entry that already
    // holds its ID in any letter case; either way the caller is told "OK".
    void lookupOfExistingLedger_data() { addBackendRows(); }
    void lookupOfExistingLedger()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        AppContext context = t.context();
        t.openLedger(QStringLiteral("13812345678"), QStringLiteral("家庭账"));
        t.openLedger(QStringLiteral("zhang@example.cn"), QStringLiteral("店铺账"));
        t.session.ledgerName.clear();
        LedgerList ledgers;
        ledgers.append({QStringLiteral("Zhang@Example.CN"), QStringLiteral("店铺")});

        // Run modally, as the main window does; Enter in the ID box looks it up.
        ZbTyp adding(context, ledgers, ZbTyp::Mode::AddLedger);
        QTimer::singleShot(0, this, [&] {
            QCOMPARE(QApplication::activeModalWidget(), &adding);
            QLineEdit* id = box(adding, QStringLiteral("TxtZbID"));
            type(id, QStringLiteral("0138-1234-5678"));
            QTest::keyClick(id, Qt::Key_Return);
        });
        QCOMPARE(adding.exec(), int(QDialog::Accepted));
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(ledgers.size(), 2);
        QCOMPARE(ledgers.entries().at(1).id, QStringLiteral("13812345678"));
        QCOMPARE(ledgers.entries().at(1).name, QStringLiteral("家庭账"));
        QCOMPARE(ledgers.selected, 1);

        t.session.modalResult.clear();
        ZbTyp again(context, ledgers, ZbTyp::Mode::AddLedger);
        again.show();
        lookUp(again, QStringLiteral("邮箱"), QStringLiteral("ZHANG@example.cn"));
        QVERIFY(!again.isVisible());
        QCOMPARE(again.result(), int(QDialog::Accepted));
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(ledgers.size(), 2);
        QCOMPARE(ledgers.selected, 0);
        QCOMPARE(ledgers.entries().at(0).name, QStringLiteral("店铺"));
        QCOMPARE(t.dialogs.texts(), QStringList());
        // Looking up never writes.
        QCOMPARE(t.rows(QStringLiteral("select count(*) from ZbLst")).at(0).at(0), QStringLiteral("2"));
    }

    // Registration: contact, name, type, then one ledger row and its first operator.
    void registration_data() { addBackendRows(); }
    void registration()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        AppContext context = t.context();
        const QString today = serverToday(*t.db);
        LedgerList ledgers;
        ledgers.append({QStringLiteral("10001"), QStringLiteral("别人的账")});
        ZbTyp window(context, ledgers, ZbTyp::Mode::AddLedger);
        window.show();

        lookUp(window, QStringLiteral("QQ号"), QStringLiteral("20002"));
        QCOMPARE(shownFrame(window), 1);
        QLineEdit* name = box(window, QStringLiteral("TxtZbNm"));
        QCOMPARE(name->text(), QStringLiteral("我的云账本"));
        QCOMPARE(t.session.ledgerId, QStringLiteral("20002"));

        // An empty name is refused with the frame's own explanation.
        retype(name, QStringLiteral("  "));
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(t.dialogs.texts(), QStringList{kNameHelp});
        QCOMPARE(shownFrame(window), 1);

        retype(name, QStringLiteral(" 小店,进货#账'本 "));
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(name->text(), QStringLiteral("小店，进货账本"));
        QCOMPARE(t.session.ledgerName, QStringLiteral("小店，进货账本"));
        QCOMPARE(shownFrame(window), 2);
        QCOMPARE(t.rows(QStringLiteral("select count(*) from ZbLst")).at(0).at(0), QStringLiteral("0"));

        QTest::mouseClick(opt(window, 2), Qt::LeftButton);
        QVERIFY(opt(window, 2)->isChecked());
        QTest::mouseClick(cmd(window, 0), Qt::LeftButton);

        QCOMPARE(t.dialogs.texts().size(), 1);
        QVERIFY(!window.isVisible());
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(
            t.rows(QStringLiteral("select ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg,Cmd,GongGao "
                                  "from ZbLst")),
            (QList<QStringList>{{QStringLiteral("20002"), QStringLiteral("小店，进货账本"),
                                 QStringLiteral("客户"), QStringLiteral("应收款"), QStringLiteral("自已注册"),
                                 today, QString(), QString(), QString(), QStringLiteral("您好！"), QString(),
                                 QString()}}));
        QCOMPARE(
            t.rows(QStringLiteral("select ZBID,Usr,PWD,QX from UsrLst")),
            (QList<QStringList>{{QStringLiteral("20002"), QStringLiteral("管理员"), QString(), QString()}}));
        // No rights string at all, which grants every right.
        QCOMPARE(t.rows(QStringLiteral("select count(*) from UsrLst where QX is null")).at(0).at(0),
                 QStringLiteral("1"));
        QCOMPARE(t.session.itemLabel, QStringLiteral("客户"));
        QCOMPARE(t.session.quantityLabel, QStringLiteral("应收款"));
        QCOMPARE(ledgers.size(), 2);
        QCOMPARE(ledgers.entries().at(1).id, QStringLiteral("20002"));
        QCOMPARE(ledgers.entries().at(1).name, QStringLiteral("小店，进货账本"));
        QCOMPARE(ledgers.selected, 1);
    }

    // A custom type needs both keywords; without them nothing is written and the frame stays.
    // With no option picked the ledger counts 项目 by 数额.
    void customAndFallbackTypes_data() { addBackendRows(); }
    void customAndFallbackTypes()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        AppContext context = t.context();
        t.openLedger(QStringLiteral("13900000000"), QStringLiteral("五金"));
        LedgerList ledgers;
        ZbTyp window(context, ledgers, ZbTyp::Mode::AddLedger);
        window.show();
        lookUp(window, QStringLiteral("邮箱"), QStringLiteral("li@example.cn"));
        QCOMPARE(box(window, QStringLiteral("TxtZbNm"))->text(), QStringLiteral("新建五金"));
        QTest::mouseClick(cmd(window, 5), Qt::LeftButton);
        QCOMPARE(shownFrame(window), 2);
        QVERIFY(!opt(window, 4)->isChecked());
        QCOMPARE(box(window, QStringLiteral("Txt_0"))->text(), QStringLiteral("物品"));

        // Typing a keyword picks the custom type.
        QLineEdit* item = box(window, QStringLiteral("Txt_0"));
        QLineEdit* quantity = box(window, QStringLiteral("Txt_1"));
        retype(item, QStringLiteral("  桶,装 "));
        QVERIFY(opt(window, 4)->isChecked());
        retype(quantity, QStringLiteral(" ' "));
        QTest::keyClick(quantity, Qt::Key_Return);
        QCOMPARE(t.dialogs.texts(), QStringList{QStringLiteral("如果选择自定义账本类型，请输入关键词！")});
        QCOMPARE(item->text(), QStringLiteral("桶，装"));
        QCOMPARE(quantity->text(), QString());
        QCOMPARE(shownFrame(window), 2);
        QVERIFY(window.isVisible());
        QCOMPARE(t.rows(QStringLiteral("select count(*) from ZbLst where ZBID='li@example.cn'")).at(0).at(0),
                 QStringLiteral("0"));
        QCOMPARE(t.rows(QStringLiteral("select count(*) from UsrLst")).at(0).at(0), QStringLiteral("1"));

        type(quantity, QStringLiteral("升"));
        QTest::keyClick(quantity, Qt::Key_Return);
        QVERIFY(!window.isVisible());
        QCOMPARE(t.rows(QStringLiteral("select ZbNm,Item,SL from ZbLst where ZBID='li@example.cn'")),
                 (QList<QStringList>{
                     {QStringLiteral("新建五金"), QStringLiteral("桶，装"), QStringLiteral("升")}}));

        // The fallback type, on a second registration without a pick.
        t.session.modalResult.clear();
        ZbTyp plain(context, ledgers, ZbTyp::Mode::AddLedger);
        plain.show();
        lookUp(plain, QStringLiteral("QQ号"), QStringLiteral("30003"));
        QTest::mouseClick(cmd(plain, 5), Qt::LeftButton);
        QTest::mouseClick(cmd(plain, 0), Qt::LeftButton);
        QCOMPARE(t.rows(QStringLiteral("select Item,SL from ZbLst where ZBID='30003'")),
                 (QList<QStringList>{{QStringLiteral("项目"), QStringLiteral("数额")}}));
        QCOMPARE(ledgers.size(), 2);
        QCOMPARE(ledgers.selected, 1);
    }

    // The type settings of the open ledger: the current type is picked, saving updates the row.
    void typeSettings_data() { addBackendRows(); }
    void typeSettings()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        AppContext context = t.context();
        t.openLedger(QStringLiteral("L-cash"), QStringLiteral("零用金"), QStringLiteral("账户"),
                     QStringLiteral("余额"));
        t.openLedger(QStringLiteral("L-tools"), QStringLiteral("工具"), QStringLiteral("工具"),
                     QStringLiteral("件数"));
        LedgerList ledgers;

        ZbTyp custom(context, ledgers, ZbTyp::Mode::TypeSettings);
        custom.show();
        QCOMPARE(shownFrame(custom), 2);
        QCOMPARE(box(custom, QStringLiteral("TxtZbID"))->text(), QStringLiteral("L-tools"));
        QCOMPARE(box(custom, QStringLiteral("TxtZbNm"))->text(), QStringLiteral("工具"));
        QVERIFY(opt(custom, 4)->isChecked());
        QCOMPARE(box(custom, QStringLiteral("Txt_1"))->text(), QStringLiteral("件数"));
        retype(box(custom, QStringLiteral("Txt_1")), QStringLiteral("把"));
        QTest::mouseClick(cmd(custom, 0), Qt::LeftButton);
        QVERIFY(!custom.isVisible());
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(t.session.quantityLabel, QStringLiteral("把"));
        QCOMPARE(
            t.rows(QStringLiteral("select ZbNm,Item,SL from ZbLst order by ZBID")),
            (QList<QStringList>{{QStringLiteral("零用金"), QStringLiteral("账户"), QStringLiteral("余额")},
                                {QStringLiteral("工具"), QStringLiteral("工具"), QStringLiteral("把")}}));

        // A predefined type is picked as it stands; choosing another one relabels the ledger.
        t.session.modalResult.clear();
        t.session.ledgerId = QStringLiteral("L-cash");
        t.session.ledgerName = QStringLiteral("零用金");
        t.session.itemLabel = QStringLiteral("账户");
        t.session.quantityLabel = QStringLiteral("余额");
        ZbTyp cash(context, ledgers, ZbTyp::Mode::TypeSettings);
        cash.show();
        QVERIFY(opt(cash, 0)->isChecked());
        QTest::mouseClick(opt(cash, 1), Qt::LeftButton);
        QTest::mouseClick(cmd(cash, 0), Qt::LeftButton);
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(t.session.itemLabel, QStringLiteral("物品"));
        QCOMPARE(t.session.quantityLabel, QStringLiteral("存量"));
        QCOMPARE(
            t.rows(QStringLiteral("select ZbNm,Item,SL from ZbLst where ZBID='L-cash'")),
            (QList<QStringList>{{QStringLiteral("零用金"), QStringLiteral("物品"), QStringLiteral("存量")}}));

        // Closing without saving writes nothing.
        t.session.modalResult.clear();
        ZbTyp closed(context, ledgers, ZbTyp::Mode::TypeSettings);
        closed.show();
        QTest::mouseClick(opt(closed, 3), Qt::LeftButton);
        QTest::mouseClick(cmd(closed, 1), Qt::LeftButton);
        QCOMPARE(closed.result(), int(QDialog::Rejected));
        QCOMPARE(t.session.modalResult, QString());
        QCOMPARE(t.session.itemLabel, QStringLiteral("物品"));
        QCOMPARE(t.rows(QStringLiteral("select Item from ZbLst where ZBID='L-cash'")).at(0).at(0),
                 QStringLiteral("物品"));
        QCOMPARE(t.dialogs.texts(), QStringList());
        QCOMPARE(ledgers.size(), 0);
    }

    // Asking only for a new name: the cleaned name goes to the session, the server is left to the caller.
    void nameOnly()
    {
        TestContext t;
        AppContext context = t.context();
        t.openLedger(QStringLiteral("L1"), QStringLiteral("五金"));
        LedgerList ledgers;
        ZbTyp window(context, ledgers, ZbTyp::Mode::NameOnly);
        window.show();
        QCOMPARE(shownFrame(window), 1);
        QLineEdit* name = box(window, QStringLiteral("TxtZbNm"));
        QCOMPARE(name->text(), QStringLiteral("五金"));

        retype(name, QStringLiteral("#"));
        QTest::mouseClick(cmd(window, 5), Qt::LeftButton);
        QCOMPARE(t.dialogs.texts(), QStringList{kNameHelp});
        QVERIFY(window.isVisible());
        QCOMPARE(t.session.ledgerName, QStringLiteral("五金"));

        retype(name, QStringLiteral(" 五金#2,店 "));
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(!window.isVisible());
        QCOMPARE(t.session.ledgerName, QStringLiteral("五金2，店"));
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(t.rows(QStringLiteral("select ZbNm from ZbLst")).at(0).at(0), QStringLiteral("五金"));

        // Closing the name frame keeps the name.
        t.session.modalResult.clear();
        ZbTyp closed(context, ledgers, ZbTyp::Mode::NameOnly);
        closed.show();
        retype(box(closed, QStringLiteral("TxtZbNm")), QStringLiteral("别的"));
        QTest::mouseClick(cmd(closed, 2), Qt::LeftButton);
        QCOMPARE(closed.result(), int(QDialog::Rejected));
        QCOMPARE(t.session.ledgerName, QStringLiteral("五金2，店"));
        QCOMPARE(t.session.modalResult, QString());
    }

    // A server that is down: the system's message, the window unchanged and ready for a retry.
    void serverDown_data() { addBackendRows(); }
    void serverDown()
    {
        QFETCH(QString, backend);
        TestContext t(backend);
        const DbConfig down = unreachableConfig(QStringLiteral("postgresql"));
        Database db(t.db->config());
        AppContext context{t.session, db, t.dialogs, t.shell, t.clock, t.settings};
        LedgerList ledgers;

        db = Database(down);
        ZbTyp window(context, ledgers, ZbTyp::Mode::AddLedger);
        window.show();
        lookUp(window, QStringLiteral("QQ号"), QStringLiteral("40004"));
        lookUp(window, QStringLiteral("QQ号"), QStringLiteral("40004"));
        QCOMPARE(t.dialogs.texts(), QStringList(2, QStringLiteral("连接服务器失败，请重试！")));
        QCOMPARE(shownFrame(window), 0);
        QCOMPARE(t.session.ledgerId, QString());

        // The server comes back for the lookup and is gone again for the registration.
        db = Database(t.db->config());
        lookUp(window, QStringLiteral("QQ号"), QStringLiteral("40004"));
        QTest::mouseClick(cmd(window, 5), Qt::LeftButton);
        QTest::mouseClick(opt(window, 1), Qt::LeftButton);
        db = Database(down);
        t.dialogs.clear();
        QTest::mouseClick(cmd(window, 0), Qt::LeftButton);
        QCOMPARE(t.dialogs.texts(),
                 QStringList{QStringLiteral("注册新账本失败，请检查网络连接是否正常，然后重试！")});
        QCOMPARE(t.dialogs.shown().constFirst().title, QStringLiteral("提示"));
        QCOMPARE(shownFrame(window), 0);
        QVERIFY(window.isVisible());
        QCOMPARE(t.session.itemLabel, QString());
        QCOMPARE(t.session.modalResult, QString());
        QCOMPARE(ledgers.size(), 0);

        // Retried with the server back, the registration goes through.
        db = Database(t.db->config());
        QTest::mouseClick(cmd(window, 3), Qt::LeftButton);
        QTest::mouseClick(cmd(window, 5), Qt::LeftButton);
        QVERIFY(opt(window, 1)->isChecked());
        QTest::mouseClick(cmd(window, 0), Qt::LeftButton);
        QCOMPARE(t.session.modalResult, QStringLiteral("OK"));
        QCOMPARE(t.rows(QStringLiteral("select ZbNm,Item from ZbLst where ZBID='40004'")),
                 (QList<QStringList>{{QStringLiteral("我的云账本"), QStringLiteral("物品")}}));
        QCOMPARE(ledgers.size(), 1);

        // Type settings that cannot be saved leave the session and the frame as they were.
        t.session.modalResult.clear();
        t.dialogs.clear();
        db = Database(down);
        ZbTyp settings(context, ledgers, ZbTyp::Mode::TypeSettings);
        settings.show();
        QTest::mouseClick(opt(settings, 0), Qt::LeftButton);
        QTest::mouseClick(cmd(settings, 0), Qt::LeftButton);
        QCOMPARE(t.dialogs.texts(),
                 QStringList{QStringLiteral("账本设置保存失败，请检查网络连接是否正常，然后重试！")});
        QCOMPARE(t.dialogs.shown().constFirst().title, QStringLiteral("提示"));
        QCOMPARE(shownFrame(settings), 2);
        QVERIFY(settings.isVisible());
        QVERIFY(opt(settings, 0)->isChecked());
        QCOMPARE(t.session.itemLabel, QStringLiteral("物品"));
        QCOMPARE(t.session.modalResult, QString());
    }

    // The frames lay out their texts unclipped, and the keyword boxes sit over the caption's blanks.
    void layout()
    {
        TestContext t;
        AppContext context = t.context();
        t.openLedger(QStringLiteral("L1"), QStringLiteral("五金"), QStringLiteral("工具"),
                     QStringLiteral("件"));
        LedgerList ledgers;
        ZbTyp adding(context, ledgers, ZbTyp::Mode::AddLedger);
        adding.show();
        QVERIFY(QTest::qWaitForWindowExposed(&adding));
        auto* info = control<QLabel>(adding, QStringLiteral("LabInfo_0"));
        QVERIFY(info->text().startsWith(QStringLiteral("您的数据存放在云端服务器上，称为一个“账本”。")));
        QVERIFY(info->width() >= info->sizeHint().width());
        QVERIFY(info->height() >= info->sizeHint().height());
        // Four lines of explanation, each on its own line.
        QVERIFY(info->sizeHint().height() >= 4 * info->fontMetrics().lineSpacing());
        QVERIFY(info->sizeHint().width() < 2 * info->fontMetrics().horizontalAdvance(QStringLiteral(
                                                   "请准确输入您的手机号码、或QQ号码、或电子邮箱。")));
        QCOMPARE(control<QComboBox>(adding, QStringLiteral("CmbLX"))->count(), 3);

        ZbTyp settings(context, ledgers, ZbTyp::Mode::TypeSettings);
        settings.show();
        QVERIFY(QTest::qWaitForWindowExposed(&settings));
        QRadioButton* custom = opt(settings, 4);
        QCOMPARE(custom->text(), QStringLiteral("自定义账本类型(关键词：         、        )"));
        const QRect option(custom->mapTo(custom->parentWidget(), QPoint()), custom->size());
        const QRect item = box(settings, QStringLiteral("Txt_0"))->geometry();
        const QRect quantity = box(settings, QStringLiteral("Txt_1"))->geometry();
        QVERIFY(option.contains(item));
        QVERIFY(option.contains(quantity));
        QVERIFY(item.right() < quantity.left());
        const QFontMetrics metrics(custom->font());
        QVERIFY(item.left() > metrics.horizontalAdvance(QStringLiteral("自定义账本类型(关键词：")));
        // Room for the longest predefined label.
        QVERIFY(item.width() >= metrics.horizontalAdvance(QStringLiteral("应收款")));
        QVERIFY(quantity.width() >= metrics.horizontalAdvance(QStringLiteral("应收款")));
        for (int i = 0; i < 5; ++i)
            QVERIFY(opt(settings, i)->width() >= opt(settings, i)->sizeHint().width());
    }
};

QTEST_MAIN(TestZbTyp)
#include "tst_zbtyp.moc"
