#include "TestContext.h"
#include "WindowDriver.h"

#include "Rights.h"
#include "UsrGL.h"
#include "UsrPwd.h"

#include <QApplication>
#include <QCheckBox>
#include <QTest>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString kAll = u"1111111111111111"_s;

// A ledger "L1" whose logged-in operator is 管理员, with more operators (name, rights) on the server
// and in the session's operator list.
struct Fixture
{
    explicit Fixture(const QString& backend, const QList<QStringList>& more = {}) : t(backend)
    {
        t.openLedger(u"L1"_s, u"家庭账"_s);
        QStringList names{u"管理员"_s};
        for (const QStringList& op : more) {
            t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('L1','%1','','%2')"_s.arg(op[0], op[1]));
            names.append(op[0]);
        }
        t.session.setOperators(names);
    }
    QString row(const QString& name)
    {
        return t.text(u"select Usr,PWD,coalesce(QX,'') from UsrLst where ZBID='L1' and Usr='"_s + name +
                      u'\'');
    }

    TestContext t;
};

// The 16 boxes of an operator window as a rights string.
QString boxes(const WindowDriver& d)
{
    QString s;
    for (int i = 0; i < Rights::count; ++i)
        s += d.w<QCheckBox>(u"Chk_%1"_s.arg(i))->isChecked() ? u'1' : u'0';
    return s;
}

// Makes the server refuse to write the password "down", as a server that goes away right after
// the old row was removed would.
void refusePasswordDown(TestContext& t)
{
    if (t.db->config().kind == ServerKind::Sqlite)
        t.alter({u"create trigger if not exists refuse before insert on UsrLst when "
                 "NEW.PWD='down' begin select raise(fail,'down'); end"_s});
    else
        t.alter({u"set client_min_messages=warning"_s,
                 u"alter table UsrLst drop constraint if exists refuse"_s,
                 u"alter table UsrLst add constraint refuse check (PWD<>'down')"_s});
}

} // namespace

