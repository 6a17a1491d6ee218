#include "TestContext.h"
#include "WindowDriver.h"

#include "DateUtils.h"
#include "LedgerList.h"
#include "ZbTyp.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

const QString kNameHelp = u"请输入账本名称，如：\r   “现金银行收支账”、“库存物品进出账”、\r"
                          "   “对外应收应付账”、“专项资金消费账”……\r"_s;

// A ledger database, the local ledger list and one ledger window at a time.
struct Fixture
{
    explicit Fixture(const QString& backend = u"sqlite"_s) : t(backend) {}
    // A new window in the mode, shown; the session's modal result starts empty.
    void open(ZbTyp::Mode mode)
    {
        t.session.modalResult.clear();
        d.open(t.context(), ledgers, mode);
    }
    // Picks the kind of contact, types the contact and presses the contact frame's button.
    void lookUp(const QString& kind, const QString& contact)
    {
        d.act(u"CmbLX="_s + kind + u";TxtZbID="_s + contact + u";Cmd_3"_s);
    }
    void enter(const QString& box, const QString& text)
    {
        d.type(box, text);
        d.press(box, Qt::Key_Return);
    }
    // The local ledger list as "ID#name" lines, the selected one marked with "*".
    QStringList listed() const
    {
        QStringList lines;
        for (const LedgerList::Entry& entry : ledgers.entries())
            lines.append((lines.size() == ledgers.selected ? u"*"_s : QString()) + entry.id + u'#' +
                         entry.name);
        return lines;
    }
    // Where the window stands: "frame 0" (contact), "frame 1" (name) or "frame 2" (type, with the
    // picked option) while it shows, "accepted" or "rejected" once closed, then the modal result;
    // followed by the messages shown since the last step, each after its title when it has one.
    QStringList step()
    {
        QString where = d->result() == QDialog::Accepted ? u"accepted"_s : u"rejected"_s;
        if (d->isVisible()) {
            where.clear();
            for (int i = 0; i < 3; ++i)
                if (d.w<QFrame>(u"Frm_%1"_s.arg(i))->isVisible())
                    where += u"frame %1"_s.arg(i);
            for (int i = 0; i < 5 && where == u"frame 2"; ++i)
                if (d.w<QRadioButton>(u"Opt_%1"_s.arg(i))->isChecked())
                    where += u" option %1"_s.arg(i);
        }
        QStringList seen{t.session.modalResult.isEmpty() ? where : where + u' ' + t.session.modalResult};
        for (const ScriptedDialogs::Shown& shown : t.dialogs.shown())
            seen.append(shown.title.isEmpty() ? shown.text : shown.title + u": "_s + shown.text);
        t.dialogs.clear();
        return seen;
    }

    TestContext t;
    LedgerList ledgers;
    Shown<ZbTyp> d;
};

} // namespace

