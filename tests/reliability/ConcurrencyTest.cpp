// Two copies of the program post to one ledger at the same moment, through the main window's quick
// entry: no entry may be lost or changed, no message may be shown.
#include "AppConstants.h"
#include "DateUtils.h"
#include "Figures.h"
#include "KuangDriver.h"
#include "TestContext.h"
#include "TextUtils.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace lanzhou::test {

namespace {

const QString kLedger = u"并发账本"_s;
constexpr int kPosts = 500;

// The i-th movement of a worker: five items shared by both workers, increases with a fraction and
// every fourth a decrease, the remark naming the operator and the number of the movement.
const auto itemOf = [](int i) { return u"件"_s + QString::number(i % 5); };
const auto quantityOf = [](int i) { return i % 4 == 3 ? -(i % 9 + 1) : i % 9 + 1.25; };
const auto quantityText = [](int i) {
    return (i % 4 == 3 ? u"-"_s : u"+"_s) + QString::number(qAbs(quantityOf(i)));
};
const auto remarkOf = [](const QString& op, int i) { return op + u"第"_s + QString::number(i) + u"笔"_s; };

// The address a worker opens: the same database the test's context uses.
QString addressOf(const TestContext& t)
{
    const PlainConnection c = Unscramble(t.db->config());
    if (t.db->config().kind == ServerKind::Sqlite)
        return u"sqlite://"_s + c.server;
    QUrl url;
    url.setScheme(u"postgresql"_s);
    url.setHost(c.server);
    url.setPort(c.port);
    url.setUserName(c.user);
    url.setPassword(c.password);
    url.setPath(u'/' + c.database);
    return url.toString();
}

} // namespace

// Arguments "<backend> <database address> <ledger> <count> <operator>": opens the ledger in a main
// window, logs in without a password, waits for a line on its input and posts `count` movements.
// Prints "POSTED <n> MESSAGES <m> FROM <ms> TO <ms>"; every message shown goes to the error output.
int RunPostWorker(const QStringList& arguments)
{
    DbConfig config;
    QString error;
    if (arguments.size() < 5 || !DbConfig::fromAddress(arguments.at(1), &config, &error))
        return 2;
    const QString ledger = arguments.at(2);
    const QString op = arguments.at(4);
    QTemporaryDir dir;
    Session session;
    Database db(config);
    int unexpected = 0;
    ScriptedDialogs dialogs([&unexpected](const QString&) { ++unexpected; });
    RecordingShell shell;
    FixedClock clock(QDate::currentDate(), QTime(9, 0));
    Settings settings(dir.path());
    RememberLedger(settings, ledger, ledger);

    KuangDriver d({session, db, dialogs, shell, clock, settings});
    d.logIn(op);
    int posted = 0;
    qint64 from = 0;
    qint64 to = 0;
    if (d.panel() == Kuang::EntryPanel) {
        std::printf("READY\n");
        std::fflush(stdout);
        QFile input;
        input.open(stdin, QIODevice::ReadOnly);
        input.readLine();
        from = QDateTime::currentMSecsSinceEpoch();
        for (int i = 0; i < arguments.at(3).toInt(); ++i) {
            d.type(u"Cmb"_s, itemOf(i));
            d.type(u"Txt"_s, quantityText(i) + u' ' + remarkOf(op, i));
            d.press(u"Txt"_s, Qt::Key_Return);
            posted += d.text(u"Lab5"_s) == quantityText(i) + u"  已保存！"_s;
            clock.advance(10);
        }
        to = QDateTime::currentMSecsSinceEpoch();
    }
    for (const QString& text : dialogs.texts())
        std::fprintf(stderr, "%s\n", qPrintable(text));
    std::printf("POSTED %d MESSAGES %d FROM %lld TO %lld\n", posted, int(dialogs.shown().size()) + unexpected,
                from, to);
    return 0;
}