class TestOperators : public QObject
{
    Q_OBJECT
private slots:
    // Browsing, adding, editing, cancelling and deleting operators, with the rows on the server, the
    // session's operator list and every message; a second administrator at the same time, whose save
    // comes last and wins; then one's own rights.
    void manage_data() { addBackendRows(); }
    void manage()
    {
        Fixture f(rowBackend(), {{u"张三"_s, u"0111000000"_s}, {u"李四"_s, QString()}});
        Shown<UsrGL> d(f.t.context());
        QCOMPARE(d.lines(u"Lst"_s), (QStringList{u"    操作员列表"_s, u"管理员"_s, u"张三"_s, u"李四"_s}));
        QCOMPARE(d.text(u"LabZB"_s) + d.text(u"Txt"_s) + boxes(d), u"账本名称：家庭账管理员"_s + kAll);
        d.click(u"Cmd_0"_s);
        QCOMPARE(f.t.said(), QStringList{u"您不能删除您自已！"_s});
        d.clickLine(u"Lst"_s, 2);
        QCOMPARE(boxes(d), u"0111000000111111"_s);
        d.clickLine(u"Lst"_s, 3);
        QCOMPARE(boxes(d), kAll);
        saveScreenshot(d.window(), u"usrgl.png"_s);

        // An addition: refused while empty or a known name, then saved cleaned with the boxes ticked.
        d.click(u"Cmd_3"_s);
        QCOMPARE(d.text(u"Cmd_0"_s) + d.text(u"Cmd_1"_s) + boxes(d), u"保 存取 消0000000000000000"_s);
        QVERIFY(!d.w<QWidget>(u"Cmd_2"_s)->isVisible() && !d.w<QWidget>(u"CmdPwd"_s)->isVisible());
        d.type(u"Txt"_s, u"  "_s);
        d.press(u"Txt"_s, Qt::Key_Return);
        d.act(u"Txt=张三;Cmd_0"_s);
        QCOMPARE(f.t.said(), (QStringList{u"请输入新增的操作员姓名！"_s,
                                          u"账本中已经存在【张三】这个操作员，新增的操作员不能重名！"_s}));
        d.act(u"Txt= 王'五,😀 ;Chk_1;Chk_5;Chk_14;Cmd_0"_s);
        QCOMPARE(f.t.said(), QStringList{u"保存成功！"_s});
        QCOMPARE(f.row(u"王五，😀"_s), u"王五，😀||0100010000000010"_s);
        QCOMPARE(d.lines(u"Lst"_s).constLast() + d.text(u"Cmd_0"_s), u"王五，😀删 除"_s);

        // Cancelling an addition shows the operator selected before; cancelling an edit his stored rights.
        Shown<UsrGL> other(f.t.context());
        other.clickLine(u"Lst"_s, 2);
        d.act(u"Lst@2;Cmd_3;Cmd_1"_s);
        QCOMPARE(d.lines(u"Lst"_s).size(), 5);
        QCOMPARE(d.text(u"Txt"_s) + boxes(d), u"张三0111000000111111"_s);
        d.click(u"Cmd_2"_s);
        QVERIFY(d.w<QCheckBox>(u"Chk_0"_s)->isEnabled());
        d.act(u"Chk_0;Cmd_1"_s);
        QCOMPARE(boxes(d), u"0111000000111111"_s);
        // Any box that becomes clear runs every rule: 张三 has no journal right, so 9 to 13 go too. The
        // other administrator read him before and saves last.
        d.act(u"Cmd_2;Chk_2;Cmd_0"_s);
        QCOMPARE(f.row(u"张三"_s), u"张三||0101000000000111"_s);
        other.act(u"Cmd_2;Chk_15;Cmd_0"_s);
        QCOMPARE(f.row(u"张三"_s), u"张三||0111000000000110"_s);

        // Deleting, also an operator another administrator deleted already.
        d.click(u"Cmd_0"_s);
        d.clickLine(u"Lst"_s, 2);
        f.t.exec(u"delete from UsrLst where Usr='李四'"_s);
        d.click(u"Cmd_0"_s);
        QCOMPARE(f.t.said(),
                 (QStringList{u"保存成功！"_s, u"保存成功！"_s, u"删除成功！"_s, u"删除成功！"_s}));
        QCOMPARE(d.lines(u"Lst"_s), (QStringList{u"    操作员列表"_s, u"管理员"_s, u"王五，😀"_s}));
        QCOMPARE(d.text(u"Txt"_s), u"管理员"_s);
        QCOMPARE(f.t.session.operators(), (QStringList{u"管理员"_s, u"王五，😀"_s}));
        QCOMPARE(f.t.text(u"select count(*) from UsrLst"_s), u"2"_s);

        // One's own rights: right 1 stays locked while editing oneself, and a saved change holds at once.
        // In browse mode a box hands the focus on to 修 改.
        d.activate();
        d.w<QCheckBox>(u"Chk_3"_s)->setFocus();
        QCOMPARE(QApplication::focusWidget(), d.w<QWidget>(u"Cmd_2"_s));
        d.click(u"Cmd_2"_s);
        QVERIFY(!d.w<QCheckBox>(u"Chk_0"_s)->isEnabled());
        d.act(u"Chk_13;Cmd_0"_s);
        QVERIFY(d.w<QCheckBox>(u"Chk_0"_s)->isEnabled());
        QCOMPARE(f.t.session.rights() + f.row(u"管理员"_s), u"1111111111111011管理员||1111111111111011"_s);
        QVERIFY(!RequireRight(f.t.context(), Right::ChangePassword));
        QCOMPARE(f.t.said(), (QStringList{u"保存成功！"_s, u"对不起，您无此权限！"_s}));
    }

    // A box that becomes clear clears the boxes that depend on it, whatever else is clear; ticking
    // changes nothing and no rule ever ticks a box. The rights are shown as stored.
    void clearRules_data()
    {
        QTest::addColumn<QString>("rights");
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("after");
        QTest::newRow("journal off") << kAll << 5 << u"1111101100000111"_s;
        QTest::newRow("one report view left") << u"1111011111111111"_s << 5 << u"1111001100000111"_s;
        QTest::newRow("all report views off") << u"1111001111111111"_s << 6 << u"1111000000000111"_s;
        QTest::newRow("increase off, decrease kept") << kAll << 1 << u"1011111111111111"_s;
        QTest::newRow("both directions off") << u"1011111111111111"_s << 2 << u"1001111110011111"_s;
        QTest::newRow("positions 9 and 15 alone") << u"1111111101111111"_s << 14 << u"1111111101111101"_s;
        QTest::newRow("all off") << u"0000000000000001"_s << 15 << QString(16, u'0');
        QTest::newRow("dependent ticked") << u"1111101100000111"_s << 10 << u"1111101100100111"_s;
    }
    void clearRules()
    {
        QFETCH(QString, rights);
        QFETCH(int, box);
        Fixture f(u"sqlite"_s);
        f.t.session.setRights(rights);
        Shown<UsrGL> d(f.t.context());
        QCOMPARE(boxes(d), rights);
        d.act(u"Cmd_2;Chk_%1"_s.arg(box));
        QTEST(boxes(d), "after");
    }

