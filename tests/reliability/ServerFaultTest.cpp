// The server fails under the windows: down under each window's statement, stopped and started
// between two posts, hung, holding a lock, killed in the middle of a listing; and a busy journal is
// closed. Each fault ends in the system's message within fifteen seconds,
// leaves the window ready for a retry that works, and loses or doubles no row.
#include "Figures.h"
#include "GongGao.h"
#include "JournalOpener.h"
#include "KcLst.h"
#include "KuangDriver.h"
#include "LedgerList.h"
#include "MxLst.h"
#include "ServerRelay.h"
#include "TestContext.h"
#include "UsrGL.h"
#include "ZbTyp.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTcpServer>
#include <QTest>
#include <QTime>
#include <QTimer>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace lanzhou::test {

namespace {

// The statement limit the faults run with: short, so that the suite stays quick.
constexpr int testLimitMs = 1500;
constexpr qint64 boundMs = 15000;
const QString& retry = kRetryText;
const QString& noData = kNoDataText;

// Counts the check among the figures of the test and backend, then fails the test when it failed.
#define FAULT_CHECK(ok) QVERIFY2(Figures::count(f.test, f.t.backendName, (ok)), #ok)

// A ledger L1 on the backend; a shared server is reached through a relay that the test can cut or
// hang. Statements run under the test limit.
struct Fault
{
    explicit Fault(const QString& backend) : t(backend)
    {
        t.reconfigure([](DbConfig& config) { config.statementLimitMs = testLimitMs; });
        if (backend != u"sqlite"_s) {
            relay = std::make_unique<ServerRelay>(quint16(t.db->config().port));
            t.pointAt(relay->port());
        }
        t.openLedger(u"L1"_s, u"五金仓库"_s);
        t.knowServerDate();
    }
    // The server is killed, or started again; SQLite's file goes out of reach and back.
    void setDown(bool down)
    {
        if (relay)
            relay->setMode(down ? ServerRelay::Mode::Cut : ServerRelay::Mode::Pass);
        else
            t.setServerDown(down);
    }
    // Runs the action and answers whether it ended within the bound; the worst time is kept.
    template <class Action> bool inTime(Action action)
    {
        QElapsedTimer clock;
        clock.start();
        action();
        Figures::time(test, t.backendName, clock.elapsed());
        return clock.elapsed() <= boundMs;
    }
    QString lastMessage() const
    {
        const auto& shown = t.dialogs.shown();
        return shown.isEmpty() ? QString() : shown.constLast().title + u'|' + shown.constLast().text;
    }
    QString count(const QString& where) { return t.text(u"select count(*) from Zhang where "_s + where); }
    // Entries of ledger L1: `rows` of "TM,ITEM,SL" values.
    void addEntries(const QStringList& rows)
    {
        QStringList values;
        for (int i = 0; i < rows.size(); ++i)
            values.append(u"('L1','管理员','E%1',%2,'')"_s.arg(i).arg(rows.at(i)));
        t.exec(u"insert into Zhang (ZBID,USR,ID,TM,ITEM,SL,BZ) values "_s + values.join(u','));
    }
    // The main window, remembering ledger L1.
    KuangDriver& mainWindow()
    {
        RememberLedger(t, u"L1"_s, u"五金仓库"_s);
        return window.emplace(t.context());
    }
    bool loggedIn()
    {
        mainWindow().logIn();
        return window->panel() == Kuang::EntryPanel;
    }

    // One of the program's windows on the fault's context, shown.
    QWidget* open(const QString& name)
    {
        const AppContext c = t.context();
        if (name == u"Kuang"_s)
            RememberLedger(t, u"L1"_s, u"五金仓库"_s);
        QWidget* w = nullptr;
        if (name == u"UsrGL"_s)
            w = new UsrGL(c);
        else if (name == u"GongGao"_s)
            w = new GongGao(c, Qt::white);
        else if (name == u"ZbTyp"_s)
            w = new ZbTyp(c, ledgers, ZbTyp::Mode::TypeSettings);
        else if (name == u"MxLst"_s)
            w = new MxLst(c);
        else if (name == u"KcLst"_s)
            w = new KcLst(c, opener);
        else
            w = new Kuang(c);
        windows.emplace_back(w);
        w->show();
        return w;
    }

