#include "TestContext.h"

#include "DateUtils.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <QUrl>

namespace lanzhou::test {

namespace {

QString postgresBase()
{
    const QString base = qEnvironmentVariable("LANZHOU_TEST_POSTGRES");
    if (base.isEmpty())
        qFatal("LANZHOU_TEST_POSTGRES is not set: run the tests with tools/run-tests.sh, which starts "
               "the test server");
    return base;
}

// One database per test program on the shared test server, so that programs may run side by side.
QString testDatabaseName()
{
    QString name = QCoreApplication::applicationName().toLower();
    for (QChar& c : name)
        if (!c.isLetterOrNumber())
            c = QLatin1Char('_');
    return QStringLiteral("lz_") + name;
}

void failOnUnexpected(const QString& what)
{
    QTest::qFail(qPrintable(what), __FILE__, __LINE__);
}

// Creates the program's database on the test server when missing, with the schema, and empties it.
// A database may start its sessions with backslash escapes in quoted values, as old servers did.
void preparePostgres(const QUrl& base, const QString& dbName, bool backslashEscapes)
{
    static QSet<QString> prepared;
    const bool created = prepared.contains(dbName);
    const auto connect = [&](const QString& connection, const QString& database) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connection);
        db.setHostName(base.host());
        db.setPort(base.port(5432));
        db.setUserName(base.userName());
        db.setPassword(base.password());
        db.setDatabaseName(database);
        if (!db.open())
            qFatal("test server unreachable: %s", qPrintable(db.lastError().text()));
        return db;
    };
    if (!created) {
        {
            QSqlDatabase admin = connect(QStringLiteral("lz-admin"), QStringLiteral("postgres"));
            QSqlQuery q(admin);
            q.exec(QStringLiteral("select 1 from pg_database where datname='%1'").arg(dbName));
            if (!q.next())
                QSqlQuery(admin).exec(QStringLiteral("create database %1").arg(dbName));
            if (backslashEscapes)
                QSqlQuery(admin).exec(
                    QStringLiteral("alter database %1 set standard_conforming_strings=off").arg(dbName));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("lz-admin"));
    }
    {
        QSqlDatabase db = connect(QStringLiteral("lz-prepare"), dbName);
        QSqlQuery q(db);
        q.exec(QStringLiteral("set client_min_messages = warning"));
        if (!created) {
            QFile file(QStringLiteral(":/schema/postgresql.sql"));
            file.open(QIODevice::ReadOnly);
            for (const QString& statement : QString::fromUtf8(file.readAll()).split(QLatin1Char(';')))
                if (!statement.trimmed().isEmpty() && !q.exec(statement))
                    qFatal("schema: %s", qPrintable(q.lastError().text()));
            prepared.insert(dbName);
        }
        q.exec(QStringLiteral("truncate Zhang, UsrLst, ZbLst"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("lz-prepare"));
}

DbConfig configFor(const QString& backend, const QString& folder)
{
    if (backend == QLatin1String("sqlite"))
        return DbConfig::embedded(folder);
    QUrl url(postgresBase());
    const bool backslashEscapes = backend == QLatin1String("pg-backslash");
    const QString dbName = testDatabaseName() + (backslashEscapes ? QStringLiteral("_bs") : QString());
    preparePostgres(url, dbName, backslashEscapes);
    url.setPath(QLatin1Char('/') + dbName);
    if (backend == QLatin1String("odbc"))
        url.setScheme(QStringLiteral("odbc+postgresql"));
    DbConfig config;
    QString error;
    if (!DbConfig::fromAddress(url.toString(), &config, &error))
        qFatal("%s", qPrintable(error));
    return config;
}

} // namespace

QStringList backends(bool withOdbc)
{
    QStringList names{QStringLiteral("sqlite"), QStringLiteral("postgresql")};
    if (withOdbc)
        names.append(QStringLiteral("odbc"));
    return names;
}

QStringList everyServerSetting()
{
    return backends(true) << QStringLiteral("pg-backslash");
}

void addBackendRows(const QStringList& names)
{
    QTest::addColumn<QString>("backend");
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void addTextColumns(std::initializer_list<const char*> names)
{
    for (const char* name : names)
        QTest::addColumn<QString>(name);
}

QString rowBackend()
{
    QFETCH(QString, backend);
    return backend;
}

TestContext::TestContext(const QString& backend)
    : backendName(backend), dialogs(failOnUnexpected), clock(QDate(2026, 11, 15), QTime(9, 5, 30, 250)),
      settings(dir.path() + QStringLiteral("/settings"))
{
    m_working = configFor(backend, dir.path());
    m_serverPort = quint16(m_working.port);
    db = std::make_unique<Database>(m_working);
    if (!db->prepareEmbeddedFile())
        qFatal("cannot make the embedded ledger file");
}

QString TestContext::exec(const QString& sql)
{
    const QString result = db->RunQuery(sql);
    if (result.isEmpty())
        QTest::qFail(qPrintable(QStringLiteral("fixture statement failed: ") + sql), __FILE__, __LINE__);
    return result;
}

QSqlDatabase TestContext::ownConnection(const QString& name) const
{
    const DbConfig& c = db->config();
    const bool lite = c.kind == ServerKind::Sqlite;
    QSqlDatabase own =
        QSqlDatabase::addDatabase(lite ? QStringLiteral("QSQLITE") : QStringLiteral("QPSQL"), name);
    own.setHostName(c.server.plain());
    own.setPort(c.port);
    own.setUserName(c.user.plain());
    own.setPassword(c.password.plain());
    own.setDatabaseName(lite ? c.server.plain() : c.database.plain());
    if (!own.open())
        QTest::qFail(qPrintable(own.lastError().text()), __FILE__, __LINE__);
    return own;
}

void TestContext::alter(const QStringList& statements)
{
    {
        QSqlQuery q(ownConnection(QStringLiteral("lz-alter")));
        for (const QString& statement : statements)
            if (!q.exec(statement))
                QTest::qFail(qPrintable(statement + QStringLiteral(": ") + q.lastError().text()), __FILE__,
                             __LINE__);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("lz-alter"));
}

QList<QStringList> TestContext::rows(const QString& sql)
{
    QList<QStringList> out;
    const int count = exec(sql).toInt();
    for (int i = 1; i <= count; ++i) {
        QStringList row;
        for (int j = 0; j < db->grid().fieldCount(); ++j)
            row.append(db->grid().cell(i, j));
        out.append(row);
    }
    return out;
}

QString TestContext::text(const QString& sql)
{
    QStringList lines;
    for (const QStringList& row : rows(sql))
        lines.append(row.join(u'|'));
    return lines.join(u';');
}

QStringList TestContext::said()
{
    const QStringList texts = dialogs.texts();
    dialogs.clear();
    return texts;
}

void TestContext::knowServerDate()
{
    session.serverDateText = FormatDate(clock.today());
    session.serverDateDay = qint16(clock.today().day());
}

void TestContext::setServerDown(bool down)
{
    *db = Database(down ? unreachableConfig(backendName) : m_working);
}

void TestContext::reconfigure(const std::function<void(DbConfig&)>& change)
{
    change(m_working);
    *db = Database(m_working);
}

void TestContext::pointAt(quint16 port)
{
    reconfigure([this, port](DbConfig& config) { config.port = port ? port : m_serverPort; });
}

QString TestContext::address() const
{
    const DbConfig& c = db->config();
    if (c.kind == ServerKind::Sqlite)
        return QStringLiteral("sqlite://") + c.server.plain();
    QUrl url;
    url.setScheme(c.viaOdbc ? QStringLiteral("odbc+postgresql") : QStringLiteral("postgresql"));
    url.setUserName(c.user.plain());
    url.setPassword(c.password.plain());
    url.setHost(c.server.plain());
    url.setPort(c.port);
    url.setPath(u'/' + c.database.plain());
    return url.toString();
}

void TestContext::openLedger(const QString& id, const QString& name, const QString& item,
                             const QString& quantity, const QString& op)
{
    exec(QStringLiteral("insert into Zblst (ZBid,ZbNm,Item,SL,Bz,BgDate,NdDate,MB,SalesMan,Msg) values "
                        "('%1','%2','%3','%4','自已注册','2026-11-15','','','','您好！')")
             .arg(id, name, item, quantity));
    exec(QStringLiteral("insert into UsrLst (ZBID,Usr,PWD) values ('%1','%2','')").arg(id, op));
    session.openLedger(id, name, item, quantity, QStringLiteral("您好！"), QString());
    session.logIn(op, QString());
    session.setOperators({op});
}

DbConfig unreachableConfig(const QString& backend)
{
    DbConfig config;
    QString error;
    const QString scheme =
        backend == QLatin1String("odbc") ? QStringLiteral("odbc+postgresql") : QStringLiteral("postgresql");
    DbConfig::fromAddress(scheme + QStringLiteral("://nobody:secret@127.0.0.1:1/none"), &config, &error);
    return config;
}

} // namespace lanzhou::test