    // The password change: checks before any statement, then the row written anew without rights.
    void changePassword_data() { addBackendRows(); }
    void changePassword()
    {
        Fixture f(rowBackend());
        f.t.exec(u"update UsrLst set PWD='old',QX='1011' where Usr='管理员'"_s);
        f.t.session.setRights(u"1011"_s);
        refusePasswordDown(f.t);
        Shown<UsrPwd> d(f.t.context(), UsrPwd::Mode::ChangePassword);
        QCOMPARE(d->windowTitle() + d.text(u"Txt_0"_s) + d.text(u"LabZB"_s),
                 u" 修改密码管理员账本名称： 家庭账"_s);
        const auto attempt = [&d](const QString& first, const QString& second) {
            d.act(u"Txt_1="_s + first + u";Txt_2="_s + second);
            d.press(u"Txt_2"_s, Qt::Key_Return);
        };
        f.t.setServerDown(true);
        attempt(u"ab"_s, u"aB"_s);
        attempt(QString(), QString());
        attempt(u"ab"_s, u"ab"_s);
        f.t.setServerDown(false);
        attempt(u"down"_s, u"down"_s);
        QCOMPARE(f.t.said(), (QStringList{u"两次输入的密码不相同！"_s, u"请两次输入密码，再点击【确定】！"_s,
                                          kRetryText, kRetryText}));
        QVERIFY(d->isVisible());
        QCOMPARE(f.t.text(u"select count(*) from UsrLst"_s), u"0"_s);
        attempt(u" p'w\\ "_s, u" p'w\\ "_s);
        QVERIFY(!d->isVisible());
        QCOMPARE(f.row(u"管理员"_s) + f.t.session.modalResult + f.t.session.rights(),
                 u"管理员| p'w\\ |OK1011111111111111"_s);
    }

    // A new operator with a password, from the operator window: the name is checked and cleaned.
    void newOperator_data() { addBackendRows(); }
    void newOperator()
    {
        Fixture f(rowBackend(), {{u"张三"_s, u"0"_s}});
        Shown<UsrGL> g(f.t.context());
        whenModal([](const WindowDriver& d) {
            QVERIFY(qobject_cast<UsrPwd*>(d.window()));
            QCOMPARE(d.window()->windowTitle(), u" 新增操作员"_s);
            d.act(u"Txt_1=pw;Txt_2=pw"_s);
            for (const QString& name : {u"-|"_s, u"管理员"_s, u"张三"_s, u" 赵-六|' "_s}) {
                d.type(u"Txt_0"_s, name);
                if (name == u"张三"_s)
                    saveScreenshot(d.window(), u"usrpwd.png"_s);
                d.press(u"Txt_0"_s, Qt::Key_Return);
            }
        });
        g.click(u"CmdPwd"_s);
        QCOMPARE(f.t.said(),
                 (QStringList{u"请输入新增操作员的姓名！"_s, u"新增操作员不能使用“管理员”这个名称！"_s,
                              u"该账本中已经存在 张三 这个操作员！"_s}));
        QCOMPARE(f.row(u"赵六"_s), u"赵六|pw|"_s);
        QCOMPARE(g.lines(u"Lst"_s).constLast() + g.text(u"Txt"_s) + boxes(g), u"赵六赵六"_s + kAll);
        QCOMPARE(f.t.session.operators(), (QStringList{u"管理员"_s, u"张三"_s, u"赵六"_s}));
    }
};

QTEST_MAIN(TestOperators)
#include "tst_operators.moc"