    QString test = QString::fromLatin1(QTest::currentTestFunction());
    TestContext t;
    std::optional<KuangDriver> window;
    std::unique_ptr<ServerRelay> relay;
    LedgerList ledgers;
    JournalOpener opener{t.context(), nullptr};
    std::vector<std::unique_ptr<QWidget>> windows;
};

// The journal, as the main window opens it: a window of its own, gone once closed.
struct Journal : WindowDriver
{
    explicit Journal(Fault& f) : opener(f.t.context(), nullptr) { reopen(); }
    void reopen() { setWindow(window = opener.open()); }
    void list() const { click(u"Cmd_0"_s); }
    JournalOpener opener;
    QPointer<MxLst> window;
};

// Another session of the ledger database, holding what it took in an open transaction until it goes.
struct LockingSession
{
    explicit LockingSession(const TestContext& t) { t.ownConnection(name); }
    ~LockingSession() { QSqlDatabase::removeDatabase(name); } // closing it rolls back
    bool hold(const QString& statement) const
    {
        QSqlDatabase db = QSqlDatabase::database(name);
        return db.transaction() && QSqlQuery(db).exec(statement);
    }
    const QString name = u"other-session"_s;
};

// The facts of the session that the windows show.
QString facts(const Session& s)
{
    return QStringList{s.ledgerId(),      s.ledgerName(),           s.itemLabel(),
                       s.quantityLabel(), s.announcement(),         s.operatorName(),
                       s.rights(),        s.operators().join(u','), s.items().join(u',')}
        .join(u'|');
}

} // namespace