class TestZbTyp : public QObject
{
    Q_OBJECT
private slots:
    // The contact is cleaned, written back and checked against its kind before the server is asked;
    // a contact that passes goes on to registration because no ledger has it yet.
    void contactChecks_data()
    {
        addTextColumns({"kind", "typed", "written", "message"});
        const QString m = u"手机"_s, e = u"邮箱"_s, shortMobile = u"请完整输入您的手机（或其他联系方式）！"_s;
        const auto badEmail = [](const QString& x) {
            return u"您输入的  “%1”不是正确的电子邮箱格式 ！"_s.arg(x);
        };
        QTest::newRow("mobile cleaned") << m << u"  0138-1234-5678 "_s << u"13812345678"_s << QString();
        QTest::newRow("mobile of zeros") << m << u"0000000"_s << QString() << shortMobile;
        QTest::newRow("country code")
            << m << u"+86 13812345678"_s << u"8613812345678"_s << u"手机号码应该为11位数字！"_s;
        QTest::newRow("short mobile, uncleaned") << m << u"0138"_s << u"0138"_s << shortMobile;
        QTest::newRow("email without full stop")
            << e << u"zhang@example"_s << u"zhang@example"_s << badEmail(u"zhang@example"_s);
        QTest::newRow("email without @")
            << e << u"zhang.example.cn"_s << u"zhang.example.cn"_s << badEmail(u"zhang.example.cn"_s);
        QTest::newRow("email with full stop first") << e << u"a.b@cn"_s << u"a.b@cn"_s << QString();
        QTest::newRow("short email") << e << u"a@b."_s << u"a@b."_s
                                     << u"请完整输入您的邮箱（或其他联系方式）！"_s;
        QTest::newRow("qq cleaned") << u"QQ号"_s << u" 12'34#5 "_s << u"12345"_s << QString();
    }
    void contactChecks()
    {
        QFETCH(QString, kind);
        QFETCH(QString, typed);
        QFETCH(QString, written);
        QFETCH(QString, message);
        Fixture f;
        f.open(ZbTyp::Mode::AddLedger);
        f.lookUp(kind, typed);
        QCOMPARE(f.d.text(u"TxtZbID"_s), written);
        QVERIFY(message.isEmpty() || f.t.dialogs.shown().constFirst().icon == DialogIcon::Information);
        QCOMPARE(f.step(),
                 (message.isEmpty() ? QStringList{u"frame 1"_s} : QStringList{u"frame 0"_s, message}));
        QCOMPARE(f.t.session.ledgerId(), message.isEmpty() ? written : QString());
    }

