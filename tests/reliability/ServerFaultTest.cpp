#include "ServerFaultTest.h"

#include "AppConstants.h"
#include "Figures.h"
#include "JournalOpener.h"
#include "KuangDriver.h"
#include "MxLst.h"
#include "ServerRelay.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QElapsedTimer>
#include <QListWidget>
#include <QMap>
#include <QPointer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTcpServer>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <memory>

using namespace lanzhou;
using namespace lanzhou::test;
using namespace Qt::StringLiterals;

namespace {

// The statement limit the faults run with: short, so that the suite stays quick.
constexpr int testLimitMs = 1500;
// Every fault is told within this.
constexpr qint64 boundMs = 15000;
const QString retry = u"连接服务器失败，请重试！"_s;
const QString noData = u"没有符合条件的数据！"_s;

QMap<QPair<QString, QString>, qint64>& worstTimes()
{
    static QMap<QPair<QString, QString>, qint64> worst;
    return worst;
}

// Counts the check among the figures of the test and backend, then fails the test when it failed.
#define FAULT_CHECK(ok)                                                                                      \
    do {                                                                                                     \
        const bool passed = (ok);                                                                            \
        Figures::count(QString::fromLatin1(QTest::currentTestFunction()), f.backend(), passed);              \
        QVERIFY2(passed, #ok);                                                                               \
    } while (false)

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
        t.session.serverDateText = u"2026-11-15"_s;
        t.session.serverDateDay = 15;
    }
    QString backend() const { return t.backendName; }
    // The server is killed, or started again; SQLite's file goes out of reach and back.
    void down()
    {
        if (relay)
            relay->setMode(ServerRelay::Mode::Cut);
        else
            t.setServerDown(true);
    }
    void up()
    {
        if (relay)
            relay->setMode(ServerRelay::Mode::Pass);
        else
            t.setServerDown(false);
    }
    // Runs the action and answers whether it ended within the bound; the worst time is kept.
    template <class Action> bool inTime(Action action)
    {
        QElapsedTimer clock;
        clock.start();
        action();
        const qint64 ms = clock.elapsed();
        qint64& worst = worstTimes()[{QString::fromLatin1(QTest::currentTestFunction()), backend()}];
        worst = qMax(worst, ms);
        return ms <= boundMs;
    }
    QString lastMessage() const
    {
        const auto& shown = t.dialogs.shown();
        return shown.isEmpty() ? QString() : shown.constLast().title + u'|' + shown.constLast().text;
    }
    QString count(const QString& where) { return t.text(u"select count(*) from Zhang where "_s + where); }
    // Entries of ledger L1: `rows` of "(TM,ITEM,SL)" value lists.
    void addEntries(const QStringList& rows)
    {
        QStringList values;
        for (int i = 0; i < rows.size(); ++i)
            values.append(u"('L1','管理员','%1',%2,'')"_s.arg(u"E"_s + QString::number(i), rows.at(i)));
        t.exec(u"insert into Zhang (ZBID,USR,ID,TM,ITEM,SL,BZ) values "_s + values.join(u','));
    }

    TestContext t;
    std::unique_ptr<ServerRelay> relay;
};

// The main window, remembering ledger L1.
struct MainWindow : KuangDriver
{
    explicit MainWindow(Fault& f) : KuangDriver(remembered(f)) {}
    static AppContext remembered(Fault& f)
    {
        RememberLedger(f.t.settings, u"L1"_s, u"五金仓库"_s);
        return f.t.context();
    }
    void toEntryPanel() const
    {
        logIn();
        QCOMPARE(panel(), Kuang::EntryPanel);
    }
};

// The journal, as the main window opens it: a window of its own, gone once closed.
struct Journal : WindowDriver
{
    explicit Journal(Fault& f) : opener(f.t.context(), nullptr) { reopen(); }
    void reopen()
    {
        window = opener.open();
        setWindow(window);
    }
    void list() const { click(u"Cmd_0"_s); }
    JournalOpener opener;
    QPointer<MxLst> window;
};

// Another session of the ledger database, holding what it took in an open transaction until it goes.
class LockingSession
{
public:
    explicit LockingSession(const DbConfig& config)
    {
        const bool sqlite = config.kind == ServerKind::Sqlite;
        QSqlDatabase db = QSqlDatabase::addDatabase(sqlite ? u"QSQLITE"_s : u"QPSQL"_s, name);
        db.setHostName(config.server.plain());
        db.setPort(config.port);
        db.setUserName(config.user.plain());
        db.setDatabaseName(sqlite ? config.server.plain() : config.database.plain());
        db.open();
    }
    ~LockingSession()
    {
        QSqlDatabase::database(name).rollback();
        QSqlDatabase::database(name).close();
        QSqlDatabase::removeDatabase(name);
    }
    bool hold(const QString& statement) const
    {
        QSqlDatabase db = QSqlDatabase::database(name);
        return db.transaction() && QSqlQuery(db).exec(statement);
    }

private:
    const QString name = u"other-session"_s;
};

