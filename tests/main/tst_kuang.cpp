#include "Announcement.h"
#include "KuangDriver.h"
#include "LedgerList.h"
#include "TestContext.h"
#include "ZbTyp.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {
const QStringList kRetry{u"提示"_s, kRetryText};

QString setting(const Settings& settings, const QString& section, const QString& key)
{
    return settings.read(AppConstants::settingsApp(), section, key);
}
// The "FR" key of a section: the selected ledger, the automatic opening and login, the last operator.
QString fr(const TestContext& t, const QString& section)
{
    return setting(t.settings, section, u"FR"_s);
}

// The title and the text of the last message shown.
QStringList lastMessage(const TestContext& t)
{
    const auto shown = t.dialogs.shown().value(t.dialogs.shown().size() - 1);
    return {shown.title, shown.text};
}

// The last message was this question, with No as its default answer.
void checkAsked(const TestContext& t, const QString& text, DialogIcon icon)
{
    const auto asked = t.dialogs.shown().constLast();
    QCOMPARE(asked.text, text);
    QCOMPARE(asked.icon, icon);
    QCOMPARE(asked.defaultAnswer, DialogAnswer::No);
}

// A ledger row on the server with one operator, remembered in the local list.
void prepareLedger(TestContext& t, const QString& id, const QString& name, const QString& op = u"管理员"_s,
                   const QString& password = QString(), const QString& rights = QString())
{
    t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
           u"('%1','%2','物品','存量','自已注册','2026-11-15','','','','您好！')"_s.arg(id, name));
    t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('%1','%2','%3',%4)"_s.arg(
        id, op, password, rights.isNull() ? u"NULL"_s : u'\'' + rights + u'\''));
    RememberLedger(t, id, name);
}

// Registers a ledger of goods from the list's add entry (named, or with the proposed name) and
// answers Yes to opening it now.
void registerLedger(TestContext& t, const KuangDriver& d, const QString& id, const QString& name = {})
{
    d.activate();
    t.dialogs.queueAnswer(DialogAnswer::Yes);
    whenModal([id, name](const WindowDriver& z) {
        QVERIFY(qobject_cast<ZbTyp*>(z.window()));
        z.type(u"TxtZbID"_s, id);
        if (!name.isEmpty())
            saveScreenshot(z.window(), u"zbtyp.png"_s);
        z.click(u"Cmd_3"_s);
        if (!name.isEmpty())
            z.type(u"TxtZbNm"_s, name);
        z.act(u"Cmd_5;Opt_1;Cmd_0"_s);
    });
    d.pick(u"CmbZbNm"_s, LedgerList::addEntryText());
}
} // namespace

// The main window: the ledger list, opening a ledger, operator login, quick entry and the menus.
class TestKuang : public QObject
{
    Q_OBJECT
private slots:
    // The local ledger list shrinks entry by entry down to none, then gets a first new ledger, which
    // opens, logs in and takes posts.
    void ledgerList_data() { addBackendRows(); }
    void ledgerList()
    {
        TestContext t(rowBackend());
        RememberLedger(t, u"A1"_s, u"甲"_s);
        const QStringList more{u"#坏"_s, u"ab@x.cn#乙"_s, u"C3#丙"_s};
        for (int i = 0; i < more.size(); ++i)
            t.settings.write(AppConstants::settingsApp(), u"FR"_s, QString::number(i + 1) + u'Z', more.at(i));
        t.settings.write(AppConstants::settingsApp(), u"ZBID"_s, u"FR"_s, u"ab@x.cn"_s);
        t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL) values ('ab@x.cn','乙','物品','存量')"_s);
        KuangDriver d(t.context());
        QCOMPARE(d.text(u"CmbZbNm"_s), u"乙"_s);