    // Adding a ledger by its contact. One that exists on the server joins the local list, or selects
    // the entry that already holds its ID in any letter case, and nothing is written. One that does
    // not is registered: a name proposed after the open ledger's, a type, then one ledger row and its
    // first operator. A server that is down on the way leaves the window ready for a retry.
    void addLedger_data() { addBackendRows(); }
    void addLedger()
    {
        Fixture f(rowBackend());
        const QString today = FormatDate(ParseDate(f.t.db->RunScalar(u"select Getdate()"_s), QDate()));
        f.t.openLedger(u"13812345678"_s, u"家庭账"_s);
        f.t.openLedger(u"zhang@example.cn"_s, u"店铺账"_s);
        f.t.openLedger(u"13900000000"_s, u"五金"_s);
        f.ledgers.append({u"Zhang@Example.CN"_s, u"店铺"_s});

        // Run modally, as the main window does; Enter in the ID box looks it up.
        ZbTyp adding(f.t.context(), f.ledgers, ZbTyp::Mode::AddLedger);
        QTimer::singleShot(0, this, [&] {
            QCOMPARE(QApplication::activeModalWidget(), &adding);
            WindowDriver(&adding).type(u"TxtZbID"_s, u"0138-1234-5678"_s);
            WindowDriver(&adding).press(u"TxtZbID"_s, Qt::Key_Return);
        });
        QCOMPARE(adding.exec(), int(QDialog::Accepted));
        QCOMPARE(f.t.session.modalResult, u"OK"_s);
        QCOMPARE(f.listed(), (QStringList{u"Zhang@Example.CN#店铺"_s, u"*13812345678#家庭账"_s}));
        f.open(ZbTyp::Mode::AddLedger);
        f.lookUp(u"邮箱"_s, u"ZHANG@example.cn"_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.listed(), (QStringList{u"*Zhang@Example.CN#店铺"_s, u"13812345678#家庭账"_s}));
        QCOMPARE(f.t.text(u"select count(*) from ZbLst"_s), u"3"_s);

        f.open(ZbTyp::Mode::AddLedger);
        f.lookUp(u"QQ号"_s, u"20002"_s);
        QCOMPARE(f.step(), QStringList{u"frame 1"_s});
        QCOMPARE(f.d.text(u"TxtZbNm"_s), u"新建五金"_s);
        // An empty name is refused with the frame's own explanation.
        f.enter(u"TxtZbNm"_s, u"  "_s);
        QCOMPARE(f.step(), (QStringList{u"frame 1"_s, kNameHelp}));
        f.enter(u"TxtZbNm"_s, u" 小店,进货#账'本 "_s);
        QCOMPARE(f.step(), QStringList{u"frame 2"_s});
        QCOMPARE(f.d.text(u"TxtZbNm"_s), u"小店，进货账本"_s);
        QCOMPARE(f.d.text(u"Txt_0"_s), u"物品"_s);
        // Typing a keyword picks the custom type, which needs both keywords.
        f.d.type(u"Txt_0"_s, u"  桶,装 "_s);
        f.enter(u"Txt_1"_s, u" ' "_s);
        QCOMPARE(f.step(), (QStringList{u"frame 2 option 4"_s, u"如果选择自定义账本类型，请输入关键词！"_s}));
        QCOMPARE(f.d.text(u"Txt_0"_s) + u'|' + f.d.text(u"Txt_1"_s), u"桶，装|"_s);
        QCOMPARE(f.t.text(u"select count(*) from ZbLst where ZBID='20002'"_s), u"0"_s);
        f.enter(u"Txt_1"_s, u"升"_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.t.text(u"select ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg,Cmd,GongGao from ZbLst "
                          "where ZBID='20002'"_s),
                 u"20002|小店，进货账本|桶，装|升|自已注册|"_s + today + u"||||您好！||"_s);
        // The first operator has no password and no rights string at all, which grants every right.
        QCOMPARE(f.t.text(u"select Usr,PWD from UsrLst where ZBID='20002' and QX is null"_s), u"管理员|"_s);
        QCOMPARE(f.t.session.itemLabel() + u'|' + f.t.session.quantityLabel(), u"桶，装|升"_s);
        QCOMPARE(f.listed().constLast(), u"*20002#小店，进货账本"_s);

        // With no ledger open: the server down for the lookup, then for the registration.
        f.t.session.setLedgerName(QString());
        f.open(ZbTyp::Mode::AddLedger);
        f.t.setServerDown(true);
        f.lookUp(u"QQ号"_s, u"40004"_s);
        QCOMPARE(f.step(), (QStringList{u"frame 0"_s, kRetryText}));
        QCOMPARE(f.t.session.ledgerId(), u"20002"_s);
        f.t.setServerDown(false);
        f.d.act(u"Cmd_3;Cmd_5;Opt_2"_s);
        f.t.setServerDown(true);
        f.d.click(u"Cmd_0"_s);
        QCOMPARE(f.step(),
                 (QStringList{u"frame 0"_s, u"提示: 注册新账本失败，请检查网络连接是否正常，然后重试！"_s}));
        QCOMPARE(f.t.session.itemLabel(), QString());
        QCOMPARE(f.ledgers.size(), 3);
        // Retried with the server back, it goes through with the type still picked.
        f.t.setServerDown(false);
        f.d.act(u"Cmd_3;Cmd_5"_s);
        QCOMPARE(f.step(), QStringList{u"frame 2 option 2"_s});
        f.d.click(u"Cmd_0"_s);
        QCOMPARE(f.t.text(u"select ZbNm,Item,SL from ZbLst where ZBID='40004'"_s),
                 u"我的云账本|客户|应收款"_s);

        // With no option picked the ledger counts 项目 by 数额.
        f.open(ZbTyp::Mode::AddLedger);
        f.lookUp(u"QQ号"_s, u"30003"_s);
        f.d.act(u"Cmd_5;Cmd_0"_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.t.text(u"select ZbNm,Item,SL from ZbLst where ZBID='30003'"_s),
                 u"新建我的云账本|项目|数额"_s);
        QCOMPARE(f.listed().constLast(), u"*30003#新建我的云账本"_s);
    }