void addBackends(bool withSqlite)
{
    QStringList names = backends(true);
    if (!withSqlite)
        names.removeAll(u"sqlite"_s);
    addBackendRows(names);
}

} // namespace

void ServerFaultTest::downAtStart_data()
{
    addBackends(true);
}

// The ledger is opened while the server is down: the opening fails with its message, the window stays
// on its panel, and a retry once the server is back opens it.
void ServerFaultTest::downAtStart()
{
    QFETCH(QString, backend);
    Fault f(backend);
    f.down();
    MainWindow d(f);
    FAULT_CHECK(f.inTime([&] { d.post(); }));
    FAULT_CHECK(f.lastMessage() == u"|连接服务器失败！"_s);
    FAULT_CHECK(d.kuang->panel() == Kuang::OpenLedgerPanel && d.w<QWidget>(u"Cmd"_s)->isEnabled() &&
                d.w<QWidget>(u"CmdWait"_s)->isHidden());
    f.up();
    d.post();
    FAULT_CHECK(d.kuang->panel() == Kuang::LoginPanel && f.t.dialogs.shown().size() == 1);
}

void ServerFaultTest::stoppedBetweenPosts_data()
{
    addBackends(true);
}

// Post, the server stops, post again: the message, and the typed text stays for the retry; once the
// server is back the retry saves the entry once.
void ServerFaultTest::stoppedBetweenPosts()
{
    QFETCH(QString, backend);
    Fault f(backend);
    MainWindow d(f);
    d.toEntryPanel();
    d.type(u"Cmb"_s, u"螺丝"_s);
    d.type(u"Txt"_s, u"+5"_s);
    d.post();
    f.down();
    d.type(u"Txt"_s, u"-2 计划外"_s);
    FAULT_CHECK(f.inTime([&] { d.post(); }));
    FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && f.lastMessage().startsWith(u"提示|"_s));
    FAULT_CHECK(d.text(u"Cmb"_s) == u"螺丝"_s && d.text(u"Txt"_s) == u"-2 计划外"_s);
    f.up();
    d.post();
    FAULT_CHECK(f.t.dialogs.shown().size() == 1 && d.text(u"Txt"_s).isEmpty());
    FAULT_CHECK(f.count(u"ZBID='L1'"_s) == u"2"_s && f.count(u"SL=-2 and BZ='计划外'"_s) == u"1"_s);
}

void ServerFaultTest::hungServer_data()
{
    addBackends(false);
}

// A server that takes statements and never answers: the relay hanging its links, and a listener that
// accepts and never reads. A post and a listing each end in their message within the bound; the
// production limit does as well.
void ServerFaultTest::hungServer()
{
    QFETCH(QString, backend);
    Fault f(backend);
    MainWindow d(f);
    d.toEntryPanel();
    d.type(u"Cmb"_s, u"螺丝"_s);
    d.type(u"Txt"_s, u"+5"_s);
    d.post();
    Journal j(f);
    j.list();
    const QStringList listed = j.lines(u"Lst"_s);
    QTcpServer silent;
    silent.listen(QHostAddress::LocalHost);
    const auto tryAll = [&](const QString& how) {
        f.t.dialogs.clear();
        d.type(u"Txt"_s, u"+1"_s);
        FAULT_CHECK(f.inTime([&] { d.post(); }));
        FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && d.text(u"Txt"_s) == u"+1"_s);
        FAULT_CHECK(f.inTime([&] { j.list(); }));
        FAULT_CHECK(f.t.dialogs.texts() == (QStringList{retry, noData}) && j.lines(u"Lst"_s).isEmpty());
        qInfo("%s: %s", qPrintable(how), qPrintable(f.t.dialogs.texts().join(u' ')));
    };
    f.relay->setMode(ServerRelay::Mode::Hang);
    tryAll(u"relay hangs"_s);
    f.t.pointAt(silent.serverPort());
    tryAll(u"silent listener"_s);
    f.t.pointAt(f.relay->port());
    f.relay->setMode(ServerRelay::Mode::Pass);
    int saved = 1;
    if (backend == u"postgresql"_s) {
        // The production limit, once: a post on a link that was answering when the server hung.
        f.t.reconfigure([](DbConfig& config) { config.statementLimitMs = DbConfig().statementLimitMs; });
        d.post();
        ++saved;
        f.relay->setMode(ServerRelay::Mode::Hang);
        tryAll(u"production limit"_s);
        f.relay->setMode(ServerRelay::Mode::Pass);
    }
    // The server answers again: the retries save one entry and list it.
    f.t.dialogs.clear();
    d.post();
    j.list();
    FAULT_CHECK(f.t.dialogs.texts().isEmpty() && f.count(u"ZBID='L1'"_s) == QString::number(saved + 1));
    FAULT_CHECK(j.lines(u"Lst"_s).size() == listed.size() + saved);
}

void ServerFaultTest::lockHeld_data()
{
    addBackends(true);
}