        // Removing asks first, then selects the ledger before the removed one.
        const auto stored = [&t](int n) { return setting(t.settings, u"FR"_s, QString::number(n) + u'Z'); };
        const auto remove = [&t, &d](DialogAnswer answer) {
            t.dialogs.queueAnswer(answer);
            d.click(u"Cmd2"_s);
        };
        remove(DialogAnswer::No);
        checkAsked(t, u"真的要删除《乙》这个账本吗？"_s, DialogIcon::Question);
        QCOMPARE(stored(1), u"#坏"_s);
        remove(DialogAnswer::Yes);
        QCOMPARE((QStringList{d.text(u"CmbZbNm"_s), stored(0), stored(1), fr(t, u"ZBID"_s)}),
                 (QStringList{u"甲"_s, u"A1#甲"_s, u"C3#丙"_s, QString()}));
        remove(DialogAnswer::Yes);
        QCOMPARE(d.text(u"CmbZbNm"_s), u"丙"_s);
        remove(DialogAnswer::Yes);
        d.click(u"Cmd2"_s);
        QCOMPARE(t.dialogs.lastText(), u"没有账本可删除！"_s);
        d.post();
        QCOMPARE(lastMessage(t), (QStringList{u"提示"_s, u"请首先按提示增加账本，然后再【打开账本】！"_s}));

        d.click(u"Chk"_s);
        saveScreenshot(d.window(), u"open-ledger.png"_s);
        registerLedger(t, d, u"13800000001"_s, u"五金仓库"_s);
        checkAsked(t, u"已经把账本【五金仓库】加入账本列表框，\n是否现在就打开该账本？"_s,
                   DialogIcon::Information);
        QCOMPARE((QStringList{stored(0), fr(t, u"ZBID"_s), fr(t, u"AutoOpen"_s), d.text(u"CmbUser"_s)}),
                 (QStringList{u"13800000001#五金仓库"_s, u"13800000001"_s, u"1"_s, u"管理员"_s}));
        QVERIFY(!d.w<QCheckBox>(u"Chk"_s)->isChecked());
        saveScreenshot(d.window(), u"login.png"_s);
        d.post();
        QCOMPARE(d.text(u"labHello"_s) + fr(t, u"AutoLogin"_s), u"您好！，管理员0"_s);

        d.enter(u"螺丝"_s, u"+10"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：10"_s);
        d.type(u"Txt"_s, u"-"_s);
        saveScreenshot(d.window(), u"entry.png"_s);
    }

    // What the server says when a ledger opens, and automatic login without a password.
    void openingAnswers_data() { addBackendRows(); }
    void openingAnswers()
    {
        TestContext t(rowBackend());
        prepareLedger(t, u"L9"_s, u"通知账本"_s);
        t.exec(u"delete from UsrLst where ZBID='L9'"_s);
        t.exec(u"update Zblst set Cmd='notice', Msg='今晚维护' where ZBid='L9'"_s);
        KuangDriver d(t.context());
        d.pick(u"CmbZbNm"_s, u"通知账本"_s);
        d.post();
        QCOMPARE(t.dialogs.texts(), QStringList{u"今晚维护"_s});
        // A ledger without operators gets its administrator on first open.
        QCOMPARE(t.text(u"select Usr,PWD from UsrLst where ZBID='L9'"_s), u"管理员|"_s);

        d.click(u"Chk"_s);
        d.post();
        QCOMPARE(t.dialogs.lastText(),
                 u"管理员，您好！您还没有设置密码！\n只有设置密码后才可以设置自动登入！"_s);
        QCOMPARE(d.panel(), Kuang::EntryPanel);
        QCOMPARE(fr(t, u"AutoLogin"_s), QString());

        const auto reopen = [&d] {
            d.chooseMenu(u"CmdMenu"_s, u"Menu_BackZB"_s);
            QCOMPARE(d.text(u"CmbZbID"_s), u"L9"_s);
            d.post();
        };
        t.exec(u"update Zblst set Msg='http://example.com/notice' where ZBid='L9'"_s);
        reopen();
        QCOMPARE(t.dialogs.shown().size(), 2);
        // An address as the command opens once: the server's date replaces it.
        t.exec(u"update Zblst set Cmd='Http://example.com/once', Msg='' where ZBid='L9'"_s);
        reopen();
        reopen();
        QCOMPARE(t.shell.openedUrls,
                 (QStringList{u"http://example.com/notice"_s, u"Http://example.com/once"_s}));
        QCOMPARE(t.text(u"select Cmd from Zblst where ZBid='L9'"_s), u"2026-11-15"_s);

        t.exec(u"update Zblst set Cmd='STOP', Msg='账本已停用' where ZBid='L9'"_s);
        reopen();
        QCOMPARE(lastMessage(t), (QStringList{QString(), u"账本已停用\n\n打开账本操作失败！"_s}));
        QCOMPARE(d.panel(), Kuang::OpenLedgerPanel);
        QVERIFY(d.w<QPushButton>(u"Cmd"_s)->isEnabled() && !d.w<QPushButton>(u"CmdWait"_s)->isVisible());
        // A failed opening leaves the automatic opening as it was.
        d.click(u"Chk"_s);
        t.setServerDown(true);
        d.post();
        QCOMPARE(fr(t, u"AutoOpen"_s), u"0"_s);
        t.setServerDown(false);
        t.exec(u"delete from Zblst where ZBid='L9'"_s);
        d.post();
        QCOMPARE(lastMessage(t), (QStringList{u"提示"_s, u"服务器上不存在该账本！"_s}));
    }