    // The settings of the open ledger. Type: the current type is picked, saving updates the ledger's
    // row, closing writes nothing. Name only: the cleaned name goes to the session, the server is left
    // to the caller.
    void ledgerSettings_data() { addBackendRows(); }
    void ledgerSettings()
    {
        Fixture f(rowBackend());
        f.t.openLedger(u"L-cash"_s, u"零用金"_s, u"账户"_s, u"余额"_s);
        f.open(ZbTyp::Mode::TypeSettings);
        QCOMPARE(f.step(), QStringList{u"frame 2 option 0"_s});
        f.d.act(u"Opt_1;Cmd_0"_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.t.session.itemLabel() + u'|' + f.t.session.quantityLabel(), u"物品|存量"_s);
        f.open(ZbTyp::Mode::TypeSettings);
        f.d.act(u"Opt_3;Cmd_1"_s);
        QCOMPARE(f.step(), QStringList{u"rejected"_s});

        // Labels of no predefined type pick the custom type with its keywords.
        f.t.openLedger(u"L-tools"_s, u"工具"_s, u"工具"_s, u"件数"_s);
        f.open(ZbTyp::Mode::TypeSettings);
        QCOMPARE(f.step(), QStringList{u"frame 2 option 4"_s});
        QCOMPARE(f.d.text(u"TxtZbID"_s) + f.d.text(u"TxtZbNm"_s) + f.d.text(u"Txt_1"_s),
                 u"L-tools工具件数"_s);
        f.d.type(u"Txt_1"_s, u"把"_s);
        f.d.click(u"Cmd_0"_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.t.session.quantityLabel(), u"把"_s);

        f.open(ZbTyp::Mode::NameOnly);
        QCOMPARE(f.step(), QStringList{u"frame 1"_s});
        QCOMPARE(f.d.text(u"TxtZbNm"_s), u"工具"_s);
        f.enter(u"TxtZbNm"_s, u" 五金#2,店 "_s);
        QCOMPARE(f.step(), QStringList{u"accepted OK"_s});
        QCOMPARE(f.t.session.ledgerName(), u"五金2，店"_s);
        f.open(ZbTyp::Mode::NameOnly);
        f.d.type(u"TxtZbNm"_s, u"别的"_s);
        f.d.click(u"Cmd_2"_s);
        QCOMPARE(f.step(), QStringList{u"rejected"_s});
        QCOMPARE(f.t.session.ledgerName(), u"五金2，店"_s);
        QCOMPARE(f.t.text(u"select ZbNm,Item,SL from ZbLst order by ZBID"_s),
                 u"零用金|物品|存量;工具|工具|把"_s);
    }

    // The keyword boxes sit over the blanks of the custom type's caption, with room for any label.
    void layout()
    {
        Fixture f;
        f.t.openLedger(u"L1"_s, u"五金"_s, u"工具"_s, u"件"_s);
        f.open(ZbTyp::Mode::TypeSettings);
        QVERIFY(QTest::qWaitForWindowExposed(f.d.window()));
        auto* custom = f.d.w<QRadioButton>(u"Opt_4"_s);
        QCOMPARE(custom->text(), u"自定义账本类型(关键词：         、        )"_s);
        const QRect option(custom->mapTo(custom->parentWidget(), QPoint()), custom->size());
        const QRect item = f.d.w<QWidget>(u"Txt_0"_s)->geometry();
        const QRect quantity = f.d.w<QWidget>(u"Txt_1"_s)->geometry();
        QVERIFY(option.contains(item) && option.contains(quantity) && item.right() < quantity.left());
        const QFontMetrics metrics(custom->font());
        QVERIFY(item.left() > metrics.horizontalAdvance(u"自定义账本类型(关键词："_s));
        // Room for the longest predefined label.
        QVERIFY(qMin(item.width(), quantity.width()) >= metrics.horizontalAdvance(u"应收款"_s));
        for (auto* each : f.d->findChildren<QRadioButton*>())
            QVERIFY(each->width() >= each->sizeHint().width());
    }
};

QTEST_MAIN(TestZbTyp)
#include "tst_zbtyp.moc"
