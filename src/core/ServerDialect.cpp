#include "ServerDialect.h"

#include <QRegularExpression>
#include <QSqlDatabase>

namespace lanzhou {

namespace {

// Seconds a login may take before the runner gives up and answers the empty string.
constexpr int loginTimeoutSeconds = 5;

class SqliteDialect final : public ServerDialect
{
public:
    QString qtDriver() const override { return QStringLiteral("QSQLITE"); }
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

class PostgresDialect final : public ServerDialect
{
public:
    QString qtDriver() const override { return QStringLiteral("QPSQL"); }
    void configure(QSqlDatabase& db, const PlainConnection& params) const override
    {
        db.setHostName(params.server);
        if (params.port > 0)
            db.setPort(params.port);
        db.setUserName(params.user);
        db.setPassword(params.password);
        db.setDatabaseName(params.database);
        db.setConnectOptions(QStringLiteral("connect_timeout=%1").arg(loginTimeoutSeconds));
    }
    QString rewrite(const QString& statement) const override
    {
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
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
        db.setDatabaseName(odbcConnectionString(params));
        db.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1;SQL_ATTR_CONNECTION_TIMEOUT=%1")
                                 .arg(loginTimeoutSeconds));
    }
    QString rewrite(const QString& statement) const override
    {
        if (!m_postgres)
            return statement;
        return rewriteTopAndGetdate(statement, QStringLiteral("LOCALTIMESTAMP(0)"));
    }

private:
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
    QString out = statement;
    out.replace(getdate, nowExpression);
    const QRegularExpressionMatch m = top.match(out);
    if (m.hasMatch())
        out = m.captured(1) + m.captured(3) + QStringLiteral(" limit ") + m.captured(2);
    return out;
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