    // Operator login: the exact password, the rights, remembered passwords and automatic login.
    void passwordsAndRemembering_data() { addBackendRows(); }
    void passwordsAndRemembering()
    {
        TestContext t(rowBackend());
        prepareLedger(t, u"L1"_s, u"甲账本"_s, u"张三"_s, u"Secret"_s, u"1000"_s);
        KuangDriver d(t.context());
        d.press(u"CmbZbNm"_s, Qt::Key_Return); // Enter opens the ledger as the post button does
        d.type(u"TxtPwd"_s, u"secret"_s);
        d.post();
        QCOMPARE(lastMessage(t), (QStringList{u"提示"_s, u"密码错误，您不能登入！"_s}));
        QCOMPARE(QString::number(d.panel()) + fr(t, u"L1"_s), QString::number(Kuang::LoginPanel));

        // Ticking automatic login ticks remember-password; clearing remember clears automatic login.
        d.click(u"Chk"_s);
        QVERIFY(d.w<QCheckBox>(u"Chk2"_s)->isChecked());
        d.click(u"Chk2"_s);
        QVERIFY(!d.w<QCheckBox>(u"Chk"_s)->isChecked());
        d.click(u"Chk2"_s);
        d.type(u"TxtPwd"_s, u"Secret"_s);
        // Another tool took the entries away: a login whose items cannot be read stays on its panel as it
        // was and remembers nothing.
        t.alter({u"alter table Zhang rename to Away"_s});
        d.post();
        QCOMPARE(lastMessage(t), kRetry);
        QCOMPARE(QString::number(d.panel()) + d.text(u"TxtPwd"_s) + fr(t, u"L1"_s) +
                     setting(t.settings, u"FR"_s, u"张三#L1"_s),
                 QString::number(Kuang::LoginPanel) + u"Secret"_s);
        QVERIFY(d.w<QLabel>(u"labHello"_s)->isHidden() && d.w<QCheckBox>(u"Chk2"_s)->isChecked());
        t.alter({u"alter table Away rename to Zhang"_s});
        d.press(u"TxtPwd"_s, Qt::Key_Return);
        QCOMPARE(t.session.rights(), u"1000111111111111"_s);
        QCOMPARE(
            (QStringList{setting(t.settings, u"FR"_s, u"张三#L1"_s), fr(t, u"AutoLogin"_s), fr(t, u"L1"_s)}),
            (QStringList{u"Secret"_s, u"0"_s, u"张三"_s}));

        // Back at the login, picking the operator brings back the remembered password.
        d.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
        QVERIFY(d.text(u"TxtPwd"_s).isEmpty());
        d.pick(u"CmbUser"_s, u"张三"_s);
        QCOMPARE(d.text(u"TxtPwd"_s), u"Secret"_s);
        QVERIFY(d.w<QCheckBox>(u"Chk2"_s)->isChecked());
        d.click(u"Chk"_s);
        d.post();
        QCOMPARE(fr(t, u"AutoLogin"_s), u"1"_s);

        // Next time the ledger opens by itself and the operator logs in by himself.
        d.chooseMenu(u"CmdMenu"_s, u"Menu_BackZB"_s);
        d.click(u"Chk"_s);
        d.post();
        QCOMPARE(QString::number(d.panel()) + fr(t, u"AutoOpen"_s), u"21"_s);
        d.kuang.reset();
        KuangDriver next(t.context());
        QTRY_COMPARE(next.panel(), Kuang::EntryPanel);
        QCOMPARE(next.text(u"labHello"_s), u"您好！，张三"_s);

        // An operator removed on the server cannot log in.
        next.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
        t.exec(u"delete from UsrLst where ZBID='L1'"_s);
        next.post();
        QCOMPARE(t.dialogs.lastText(), u"服务器已经删除【张三】这个操作员！"_s);
        QCOMPARE(next.panel(), Kuang::LoginPanel);

        // A ledger registered now opens with its own operators, not 张三's.
        next.chooseMenu(u"CmdMenu"_s, u"Menu_BackZB"_s);
        registerLedger(t, next, u"13800000002"_s);
        QCOMPARE(next.w<QComboBox>(u"CmbUser"_s)->count(), 1);
        next.post();
        QCOMPARE(t.session.operatorName() + QString::number(next.panel()), u"管理员2"_s);
    }

