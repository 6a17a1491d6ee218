#include "HzLst.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "KuangDriver.h"
#include "LedgerCopy.h"
#include "MxLst.h"
#include "TestContext.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

// The ledger's ID holds "_" and "%", which a like pattern would take as wildcards.
const QString id = u"li_5%@qq.com"_s;
const QStringList copiedLines{u"ZbLst: source 1, target 1"_s, u"UsrLst: source 3, target 3"_s,
                              u"Zhang: source 1206, target 1206"_s,
                              u"copied: 1 ledger, 3 operators, 1206 entries; sums agree"_s};
const QString alreadyThere = u"目标数据库中已有账本“li_5%@qq.com”，没有复制任何数据。"_s;

// Ledger `id` (物品, 存量) with an announcement, three operators (a NULL rights string and password
// among them), six entries of November (0.1, a NULL quantity and remark, a time without its hour, a
// remark with a quote and a backslash), a tombstone and one restored and stamped again, and 1,200
// entries of 0.1 in October, more than one run of rows. Beside it the rows that a careless pattern
// would take for the ledger's: a ledger whose ID contains this one, a tombstone that the wildcards
// of the ID match.
void fillSource(TestContext& t)
{
    t.openLedger(id, u"五金仓库"_s);
    t.exec(u"update ZbLst set GongGao='255│今天盘点', Cmd='2026-11-01', MB=NULL where ZBid='li_5%@qq.com'"_s);
    t.exec(
        u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('li_5%@qq.com','张三','pw''1\\','1011111111111111'),"
        "('li_5%@qq.com','李四',NULL,'0'),('0li_5%@qq.com','王五','','')"_s);
    t.exec(u"insert into ZbLst (ZBid,ZbNm) values ('0li_5%@qq.com','别人的账本')"_s);
    t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
           "('li_5%@qq.com','管理员','2026-11-02 08:00','A1','A型螺丝',0.1,'入库'),"
           "('li_5%@qq.com','张三','2026-11-03 09:00','A2','A型螺丝',-2.5,'x''y\\z'),"
           "('li_5%@qq.com','张三','2026-11-04','A3','B型螺母',NULL,NULL),"
           "('li_5%@qq.com','管理员','2026-11-05 10:00','A4','B型螺母',7,''),"
           "('管理员#li_5%@qq.com#2026-11-06 10:00','管理员','2026-11-05 11:00','A5','A型螺丝',50,''),"
           "('张三#li_5%@qq.com#2026-11-07 10:00#管理员#2026-11-08 09:00','张三','2026-11-05','A6',"
           "'B型螺母',3,''),"
           "('0li_5%@qq.com','王五','2026-11-05 11:00','B1','A型螺丝',1000,''),"
           "('管理员#0li_5%@qq.com#2026-11-06 10:00','王五','2026-11-05 11:00','B2','A型螺丝',1000,''),"
           "('管理员#liX5yy@qq.com#2026-11-06 10:00','王五','2026-11-05 11:00','B3','A型螺丝',1000,'')"_s);
    t.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) with recursive n(i) as (select 1 union all "
           "select i+1 from n where i<1200) select 'li_5%@qq.com','管理员','2026-10-01 08:00','C'||i,"
           "'C型垫圈',0.1,'' from n"_s);
}

// The ledger's rows as stored, NULL told apart from the empty text.
QString stored(TestContext& t)
{
    return t.text(u"select ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,coalesce(MB,'∅'),SalesMan,Msg,Cmd,GongGao from "
                  "ZbLst where ZBid='li_5%@qq.com'"_s) +
           u'/' +
           t.text(u"select Usr,coalesce(PWD,'∅'),coalesce(QX,'∅') from UsrLst where ZBID='li_5%@qq.com' "
                  "order by Usr"_s) +
           u'/' +
           t.text(u"select ZBID,USR,TM,ID,ITEM,SL,coalesce(BZ,'∅') from Zhang where ID not like 'B%' "
                  "order by ID"_s);
}

// The rows of ZbLst, UsrLst and Zhang, whoever's they are.
QString rowCounts(TestContext& t)
{
    return t.text(u"select count(*) from ZbLst"_s) + u' ' + t.text(u"select count(*) from UsrLst"_s) + u' ' +
           t.text(u"select count(*) from Zhang"_s);
}

// The lines of the journal of November by item with its running balances, the summary and the
// balance list, as their windows show them for the open ledger; sorted, since the server kinds list
// the items (grouped without an order) in orders of their own.
QStringList listings(TestContext& t)
{
    AppContext context = t.context();
    JournalOpener opener(context, nullptr);
    MxLst journal(context);
    HzLst summary(context, opener);
    KcLst balances(context, opener);
    QStringList lines;
    for (QWidget* window : std::initializer_list<QWidget*>{&journal, &summary, &balances}) {
        const WindowDriver d(window);
        window->show();
        if (window == &journal)
            d.pick(u"Cmb_2"_s, u"01"_s);
        d.click(u"Cmd_0"_s);
        lines += d.lines(u"Lst"_s);
    }
    lines.sort();
    return lines;
}

