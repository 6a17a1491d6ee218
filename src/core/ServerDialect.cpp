#include "ServerDialect.h"

#include "TextUtils.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>

#include <QDir>
#include <QHash>
#include <QSet>

#include <libpq-fe.h>

#include <optional>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/stat.h>
#endif
#ifdef Q_OS_LINUX
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#endif

namespace lanzhou {

namespace {

// PostgreSQL sessions are pinned when they start, whatever the server's defaults: text in UTF-8,
// backslashes in quoted values taken literally, no statement running and no lock waited for beyond
// the configuration's limits. Sent with the login, so they cost no round trip.
QString pinnedPostgresOptions(const PlainConnection& params)
{
    return QStringLiteral("options='-c client_encoding=UTF8 -c standard_conforming_strings=on "
                          "-c statement_timeout=%1 -c lock_timeout=%2'")
        .arg(params.statementLimitMs)
        .arg(params.lockWaitMs);
}

// A held transaction runs for as long as a ledger copy takes, free of the statement time-out.
QString untimedPostgresTransaction()
{
    return QStringLiteral("set local statement_timeout=0");
}

#ifdef Q_OS_LINUX
// The sockets of the program connected to the port, found among its open files.
QSet<int> socketsTo(int port)
{
    QSet<int> found;
    const QDir fds(QStringLiteral("/proc/self/fd"));
    for (const QString& name : fds.entryList(QDir::Files | QDir::System)) {
        const int fd = name.toInt();
        struct stat info;
        sockaddr_storage peer{};
        socklen_t length = sizeof peer;
        if (::fstat(fd, &info) != 0 || !S_ISSOCK(info.st_mode) ||
            ::getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &length) != 0)
            continue;
        int peerPort = -1;
        if (peer.ss_family == AF_INET)
            peerPort = ntohs(reinterpret_cast<const sockaddr_in*>(&peer)->sin_port);
        else if (peer.ss_family == AF_INET6)
            peerPort = ntohs(reinterpret_cast<const sockaddr_in6*>(&peer)->sin6_port);
        if (peerPort == port)
            found.insert(fd);
    }
    return found;
}
#endif

class SqliteDialect final : public ServerDialect
{
public:
    // One connection stays open, so the write-ahead log files are not made and removed per statement.
    int idleLimitMs() const override { return -1; }
    bool checksLinks() const override { return true; }
    // The kept connection still holds the file it opened; a file moved away or replaced since is
    // another file, and the link must not write there.
    void linkOpened(QSqlDatabase& db) const override
    {
        m_files.insert(db.connectionName(), fileIdentity(db.databaseName()));
    }
    bool linkAlive(QSqlDatabase& db, qint64) const override
    {
        const auto identity = fileIdentity(db.databaseName());
        return identity && identity == m_files.value(db.connectionName());
    }

private:
    // Device and inode of the file where the system has them; on Windows an open file cannot be
    // moved or replaced, so being there is enough.
    static std::optional<std::pair<quint64, quint64>> fileIdentity(const QString& path)
    {
#ifdef Q_OS_UNIX
        struct stat info;
        if (::stat(QFile::encodeName(path).constData(), &info) != 0)
            return std::nullopt;
        return std::pair<quint64, quint64>(info.st_dev, info.st_ino);
#else
        if (!QFileInfo::exists(path))
            return std::nullopt;
        return std::pair<quint64, quint64>(0, 0);
#endif
    }
    mutable QHash<QString, std::optional<std::pair<quint64, quint64>>> m_files;
    QString qtDriver() const override
    {
        return QStringLiteral("QSQLITE");
    }
    void configure(QSqlDatabase& db, const PlainConnection& params) const override
    {
        db.setDatabaseName(params.server);
        // Two copies of the program on one computer share the file; wait for the other's write.
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(params.lockWaitMs));
    }
    QString rewrite(const QString& statement) const override
    {
        return rewriteTopAndGetdate(statement, QStringLiteral("datetime('now','localtime')"));
    }
    QString schemaResource() const override
    {
        return QStringLiteral(":/schema/sqlite.sql");
    }
};

// The libpq connection beneath a QPSQL link; null for any other link.
PGconn* libpqConnection(QSqlDatabase& db)
{
    // QPSQL hands out its libpq connection as "PGconn*" (named "pg_conn*" by libpq's own typedef).
    const QVariant handle = db.driver()->handle();
    if (qstrcmp(handle.typeName(), "PGconn*") != 0 && qstrcmp(handle.typeName(), "pg_conn*") != 0)
        return nullptr;
    return *static_cast<PGconn* const*>(handle.constData());
}