class ConcurrencyTest : public QObject
{
    Q_OBJECT
private slots:
    void twoPosters_data() { addBackendRows(); }

    // Both workers log in, then start posting on the same signal; afterwards every movement is on the
    // server exactly as typed. Entry IDs of the two workers coincide (the same hundredths of a
    // second), so rows are counted, never distinct IDs.
    void twoPosters()
    {
        QFETCH(QString, backend);
        const auto check = [&backend](bool ok) { return Figures::count(u"concurrency"_s, backend, ok); };
        TestContext t(backend);
        t.exec(u"insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values ('%1','%1',"
               "'物品','存量','自已注册','2026-11-15','','','','您好！')"_s.arg(kLedger));
        const QStringList operators{u"甲"_s, u"乙"_s};
        for (const QString& op : operators)
            t.exec(u"insert into UsrLst (ZBID,Usr,PWD) values ('%1','%2','')"_s.arg(kLedger, op));

        QProcess workers[2];
        for (int w = 0; w < 2; ++w) {
            workers[w].start(QCoreApplication::applicationFilePath(),
                             {u"--post-worker"_s, backend, addressOf(t), kLedger, QString::number(kPosts),
                              operators.at(w)});
            QVERIFY2(check(workers[w].waitForReadyRead(30000) && workers[w].readLine() == "READY\n"),
                     "a worker did not log in");
        }
        for (QProcess& worker : workers) {
            worker.write("GO\n");
            worker.waitForBytesWritten(5000);
        }
        const QRegularExpression report(u"POSTED (\\d+) MESSAGES (\\d+) FROM (\\d+) TO (\\d+)"_s);
        qint64 lastStart = 0;
        qint64 firstEnd = LLONG_MAX;
        for (QProcess& worker : workers) {
            QVERIFY2(check(worker.waitForFinished(120000)), "a worker did not finish");
            const auto said = report.match(QString::fromUtf8(worker.readAllStandardOutput()));
            const QString messages = QString::fromUtf8(worker.readAllStandardError());
            QVERIFY2(check(said.captured(1).toInt() == kPosts && said.captured(2) == u"0"_s),
                     qPrintable(u"a worker failed a post or was shown: "_s + messages));
            lastStart = qMax(lastStart, said.captured(3).toLongLong());
            firstEnd = qMin(firstEnd, said.captured(4).toLongLong());
        }
        QVERIFY2(check(firstEnd - lastStart > 0), "the workers did not post at the same time");
        qInfo("%s: %lld ms side by side", qPrintable(backend), firstEnd - lastStart);

        // Every movement once, each field as typed, at the server's date and the worker's time.
        const QString date = ServerDate(*t.db, t.session, t.clock);
        const QString idHead = QChar(date.left(4).toInt() - 1948) + date.mid(5, 2) + date.mid(8, 2);
        const auto rows = t.rows(u"select USR,TM,ID,ITEM,SL,BZ from Zhang where ZBID='%1'"_s.arg(kLedger));
        QSet<QString> seen;
        for (QStringList row : rows) {
            const int i = row.at(5).section(u"第"_s, 1).chopped(1).toInt();
            const QStringList expected{row.at(0),
                                       date + u" 09:00"_s,
                                       idHead + QString::number(3240000 + i),
                                       itemOf(i),
                                       GeneralNumberText(quantityOf(i)),
                                       remarkOf(row.at(0), i)};
            row[4] = GeneralNumberText(NumericValue(row.at(4)));
            QVERIFY2(check(row == expected), qPrintable(row.join(u'|') + u" <> "_s + expected.join(u'|')));
            seen.insert(row.at(5));
        }
        QVERIFY2(check(rows.size() == 2 * kPosts && seen.size() == 2 * kPosts),
                 "a movement is missing or stored twice");
    }
};

int RunConcurrency(int argc, char** argv)
{
    ConcurrencyTest test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace lanzhou::test

#include "ConcurrencyTest.moc"