// Runs the program as a command, without a screen; answers its exit code, output and errors.
QStringList runProgram(const QStringList& arguments)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"no-such-screen"_s);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(LANZHOU_EXECUTABLE), arguments);
    program.waitForFinished(120000);
    return {QString::number(program.exitCode()), QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

} // namespace

class TestLedgerCopy : public QObject
{
    Q_OBJECT
private slots:
    // Moving a ledger to an empty server and back: every row as stored, and the same journal, summary
    // and balance list on the target; a second copy is refused and changes nothing.
    void copies_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::newRow("sqlite to postgresql") << u"sqlite"_s << u"postgresql"_s;
        QTest::newRow("postgresql to sqlite") << u"postgresql"_s << u"sqlite"_s;
    }
    void copies()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        TestContext source(from);
        fillSource(source);
        TestContext target(to);
        // An empty database gets the tables from the copy.
        target.alter({u"drop table Zhang"_s, u"drop table UsrLst"_s, u"drop table ZbLst"_s});
        QStringList progress;
        const CopyOutcome outcome =
            CopyLedger(*source.db, *target.db, id, [&](const QString& table, qint64 done, qint64 total) {
                progress.append(table + u' ' + QString::number(done) + u'/' + QString::number(total));
                return true;
            });
        QCOMPARE(outcome.error, QString());
        QCOMPARE(outcome.lines, copiedLines);
        QCOMPARE(progress.join(u' '),
                 u"ZbLst 0/1 ZbLst 1/1 UsrLst 0/3 UsrLst 3/3 Zhang 0/1206 Zhang 1000/1206 "
                 "Zhang 1206/1206"_s);
        const QString rows = stored(source);
        QVERIFY(rows.contains(u"|A1|A型螺丝|0.1|入库;"_s));
        QCOMPARE(stored(target), rows);

        const Session& s = source.session;
        target.session.openLedger(id, s.ledgerName(), s.itemLabel(), s.quantityLabel(), s.greeting(), {});
        target.session.logIn(u"管理员"_s, QString());
        const QStringList shown = listings(source);
        QVERIFY(shown.filter(u"C型垫圈"_s).filter(u"120"_s).size() >= 2);
        QCOMPARE(listings(target), shown);

        const CopyOutcome again = CopyLedger(*source.db, *target.db, id);
        QCOMPARE(again.error, alreadyThere);
        QCOMPARE(stored(target), rows);
    }

    // A copy that cannot be completed keeps nothing on the target and says why.
    void refusals_data()
    {
        QTest::addColumn<QString>("ledger");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("message");
        QTest::newRow("no such ledger")
            << u"li_5@qq.com"_s << QString() << u"源数据库中没有账本“li_5@qq.com”。"_s;
        QTest::newRow("quantity stored as text")
            << id << u"text"_s
            << u"源数据库 Zhang 中的这一行数量不是数字，目标数据库无法接收：ZBID=li_5%@qq.com, USR=张三, "
               "TM=2026-11-09 09:00, ID=T1, ITEM=A型螺丝, SL=12元, BZ="_s;
        QTest::newRow("target refuses an entry")
            << id << u"trigger"_s << u"目标数据库拒绝了 Zhang 的第 1001 至 1206 行："_s;
        QTest::newRow("target down") << id << u"down"_s
                                     << u"无法连接目标数据库：服务器没有响应，或登录被拒绝。"_s;
    }
    void refusals()
    {
        QFETCH(QString, ledger);
        QFETCH(QString, fault);
        QFETCH(QString, message);
        TestContext source;
        fillSource(source);
        TestContext target(u"postgresql"_s);
        if (fault == u"text")
            source.exec(u"insert into Zhang (ZBID,USR,TM,ID,ITEM,SL,BZ) values "
                        "('li_5%@qq.com','张三','2026-11-09 09:00','T1','A型螺丝','12元','')"_s);
        // The server refuses the 1,100th entry, after the first run of rows went in.
        if (fault == u"trigger") {
            source.exec(u"update Zhang set BZ='拒收' where ID='C1100'"_s);
            target.alter({u"create or replace function refuse_entry() returns trigger language plpgsql as "
                          "$$ begin if new.BZ = '拒收' then raise exception 'entry refused'; end if; "
                          "return new; end $$"_s,
                          u"create or replace trigger refuse_entry before insert on Zhang for each row "
                          "execute function refuse_entry()"_s});
        }
        target.setServerDown(fault == u"down");
        const CopyOutcome outcome = CopyLedger(*source.db, *target.db, ledger);
        QVERIFY2(outcome.error.startsWith(message), qPrintable(outcome.error));
        QCOMPARE(outcome.lines, QStringList());
        target.setServerDown(false);
        if (fault == u"trigger")
            target.alter({u"drop trigger refuse_entry on Zhang"_s});
        QCOMPARE(rowCounts(target), u"0 0 0"_s);
    }

    // The command, run as the program: the counts on stdout and exit code 0; a second copy, a
    // ledger the source lacks and an address it cannot read give exit code 1 with the reason.
    void command()
    {
        TestContext source;
        fillSource(source);
        TestContext target(u"postgresql"_s);
        const QStringList route{u"--from"_s, source.address(), u"--to"_s, target.address()};
        QStringList run = runProgram(QStringList{u"--copy-ledger"_s, id} + route);
        QCOMPARE(run.mid(0, 2), (QStringList{u"0"_s, copiedLines.join(u'\n') + u'\n'}));
        QVERIFY(run.at(2).contains(u"Zhang: 1206 / 1206"_s));
        QCOMPARE(rowCounts(target), u"1 3 1206"_s);

        run = runProgram(QStringList{u"--copy-ledger"_s, id} + route);
        QCOMPARE(run.mid(0, 2), (QStringList{u"1"_s, QString()}));
        QVERIFY2(run.at(2).startsWith(u"复制账本“li_5%@qq.com”失败："_s + alreadyThere),
                 qPrintable(run.at(2)));
        // A file made for the copy goes again when the copy fails.
        const QString file = source.dir.filePath(u"moved.db"_s);
        run = runProgram({u"--copy-ledger"_s, u"13800000000"_s, u"--from"_s, source.address(), u"--to"_s,
                          u"sqlite://"_s + file});
        QVERIFY2(run.at(0) == u"1"_s && run.at(2).contains(u"源数据库中没有账本“13800000000”"_s),
                 qPrintable(run.at(2)));
        QVERIFY(!QFileInfo::exists(file));
        run = runProgram({u"--copy-ledger"_s, id, u"--to"_s, u"mysql://shop@dbhost/ledgers"_s});
        QCOMPARE(run,
                 (QStringList{u"1"_s, QString(), u"目标数据库地址无法使用：不支持的数据库类型：mysql\n"_s}));
        QCOMPARE(rowCounts(target), u"1 3 1206"_s);
    }

    // From the help menu, with the administration right only: an address the window cannot read; a
    // copy whose window is closed while the entries go in keeps nothing; then the copy with its
    // counts and full progress bars, and a second one refused.
    void window()
    {
        TestContext source;
        fillSource(source);
        TestContext target(u"postgresql"_s);
        RememberLedger(source.settings, id, u"五金仓库"_s);
        KuangDriver d(source.context());
        d.logIn(u"管理员"_s);
        source.session.setRights(u"0"_s);
        d.chooseMenu(u"CmdHelp"_s, u"Menu_CopyZb"_s);
        QCOMPARE(source.dialogs.texts(), QStringList{u"对不起，您无此权限！"_s});
        source.session.setRights(QString());

        const auto whenOpen = [](const std::function<void(const WindowDriver&)>& steps) {
            QTimer::singleShot(0, [steps] { steps(WindowDriver(QApplication::activeModalWidget())); });
        };
        whenOpen([&](const WindowDriver& w) {
            w.type(u"TxtTo"_s, u"mysql://shop@dbhost/ledgers"_s);
            w.click(u"Cmd_0"_s);
            w.type(u"TxtTo"_s, target.address());
            QObject::connect(w.w<QProgressBar>(u"Bar_2"_s), &QProgressBar::valueChanged, w.window(),
                             [w](int value) {
                                 if (value > 0)
                                     w.window()->close();
                             });
            w.click(u"Cmd_0"_s);
        });
        d.chooseMenu(u"CmdHelp"_s, u"Menu_CopyZb"_s);
        QCOMPARE(source.dialogs.texts().mid(1), QStringList{u"不支持的数据库类型：mysql"_s});
        QCOMPARE(rowCounts(target), u"0 0 0"_s);

        QStringList shown;
        whenOpen([&](const WindowDriver& w) {
            w.type(u"TxtTo"_s, target.address());
            w.click(u"Cmd_0"_s);
            shown = w.lines(u"Lst"_s);
            for (const QString& bar : {u"Bar_0"_s, u"Bar_1"_s, u"Bar_2"_s})
                shown.append(w.w<QProgressBar>(bar)->text());
            w.click(u"Cmd_0"_s);
            shown += w.lines(u"Lst"_s);
            w.click(u"Cmd_1"_s);
        });
        d.chooseMenu(u"CmdHelp"_s, u"Menu_CopyZb"_s);
        QCOMPARE(shown, (copiedLines + QStringList{u"1 / 1"_s, u"3 / 3"_s, u"1206 / 1206"_s, alreadyThere}));
        QCOMPARE(source.dialogs.lastText(), alreadyThere);
        QCOMPARE(rowCounts(target), u"1 3 1206"_s);
    }
};

QTEST_MAIN(TestLedgerCopy)
#include "tst_ledgercopy.moc"