    // Quick entry: rights, refusals, cleaning, the item box, the quantity line and the reports.
    void quickEntry_data() { addBackendRows(); }
    void quickEntry()
    {
        TestContext t(rowBackend());
        prepareLedger(t, u"L1"_s, u"甲"_s, u"管理员"_s, QString(), u"100110"_s);
        t.exec(
            u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
            u"('L1','管理员','2026-11-01 08:00','N11010000001','垫片',7.5,''),('L1','x','','E1','screw',40,'')"_s);
        KuangDriver d(t.context());
        d.logIn();
        const auto relogin = [&t, &d](const QString& rights) {
            t.exec(u"update UsrLst set QX='%1' where ZBID='L1'"_s.arg(rights));
            d.chooseMenu(u"CmdMenu"_s, u"Menu_Login"_s);
            d.post();
        };
        d.enter(u"螺丝"_s, u"+5"_s);
        QCOMPARE(lastMessage(t), (QStringList{u"提示"_s, u"对不起，您没有【记账】的权限！"_s}));
        QCOMPARE(d.text(u"Txt"_s), u"+5"_s);
        relogin(u"1101"_s);
        d.enter(u"螺丝"_s, u"-5"_s);
        QCOMPARE(lastMessage(t), (QStringList{QString(), u"对不起，您只能记录存量增加的账目！"_s}));
        d.enter(u"螺丝"_s, u"+3 到货"_s);

        // Enter in the item box moves on to the quantity box; typed digits get their sign.
        relogin(u"1111"_s);
        auto* items = d.w<QComboBox>(u"Cmb"_s);
        d.type(u"Cmb"_s, u"it's 𠀀😀,大│─号"_s);
        d.press(u"Cmb"_s, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), d.w<QLineEdit>(u"Txt"_s));
        QCOMPARE(d.text(u"Lab4"_s), u"新物品"_s);
        d.type(u"Txt"_s, u".5 备注'甲,乙│丙 - 丁"_s);
        QCOMPARE(d.text(u"Txt"_s), u"+0.5 备注'甲,乙│丙 - 丁"_s);
        d.post();
        QCOMPARE(items->itemText(items->count() - 1), u"its 𠀀😀，大|-号"_s);
        d.enter(u"垫片"_s, u"-2 长"_s);
        // Refused posts wrote nothing; what was posted is stored cleaned.
        QCOMPARE(t.rows(u"select ITEM,BZ from Zhang where ZBID='L1' and USR<>'x' and ID<>'N11010000001' "
                        u"order by SL"_s),
                 (QList<QStringList>{{u"垫片"_s, u"长"_s},
                                     {u"its 𠀀😀，大|-号"_s, u"备注甲，乙丙-丁"_s},
                                     {u"螺丝"_s, u"到货"_s}}));