// The answer of one pipelined statement, in the text a single-value read gives.
std::optional<QString> pipelinedAnswer(PGresult* result)
{
    switch (PQresultStatus(result)) {
    case PGRES_COMMAND_OK:
        return QStringLiteral("OK");
    // The link may still be in QPSQL's single-row mode: the first row then comes on its own.
    case PGRES_SINGLE_TUPLE:
    case PGRES_TUPLES_OK: {
        if (PQntuples(result) == 0 || PQnfields(result) == 0 || PQgetisnull(result, 0, 0))
            return QString();
        const char* value = PQgetvalue(result, 0, 0);
        // Floating-point values read as the runners write numbers; everything else as the server wrote it.
        constexpr Oid float4 = 700;
        constexpr Oid float8 = 701;
        if (PQftype(result, 0) == float4 || PQftype(result, 0) == float8)
            return GeneralNumberText(QByteArray(value).toDouble());
        return QString::fromUtf8(value);
    }
    default:
        return std::nullopt;
    }
}

class PostgresDialect final : public ServerDialect
{
public:
    // The statements go out in rounds, each followed by its own sync point so that one failing
    // statement fails alone; a round is small enough that neither side's buffers fill while the
    // other writes. A thousand statements cost five round trips instead of a thousand.
    std::optional<Answers> pipeline(QSqlDatabase& db, const QStringList& statements) const override
    {
        PGconn* connection = libpqConnection(db);
        if (!connection || PQenterPipelineMode(connection) != 1)
            return std::nullopt;
        constexpr qsizetype round = 200;
        Answers answers;
        bool broken = false;
        for (qsizetype from = 0; from < statements.size() && !broken; from += round) {
            const qsizetype to = qMin(statements.size(), from + round);
            for (qsizetype i = from; i < to && !broken; ++i)
                broken = PQsendQueryParams(connection, statements.at(i).toUtf8().constData(), 0, nullptr,
                                           nullptr, nullptr, nullptr, 0) != 1 ||
                         PQpipelineSync(connection) != 1;
            for (qsizetype i = from; i < to && !broken; ++i) {
                PGresult* result = PQgetResult(connection);
                if (!result) {
                    broken = true;
                    break;
                }
                answers.append(pipelinedAnswer(result));
                PQclear(result);
                while ((result = PQgetResult(connection)))
                    PQclear(result);
                result = PQgetResult(connection);
                broken = !result || PQresultStatus(result) != PGRES_PIPELINE_SYNC;
                PQclear(result);
            }
        }
        if (broken || PQexitPipelineMode(connection) != 1)
            return std::nullopt;
        return answers;
    }

    QString qtDriver() const override { return QStringLiteral("QPSQL"); }
    void configure(QSqlDatabase& db, const PlainConnection& params) const override
    {
        db.setHostName(params.server);
        if (params.port > 0)
            db.setPort(params.port);
        db.setUserName(params.user);
        db.setPassword(params.password);
        db.setDatabaseName(params.database);
        db.setConnectOptions(QStringLiteral("connect_timeout=%1;sslmode=%2;%3")
                                 .arg(params.loginSeconds)
                                 .arg(params.sslMode, pinnedPostgresOptions(params)));
    }
    QString rewrite(const QString& statement) const override
    {
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
    }
    QString schemaResource() const override { return QStringLiteral(":/schema/postgresql.sql"); }
    QString untimedTransaction() const override { return untimedPostgresTransaction(); }
    bool checksLinks() const override { return true; }
    int linkSocket(QSqlDatabase& db) const override
    {
        PGconn* connection = libpqConnection(db);
        return connection ? PQsocket(connection) : -1;
    }
    // An idle link has nothing to read: when its socket is readable or closed, the server has ended
    // the session (a restart, a time-out) and the link is dead.
    bool linkAlive(QSqlDatabase& db, qint64) const override
    {
        PGconn* connection = libpqConnection(db);
        if (!connection)
            return true;
        if (PQstatus(connection) != CONNECTION_OK)
            return false;
#ifdef Q_OS_UNIX
        pollfd socket{PQsocket(connection), POLLIN, 0};
        return poll(&socket, 1, 0) == 0;
#else
        return true;
#endif
    }
};

// SQL Server, or PostgreSQL reached through its ODBC driver.
class OdbcDialect final : public ServerDialect
{
public:
    explicit OdbcDialect(bool postgres) : m_postgres(postgres) {}
    QString qtDriver() const override { return QStringLiteral("QODBC"); }
    void configure(QSqlDatabase& db, const PlainConnection& params) const override
    {
        QString connection = odbcConnectionString(params);
        if (m_postgres)
            connection += QStringLiteral(";SSLmode=") + params.sslMode +
                          QStringLiteral(";pqopt={connect_timeout=%1 ").arg(params.loginSeconds) +
                          pinnedPostgresOptions(params) + u'}';
        db.setDatabaseName(connection);
        db.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1;SQL_ATTR_CONNECTION_TIMEOUT=%1")
                                 .arg(params.loginSeconds));
#ifdef Q_OS_LINUX
        m_port = params.port > 0 ? params.port : (m_postgres ? 5432 : 1433);
        m_before = socketsTo(m_port);
#endif
    }
    // The driver keeps its socket to itself: the link's socket is the one to the server's port that
    // appeared while it opened.
    void linkOpened(QSqlDatabase& db) const override
    {
#ifdef Q_OS_LINUX
        for (auto it = m_sockets.begin(); it != m_sockets.end();)
            it = QSqlDatabase::contains(it.key()) ? std::next(it) : m_sockets.erase(it);
        const QSet<int> opened = socketsTo(m_port) - m_before;
        if (opened.size() == 1)
            m_sockets.insert(db.connectionName(), *opened.cbegin());
#else
        Q_UNUSED(db)
#endif
    }
    int linkSocket(QSqlDatabase& db) const override
    {
        return m_sockets.value(db.connectionName(), -1);
    }
    QString rewrite(const QString& statement) const override
    {
        if (!m_postgres)
            return statement;
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
    }
    QString schemaResource() const override
    {
        return m_postgres ? QStringLiteral(":/schema/postgresql.sql")
                          : QStringLiteral(":/schema/sqlserver.sql");
    }
    QString untimedTransaction() const override
    {
        return m_postgres ? untimedPostgresTransaction() : QString();
    }
    // ODBC cannot tell a dead link without asking the server, and a write sent on one cannot be
    // repeated: a link that has rested is asked once before it carries the next statement. Statements
    // in quick succession are not slowed down.
    bool linkAlive(QSqlDatabase& db, qint64 idleMs) const override
    {
        return idleMs < restedMs || QSqlQuery(db).exec(QStringLiteral("select 1"));
    }

