#include "ServerDialect.h"

#include "TextUtils.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlQuery>

#include <QHash>

#include <libpq-fe.h>

#include <optional>

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/stat.h>
#endif

namespace lanzhou {

namespace {

// Seconds a login may take before the runner gives up and answers the empty string.
constexpr int loginTimeoutSeconds = 5;
// Milliseconds one statement may run on PostgreSQL before the server cancels it.
constexpr int statementTimeoutMs = 30000;

// PostgreSQL sessions are pinned when they start, whatever the server's defaults: text in UTF-8,
// backslashes in quoted values taken literally, and no statement running for ever. Sent with the
// login, so they cost no round trip.
QString pinnedPostgresOptions()
{
    return QStringLiteral("options='-c client_encoding=UTF8 -c standard_conforming_strings=on "
                          "-c statement_timeout=%1'")
        .arg(statementTimeoutMs);
}

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
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
    }
    QString rewrite(const QString& statement) const override
    {
        return rewriteTopAndGetdate(statement, QStringLiteral("datetime('now','localtime')"));
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
                                 .arg(loginTimeoutSeconds)
                                 .arg(params.sslMode, pinnedPostgresOptions()));
    }
    QString rewrite(const QString& statement) const override
    {
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
    }
    bool checksLinks() const override { return true; }
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
            connection += QStringLiteral(";SSLmode=") + params.sslMode + QStringLiteral(";pqopt={") +
                          pinnedPostgresOptions() + u'}';
        db.setDatabaseName(connection);
        db.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1;SQL_ATTR_CONNECTION_TIMEOUT=%1")
                                 .arg(loginTimeoutSeconds));
    }
    QString rewrite(const QString& statement) const override
    {
        if (!m_postgres)
            return statement;
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
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
    return {c.server.plain(), c.user.plain(), c.password.plain(), c.database.plain(),
            c.port,           c.odbcDriver,   c.sslMode};
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

} // namespace lanzhou