// Another session holds a lock on the journal's table: a post and a listing end in their message
// instead of waiting for ever (SQLite's readers are not held up by a writer and list); once the lock
// goes, the retry saves one entry.
void ServerFaultTest::lockHeld()
{
    QFETCH(QString, backend);
    Fault f(backend);
    f.t.pointAt(0);
    f.addEntries({u"'2026-11-15 08:00','螺丝',3"_s});
    MainWindow d(f);
    d.toEntryPanel();
    Journal j(f);
    const bool sqlite = backend == u"sqlite"_s;
    {
        const LockingSession other(f.t.db->config());
        QVERIFY(other.hold(sqlite ? u"insert into Zhang (ZBID,ID) values ('L9','X')"_s
                                  : u"lock table Zhang in access exclusive mode"_s));
        d.type(u"Cmb"_s, u"螺丝"_s);
        d.type(u"Txt"_s, u"+5"_s);
        FAULT_CHECK(f.inTime([&] { d.post(); }));
        FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && d.text(u"Txt"_s) == u"+5"_s);
        FAULT_CHECK(f.inTime([&] { j.list(); }));
        FAULT_CHECK(sqlite ? f.t.dialogs.texts() == QStringList{retry} && j.lines(u"Lst2"_s).contains(u"E0"_s)
                           : f.t.dialogs.texts() == (QStringList{retry, noData}));
    }
    f.t.dialogs.clear();
    d.post();
    FAULT_CHECK(f.t.dialogs.texts().isEmpty() && f.count(u"ZBID='L1'"_s) == u"2"_s);
}

void ServerFaultTest::killedDuringListing_data()
{
    addBackends(false);
}

// The server is killed while the journal reads its items' opening balances: no half listing and no
// balance counted from 0, but the message; the retry lists every balance right.
void ServerFaultTest::killedDuringListing()
{
    QFETCH(QString, backend);
    Fault f(backend);
    QStringList rows;
    for (int i = 0; i < 300; ++i) {
        const QString item = u"'件%1'"_s.arg(i, 3, 10, QLatin1Char('0'));
        rows << u"'2026-10-01 08:00',"_s + item + u",10"_s << u"'2026-11-15 08:00',"_s + item + u",1"_s;
    }
    f.addEntries(rows);
    Journal j(f);
    // Half way through the items, the second round of the batch where it goes in rounds.
    f.relay->cutOnSending("TM<'", 250);
    FAULT_CHECK(f.inTime([&] { j.list(); }));
    FAULT_CHECK(f.t.dialogs.texts() == QStringList{retry} && j.lines(u"Lst"_s).isEmpty());
    f.up();
    j.list();
    const QStringList lines = j.lines(u"Lst"_s);
    // Five head lines, the entries, four closing lines; every item carries its opening 10 in.
    FAULT_CHECK(f.t.dialogs.shown().size() == 1 && lines.size() == 5 + 300 + 4);
    bool balanced = true;
    for (int i = 0; i < 300; ++i)
        balanced = balanced && CellTexts(lines.value(5 + i)) ==
                                   u"管理员|2026-11-15 08:00|件%1|1||11|"_s.arg(i, 3, 10, QLatin1Char('0'));
    FAULT_CHECK(balanced && CellTexts(lines.value(306)) == u"||合计：|300|0|3300|"_s);
}

void ServerFaultTest::closeWhileBusy_data()
{
    addBackendRows(backends());
}

// Closing the journal while it lists stops the listing at its next step and the window goes; closing
// it while it deletes a listing stops the deletion after the entry at hand. A new journal works.
void ServerFaultTest::closeWhileBusy()
{
    QFETCH(QString, backend);
    Fault f(backend);
    QStringList rows;
    for (int i = 0; i < 20000; ++i)
        rows << u"'2026-11-15 %1:%2','件%3',1"_s.arg(i / 60 % 24, 2, 10, QLatin1Char('0'))
                    .arg(i % 60, 2, 10, QLatin1Char('0'))
                    .arg(i % 500);
    f.addEntries(rows);
    Journal j(f);
    // Counts the turns of the event loop after the close: each is a step the listing went on with.
    int stepsAfterClose = -1;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, &ticker, [&] { stepsAfterClose += stepsAfterClose >= 0; });
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
    FAULT_CHECK(j.lines(u"Lst2"_s).join(QString()).size() > 0 && f.t.dialogs.shown().isEmpty());
    f.t.dialogs.queueAnswer(DialogAnswer::Ok);
    closeAt = u"正在删除数据"_s;
    watch.start(0);
    j.click(u"Cmd_6"_s);
    QTRY_VERIFY(!j.window);
    FAULT_CHECK(f.count(u"ZBID='L1' and Item='件7'"_s) == u"39"_s && f.t.dialogs.shown().size() == 1);
}

void ServerFaultTest::cleanupTestCase()
{
    const auto& worst = worstTimes();
    for (auto it = worst.cbegin(); it != worst.cend(); ++it)
        std::printf("FAULT-TIME %s %s worst_ms=%lld\n", qPrintable(it.key().first),
                    qPrintable(it.key().second), it.value());
    std::fflush(stdout);
}