        // Picking an item asks the server for its total.
        d.pick(u"Cmb"_s, u"its 𠀀😀，大|-号"_s);
        QCOMPARE(d.text(u"Lab4"_s) + QString::number(d.w<QLabel>(u"Lab5"_s)->isVisible()),
                 u"当前存量：0.50"_s);
        d.pick(u"Cmb"_s, u"垫片"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：5.5"_s);
        // Switched off, the line only invites a look.
        t.settings.write(u"L1"_s, u"管理员"_s, u"AutoShowSL"_s, u"False"_s);
        relogin(u"1111"_s);
        d.pick(u"Cmb"_s, u"垫片"_s);
        d.enter(u"垫片"_s, u"+1"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"点击这里查看存量"_s);
        // A click on the line looks once, or switches the display back on for this operator.
        d.chooseMenu(u"Lab4"_s, u"Menu_SeeSL"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：6.5"_s);
        d.chooseMenu(u"Lab4"_s, u"Menu_AutoShowSet"_s);
        QCOMPARE(d.w<QAction>(u"Menu_AutoShowSet"_s)->text() +
                     t.settings.read(u"L1"_s, u"管理员"_s, u"AutoShowSL"_s),
                 u"自动显示存量True"_s);
        d.enter(u"垫片"_s, u"+1"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：7.5"_s);

        // Each report opens once, in a window of its own, however often it is asked for.
        for (const auto& [entry, window] : {std::pair{u"Menu_JxcMx"_s, u"MxLst"_s},
                                            {u"Menu_JxcHZ"_s, u"HzLst"_s},
                                            {u"Menu_SumSL"_s, u"KcLst"_s}}) {
            for (int twice = 0; twice < 2; ++twice) {
                d.chooseMenu(u"CmdRpt"_s, entry);
                d.activate();
            }
            const auto opened = d.kuang->findChildren<QWidget*>(window);
            QCOMPARE(opened.size(), 1);
            QVERIFY(opened.first()->isVisible() && opened.first()->isWindow());
        }

        // The item is exactly the typed text; leaving the box matches a whole item in any letter case,
        // and a new item starts its running total afresh. Destroying the window while the box holds an
        // item's text and the focus runs none of its handlers.
        d.activate();
        d.type(u"Cmb"_s, u"SCREW"_s);
        d.press(u"Cmb"_s, Qt::Key_Tab);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：40"_s);
        d.type(u"Cmb"_s, u"scr"_s);
        d.press(u"Cmb"_s, Qt::Key_Tab);
        QCOMPARE(d.text(u"Cmb"_s) + d.text(u"Lab4"_s), u"scr新物品"_s);
        d.act(u"Txt=+3;Cmd"_s);
        QCOMPARE(d.text(u"Lab4"_s), u"当前存量：3"_s);
        d.type(u"Cmb"_s, u"scr"_s);
        d.kuang.reset();
        QCOMPARE(t.text(u"select ITEM,SL from Zhang where ITEM like 'scr%' order by SL"_s),
                 u"scr|3;screw|40"_s);
    }

    // The ledger menu, each entry behind its right, and the help menu; one's own rights saved take
    // effect at once; an announcement published by one client shows at the next; closing and the tray.
    void menusAndTray_data() { addBackendRows(); }
    void menusAndTray()
    {
        TestContext t(rowBackend());
        prepareLedger(t, u"L1"_s, u"五金仓库"_s);
        KuangDriver d(t.context());
        d.logIn();

        t.dialogs.queueAnswer(DialogAnswer::Yes);
        d.chooseMenu(u"CmdMenu"_s, u"Menu_SeeZbID"_s);
        QCOMPARE(t.dialogs.shown().at(0).title, u"账本ID"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{u"您的账本《五金仓库》在服务器上的ID号是：\n         L1\n"
                                                 u"请牢记这个ID号，以便在其他电脑上使用时凭此连接账本。\n"
                                                 u"是否需要复制这个ID号，以便您直接粘贴到需要的位置？"_s,
                                                 u"已经复制“L1”！\n您可以粘贴到您需要的位置！"_s}));
        QCOMPARE(t.shell.clipboard, u"L1"_s);

        // A new name reaches the server, the title and this computer's list; a failed update keeps
        // the old name everywhere.
        const auto rename = [&d](const QString& name) {
            whenModal([name](const WindowDriver& z) {
                z.act(u"TxtZbNm="_s + name);
                z.press(u"TxtZbNm"_s, Qt::Key_Return);
            });
            d.chooseMenu(u"CmdMenu"_s, u"Menu_ReName"_s);
        };
        t.setServerDown(true);
        rename(u"总仓"_s);
        QCOMPARE(lastMessage(t), kRetry);
        t.setServerDown(false);
        QCOMPARE(d.kuang->windowTitle() + setting(t.settings, u"FR"_s, u"0Z"_s),
                 u"五金仓库 - 岚舟云记账软件L1#五金仓库"_s);
        rename(u"总仓's,1"_s);
        QCOMPARE(t.text(u"select ZbNm from ZbLst where ZBid='L1'"_s), u"总仓s，1"_s);
        QCOMPARE(d.kuang->windowTitle() + setting(t.settings, u"FR"_s, u"0Z"_s),
                 u"总仓s，1 - 岚舟云记账软件L1#总仓s，1"_s);

        // New labels show at once in the captions and the hint.
        whenModal([](const WindowDriver& z) { z.act(u"Opt_0;Cmd_0"_s); });
        d.chooseMenu(u"CmdMenu"_s, u"Menu_ZbTyp"_s);
        QCOMPARE(t.text(u"select Item,SL from ZbLst where ZBid='L1'"_s), u"账户|余额"_s);
        QCOMPARE(d.text(u"Lab1"_s) + d.text(u"Lab2"_s), u"账户余额增减"_s);
        QVERIFY(d.text(u"Lab3"_s).startsWith(u"    请输入或选择账户，然后输入余额变动情况。"_s));

        // Rename, type and operators need right 1, the password right 14, the announcement right 16, the
        // balance list right 5, the journal 6 and the summary 7. The report entries carry the labels.
        t.dialogs.clear();
        QString captions;
        for (const auto& [right, menu, entry] : {std::tuple{1, u"CmdMenu"_s, u"Menu_ReName"_s},
                                                 {1, u"CmdMenu"_s, u"Menu_ZbTyp"_s},
                                                 {1, u"CmdMenu"_s, u"Menu_Guanli"_s},
                                                 {14, u"CmdMenu"_s, u"Menu_ReSetPwd"_s},
                                                 {16, u"CmdMenu"_s, u"Menu_GongGao"_s},
                                                 {5, u"CmdRpt"_s, u"Menu_SumSL"_s},
                                                 {6, u"CmdRpt"_s, u"Menu_JxcMx"_s},
                                                 {7, u"CmdRpt"_s, u"Menu_JxcHZ"_s}}) {
            QString rights(Rights::count, u'1');
            rights[right - 1] = u'0';
            t.session.setRights(rights);
            d.chooseMenu(menu, entry);
            captions += menu == u"CmdRpt"_s ? d.w<QAction>(entry)->text() : QString();
        }
        QCOMPARE(t.dialogs.texts(), QStringList(8, kNoRightText));
        QCOMPARE(captions, u"账户余额表账户流水账账户汇总表"_s);
        t.session.setRights(QString());
        t.dialogs.clear();
        whenModal([](const WindowDriver& g) { g.act(u"Cmd_2;Chk_13;Cmd_0;Cmd_1"_s); });
        d.chooseMenu(u"CmdMenu"_s, u"Menu_Guanli"_s);
        d.chooseMenu(u"CmdMenu"_s, u"Menu_ReSetPwd"_s);
        QCOMPARE(t.dialogs.texts(), (QStringList{u"保存成功！"_s, kNoRightText}));
        QCOMPARE(t.text(u"select QX from UsrLst where ZBID='L1'"_s), u"1111111111111011"_s);

        whenModal([](const WindowDriver& g) { g.act(u"Txt=今晚盘点;Lab_1;Cmd_0"_s); });
        d.chooseMenu(u"CmdMenu"_s, u"Menu_GongGao"_s);
        const Announcement published = Announcement::Parse(t.text(u"select GongGao from ZbLst"_s));
        QCOMPARE(published.text, u"今晚盘点"_s);
        QCOMPARE(d.text(u"Lab3"_s), published.text);
        saveScreenshot(d.window(), u"announcement.png"_s);
        {
            Session other;
            KuangDriver b(AppContext{other, *t.db, t.dialogs, t.shell, t.clock, t.settings});
            b.logIn();
            QCOMPARE(b.text(u"Lab3"_s), u"今晚盘点"_s);
            QVERIFY(b.w<QLabel>(u"Lab3"_s)->styleSheet().contains(published.colour.name()));
        }
        d.activate();
        whenModal([](const WindowDriver& g) { g.act(u"Cmd_2"_s); });
        d.chooseMenu(u"CmdMenu"_s, u"Menu_GongGao"_s);
        QVERIFY(d.text(u"Lab3"_s).startsWith(u"    请输入或选择账户"_s));
        QCOMPARE(t.text(u"select GongGao from ZbLst"_s), QString());

        d.chooseMenu(u"CmdHelp"_s, u"Menu_About"_s);
        const auto about = t.dialogs.shown().constLast();
        QCOMPARE(about.title + about.text.section(u'\n', 0, 0), u"关于本软件岚舟云记账软件 FR2.0"_s);
        QCOMPARE(about.icon, DialogIcon::Application);
        d.chooseMenu(u"CmdHelp"_s, u"Menu_ToWeb"_s);
        QCOMPARE(t.shell.openedUrls, QStringList{AppConstants::webSite()});
        d.click(u"CmdMenu"_s);
        saveScreenshot(QApplication::activePopupWidget(), u"menus.png"_s);
        QApplication::activePopupWidget()->close();

        // No keeps the program in the tray; a left click brings it back, a right click its menu;
        // Yes from the tray menu ends it.
        QSignalSpy ending(d.kuang.get(), &Kuang::programEnding);
        t.dialogs.queueAnswer(DialogAnswer::No);
        d.kuang->close();
        QCOMPARE(t.dialogs.lastText(), u"您确定要退出《岚舟云记账软件》吗？\n"
                                       u"点击<是>退出本软件，点击<否>本窗口将缩小为右下角托盘图标。"_s);
        QCOMPARE(t.dialogs.shown().constLast().icon, DialogIcon::Question);
        QVERIFY(!d.kuang->isVisible() && t.shell.trayVisible);
        t.shell.clickTray(Qt::LeftButton);
        QVERIFY(d.kuang->isVisible());
        d.kuang->showMinimized();
        QTRY_VERIFY(!d.kuang->isVisible());
        t.shell.clickTray(Qt::RightButton);
        auto* trayMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(trayMenu && trayMenu->objectName() == u"traymenu"_s);
        t.dialogs.queueAnswer(DialogAnswer::Yes);
        trayMenu->findChild<QAction*>(u"MenuExit"_s)->trigger();
        trayMenu->close();
        QCOMPARE(ending.count(), 1);
        QVERIFY(!t.shell.trayVisible);
        QCOMPARE(d.panel(), Kuang::EntryPanel);
    }
};

QTEST_MAIN(TestKuang)
#include "tst_kuang.moc"