private:
    static constexpr qint64 restedMs = 1000;
    bool m_postgres;
    mutable int m_port = 0;
    mutable QSet<int> m_before;
    mutable QHash<QString, int> m_sockets;
};

} // namespace

QString rewriteTopAndGetdate(const QString& statement, const QString& nowExpression)
{
    static const QRegularExpression getdate(QStringLiteral("\\bgetdate\\s*\\(\\s*\\)"),
                                            QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression top(QStringLiteral("^(\\s*select\\s+)top\\s+(\\d+)\\s+(.*)$"),
                                        QRegularExpression::CaseInsensitiveOption |
                                            QRegularExpression::DotMatchesEverythingOption);
    // Only the statement's own text is rewritten; a quoted value (with '' inside it) stays as typed.
    QString out;
    out.reserve(statement.size());
    qsizetype from = 0;
    while (from < statement.size()) {
        const qsizetype quote = statement.indexOf(QLatin1Char('\''), from);
        const qsizetype plainEnd = quote < 0 ? statement.size() : quote;
        out += statement.mid(from, plainEnd - from).replace(getdate, nowExpression);
        if (quote < 0)
            break;
        qsizetype close = quote + 1;
        for (;;) {
            close = statement.indexOf(QLatin1Char('\''), close);
            if (close < 0) {
                close = statement.size();
                break;
            }
            if (close + 1 < statement.size() && statement.at(close + 1) == QLatin1Char('\'')) {
                close += 2;
                continue;
            }
            ++close;
            break;
        }
        out += QStringView(statement).mid(quote, close - quote);
        from = close;
    }
    const QRegularExpressionMatch m = top.match(out);
    if (m.hasMatch())
        out = m.captured(1) + m.captured(3) + QStringLiteral(" limit ") + m.captured(2);
    return out;
}

PlainConnection Unscramble(const DbConfig& c)
{
    return {c.server.plain(), c.user.plain(), c.password.plain(), c.database.plain(), c.port,
            c.odbcDriver,     c.sslMode,      c.statementLimitMs, c.lockWaitMs(),     c.loginSeconds()};
}

bool ServerDialect::linkAlive(QSqlDatabase&, qint64) const
{
    return true;
}

std::optional<ServerDialect::Answers> ServerDialect::pipeline(QSqlDatabase&, const QStringList&) const
{
    return std::nullopt;
}

QString ServerDialect::odbcConnectionString(const PlainConnection& params)
{
    QString s = QStringLiteral("DRIVER=") + params.odbcDriver + QStringLiteral(";SERVER=") + params.server +
                QStringLiteral(";UID=") + params.user + QStringLiteral(";PWD=") + params.password +
                QStringLiteral(";DATABASE=") + params.database;
    if (params.port > 0)
        s += QStringLiteral(";PORT=") + QString::number(params.port);
    return s;
}

std::unique_ptr<ServerDialect> ServerDialect::create(const DbConfig& config)
{
    switch (config.kind) {
    case ServerKind::Sqlite:
        return std::make_unique<SqliteDialect>();
    case ServerKind::PostgreSql:
        if (config.viaOdbc)
            return std::make_unique<OdbcDialect>(true);
        return std::make_unique<PostgresDialect>();
    case ServerKind::SqlServer:
        break;
    }
    return std::make_unique<OdbcDialect>(false);
}

QString LikeText(ServerKind kind, const QString& text)
{
    if (kind != ServerKind::PostgreSql)
        return text;
    return QString(text).replace(u'\\', QStringLiteral("\\\\"));
}

QString DayOfTime(ServerKind kind, const QString& column)
{
    if (kind == ServerKind::SqlServer)
        return QStringLiteral("left(") + column + QStringLiteral(",10)");
    return QStringLiteral("substr(") + column + QStringLiteral(",1,10)");
}

} // namespace lanzhou