class ServerFaultTest : public QObject
{
    Q_OBJECT
private slots:
    // The server stops between two posts: the message, the typed text stays, and the retry once it is
    // back saves the entry once.
    void stoppedBetweenPosts_data() { addBackendRows(backends(true)); }
    void stoppedBetweenPosts()
    {
        Fault f(rowBackend());
        QVERIFY(f.loggedIn());
        KuangDriver& d = *f.window;
        d.enter(u"螺丝"_s, u"+5"_s);
        f.setDown(true);
        d.type(u"Txt"_s, u"-2 计划外"_s);
        FAULT_CHECK(f.inTime([&] { d.post(); }));
        FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && f.lastMessage().startsWith(u"提示|"_s));
        FAULT_CHECK(d.text(u"Cmb"_s) == u"螺丝"_s && d.text(u"Txt"_s) == u"-2 计划外"_s);
        f.setDown(false);
        d.post();
        FAULT_CHECK(f.t.dialogs.shown().size() == 1 && d.text(u"Txt"_s).isEmpty());
        FAULT_CHECK(f.count(u"ZBID='L1'"_s) == u"2"_s && f.count(u"SL=-2 and BZ='计划外'"_s) == u"1"_s);
    }

    // Each window's statement with the server down: the window's message, the window and the session
    // exactly as they were, and a retry that goes through once the server is back. The steps as
    // WindowDriver::act has them; a step that asks first is answered Yes.
    void eachWindowDown_data()
    {
        addTextColumns({"backend", "window", "steps", "step", "message"});
        QTest::addColumn<bool>("asks");
        const QString failed = u"|"_s + retry, titled = u"提示|"_s + retry, listed = u"Cmd_0;Lst@5"_s;
        for (const QString& b : backends(true)) {
            const auto row = [&b](const char* name, const char* window, const QString& steps,
                                  const QString& step, const QString& message, bool asks = false) {
                QTest::newRow(qPrintable(b + u": "_s + QString::fromUtf8(name)))
                    << b << QString::fromLatin1(window) << steps << step << message << asks;
            };
            row("operators: reading one", "UsrGL", {}, u"Lst@2"_s,
                u"|连接服务器失败，未重读取张三信息！\n\n请重试！"_s);
            row("operators: saving rights", "UsrGL", u"Lst@2;Cmd_2;Chk_15"_s, u"Cmd_0"_s, failed);
            row("operators: deleting one", "UsrGL", u"Lst@2"_s, u"Cmd_0"_s, u"|连接服务器失败！请重试！"_s);
            row("operators: adding one", "UsrGL", u"Cmd_3;Txt=赵六"_s, u"Cmd_0"_s, failed);
            row("announcement: publishing", "GongGao", u"Txt=盘点"_s, u"Cmd_0"_s, failed);
            row("announcement: clearing", "GongGao", {}, u"Cmd_2"_s, failed);
            row("ledger type", "ZbTyp", u"Opt_0"_s, u"Cmd_0"_s,
                u"提示|账本设置保存失败，请检查网络连接是否正常，然后重试！"_s);
            row("journal: deleting an entry", "MxLst", listed, u"Cmd_5"_s, titled, true);
            row("journal: opening the editor", "MxLst", listed, u"Cmd_4"_s, u"|连接服务器失败！"_s);
            row("entry editor: saving", "MxLst", listed + u";Cmd_4;MxEd/TxtSL=-3.5"_s, u"MxEd/Cmd_0"_s,
                titled);
            row("balance list", "KcLst", u"Cmd_0;CmbGX2=小于"_s, u"Cmd_0"_s, titled);
            row("main window: opening the ledger", "Kuang", {}, u"Cmd"_s, u"|连接服务器失败！"_s);
            row("main window: logging in", "Kuang", u"Cmd"_s, u"Cmd"_s, titled);
        }
    }
    void eachWindowDown()
    {
        QFETCH(QString, steps);
        QFETCH(QString, step);
        QFETCH(QString, message);
        QFETCH(bool, asks);
        Fault f(rowBackend());
        f.addEntries({u"'2026-11-15 08:00','螺丝',3"_s});
        f.t.exec(u"insert into UsrLst (ZBID,Usr,PWD,QX) values ('L1','张三','','1010')"_s);
        f.t.session.setOperators({u"管理员"_s, u"张三"_s});
        QFETCH(QString, window);
        const WindowDriver d(f.open(window));
        if (!steps.isEmpty())
            d.act(steps);
        const QString before = d.state(), session = facts(f.t.session);
        const auto run = [&] {
            f.t.dialogs.clear();
            if (asks)
                f.t.dialogs.queueAnswer(DialogAnswer::Yes);
            d.act(step);
        };
        f.setDown(true);
        FAULT_CHECK(f.inTime(run));
        FAULT_CHECK(f.lastMessage() == message);
        FAULT_CHECK(d.state() == before && facts(f.t.session) == session);
        f.setDown(false);
        run();
        FAULT_CHECK(f.lastMessage() != message && (!d.window()->isVisible() || d.state() != before));
    }

    // A server that takes statements and never answers: the relay hanging its links, and a listener
    // that accepts and never reads. A post and a listing each end in their message within the bound;
    // the production limit does as well.
    void hungServer_data() { addBackendRows({u"postgresql"_s, u"odbc"_s}); }
    void hungServer()
    {
        Fault f(rowBackend());
        QVERIFY(f.loggedIn());
        KuangDriver& d = *f.window;
        d.enter(u"螺丝"_s, u"+5"_s);
        Journal j(f);
        j.list();
        const qsizetype listed = j.lines(u"Lst"_s).size();
        QTcpServer silent;
        silent.listen(QHostAddress::LocalHost);
        const auto tryAll = [&](const char* how) {
            f.t.dialogs.clear();
            d.type(u"Txt"_s, u"+1"_s); // the item stays: typing it reads its balance
            FAULT_CHECK(f.inTime([&] { d.post(); }));
            FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && d.text(u"Txt"_s) == u"+1"_s);
            FAULT_CHECK(f.inTime([&] { j.list(); }));
            FAULT_CHECK(f.t.dialogs.texts() == (QStringList{retry, noData}) && j.lines(u"Lst"_s).isEmpty());
            qInfo("%s: %s", how, qPrintable(f.t.dialogs.texts().join(u' ')));
        };
        f.relay->setMode(ServerRelay::Mode::Hang);
        tryAll("relay hangs");
        f.t.pointAt(silent.serverPort());
        tryAll("silent listener");
        f.t.pointAt(f.relay->port());
        f.relay->setMode(ServerRelay::Mode::Pass);
        int saved = 1;
        if (f.t.backendName == u"postgresql"_s) {
            // The production limit, once: a post on a link that was answering when the server hung.
            f.t.reconfigure([](DbConfig& config) { config.statementLimitMs = DbConfig().statementLimitMs; });
            d.post();
            ++saved;
            f.relay->setMode(ServerRelay::Mode::Hang);
            tryAll("production limit");
            f.relay->setMode(ServerRelay::Mode::Pass);
        }
        // The server answers again: the retries save one entry and list it.
        f.t.dialogs.clear();
        d.post();
        j.list();
        FAULT_CHECK(f.t.dialogs.texts().isEmpty() && f.count(u"ZBID='L1'"_s) == QString::number(saved + 1));
        FAULT_CHECK(j.lines(u"Lst"_s).size() == listed + saved);
    }

    // Another session holds a lock on the journal's table: a post and a listing end in their message
    // instead of waiting for ever (SQLite's readers are not held up by a writer and list); once the
    // lock goes, the retry saves one entry.
    void lockHeld_data() { addBackendRows(backends(true)); }
    void lockHeld()
    {
        Fault f(rowBackend());
        f.t.pointAt(0);
        f.addEntries({u"'2026-11-15 08:00','螺丝',3"_s});
        QVERIFY(f.loggedIn());
        KuangDriver& d = *f.window;
        Journal j(f);
        const bool sqlite = f.t.backendName == u"sqlite"_s;
        {
            const LockingSession other(f.t);
            QVERIFY(other.hold(sqlite ? u"insert into Zhang (ZBID,ID) values ('L9','X')"_s
                                      : u"lock table Zhang in access exclusive mode"_s));
            d.type(u"Cmb"_s, u"螺丝"_s);
            d.type(u"Txt"_s, u"+5"_s);
            FAULT_CHECK(f.inTime([&] { d.post(); }));
            FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && d.text(u"Txt"_s) == u"+5"_s);
            FAULT_CHECK(f.inTime([&] { j.list(); }));
            FAULT_CHECK(sqlite ? j.lines(u"Lst2"_s).contains(u"E0"_s) &&
                                     f.t.dialogs.texts() == QStringList{retry}
                               : f.t.dialogs.texts() == (QStringList{retry, noData}));
        }
        f.t.dialogs.clear();
        d.post();
        FAULT_CHECK(f.t.dialogs.texts().isEmpty() && f.count(u"ZBID='L1'"_s) == u"2"_s);
    }

    // The server is killed while the journal reads its items' opening balances: no half listing and no
    // balance counted from 0, but the message; the retry lists every balance right.
    void killedDuringListing_data() { addBackendRows({u"postgresql"_s, u"odbc"_s}); }
    void killedDuringListing()
    {
        Fault f(rowBackend());
        QStringList rows;
        const auto item = [](int i) { return u"件%1"_s.arg(i, 3, 10, QLatin1Char('0')); };
        for (int i = 0; i < 300; ++i)
            rows << u"'2026-10-01 08:00','%1',10"_s.arg(item(i))
                 << u"'2026-11-15 08:00','%1',1"_s.arg(item(i));
        f.addEntries(rows);
        Journal j(f);
        // Half way through the items, the second round of the batch where it goes in rounds.
        f.relay->cutOnSending("TM<'", 250);
        FAULT_CHECK(f.inTime([&] { j.list(); }));
        FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && j.lines(u"Lst"_s).isEmpty());
        f.setDown(false);
        j.list();
        const QStringList lines = j.lines(u"Lst"_s);
        // Five head lines, the entries, four closing lines; every item carries its opening 10 in.
        FAULT_CHECK(f.t.dialogs.shown().size() == 1 && lines.size() == 5 + 300 + 4);
        bool balanced = CellTexts(lines.value(306)) == u"||合计：|300|0|3300|"_s;
        for (int i = 0; i < 300; ++i)
            balanced = balanced &&
                       CellTexts(lines.value(5 + i)) == u"管理员|2026-11-15 08:00|%1|1||11|"_s.arg(item(i));
        FAULT_CHECK(balanced);
    }

    // Closing the journal while it lists stops the listing at its next step and the window goes;
    // closing it while it deletes a listing stops the deletion after the entry at hand. A new journal
    // works.
    void closeWhileBusy_data() { addBackendRows(backends()); }
    void closeWhileBusy()
    {
        Fault f(rowBackend());
        QStringList rows;
        for (int i = 0; i < 20000; ++i)
            rows << u"'2026-11-15 %1','件%2',1"_s
                        .arg(QTime(0, 0).addSecs(60 * (i % 1440)).toString(u"hh:mm"_s))
                        .arg(i % 500);
        f.addEntries(rows);
        Journal j(f);
        // Counts the turns of the event loop after the close: each is a step the listing went on with.
        int stepsAfterClose = -1;
        QTimer ticker;
        QObject::connect(&ticker, &QTimer::timeout, &ticker,
                         [&] { stepsAfterClose += stepsAfterClose >= 0; });
        ticker.start(0);
        // Closes the window as soon as its caption starts so.
        QString closeAt = u"正在读入第"_s;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (!j.window || !j.text(u"CmdWait"_s).startsWith(closeAt))
                return;
            watch.stop();
            stepsAfterClose = 0;
            j.window->close();
        });
        j.pick(u"CmbSort"_s, u"时间"_s);
        watch.start(0);
        FAULT_CHECK(f.inTime([&] { j.list(); }));
        FAULT_CHECK(stepsAfterClose >= 0 && stepsAfterClose <= 1 && j.window && j.window->isHidden());
        QTRY_VERIFY(!j.window);
        FAULT_CHECK(f.t.dialogs.shown().isEmpty());

        j.reopen();
        j.type(u"CmbItm"_s, u"件7"_s);
        j.list();
        FAULT_CHECK(!j.lines(u"Lst2"_s).join(QString()).isEmpty() && f.t.dialogs.shown().isEmpty());
        f.t.dialogs.queueAnswer(DialogAnswer::Ok);
        closeAt = u"正在删除数据"_s;
        watch.start(0);
        j.click(u"Cmd_6"_s);
        QTRY_VERIFY(!j.window);
        FAULT_CHECK(f.count(u"ZBID='L1' and Item='件7'"_s) == u"39"_s && f.t.dialogs.shown().size() == 1);
    }
};

int RunServerFaults(int argc, char** argv)
{
    ServerFaultTest test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace lanzhou::test

#include "ServerFaultTest.moc"
