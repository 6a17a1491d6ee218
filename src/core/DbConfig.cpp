#include "DbConfig.h"

#include <QDir>
#include <QStandardPaths>
#include <QUrl>
#include <QUrlQuery>

#ifndef LANZHOU_DEFAULT_DATABASE
#define LANZHOU_DEFAULT_DATABASE ""
#endif

namespace lanzhou {

namespace {

QString defaultOdbcDriver(ServerKind kind)
{
    if (kind == ServerKind::PostgreSql)
        return QStringLiteral("PostgreSQL Unicode");
#ifdef Q_OS_WIN
    return QStringLiteral("SQL Server");
#else
    return QStringLiteral("FreeTDS");
#endif
}

} // namespace

bool DbConfig::fromAddress(const QString& address, DbConfig* config, QString* error)
{
    const QUrl url(address, QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    DbConfig c;
    if (!url.isValid() || scheme.isEmpty()) {
        *error = QStringLiteral("数据库地址无法识别：") + address;
        return false;
    }
    if (scheme == QLatin1String("sqlite")) {
        if (url.path().isEmpty()) {
            *error = QStringLiteral("SQLite 地址缺少文件路径：") + address;
            return false;
        }
        // sqlite://folder/file.db would name the file /file.db and drop the folder without a word.
        if (!url.host().isEmpty()) {
            *error = QStringLiteral("SQLite 地址应写作 sqlite:///绝对路径 或 sqlite:相对路径：") + address;
            return false;
        }
        c.server = Scrambled::fromPlain(url.path());
        *config = c;
        return true;
    }
    if (scheme == QLatin1String("postgresql") || scheme == QLatin1String("postgres")) {
        c.kind = ServerKind::PostgreSql;
    } else if (scheme == QLatin1String("odbc+postgresql")) {
        c.kind = ServerKind::PostgreSql;
        c.viaOdbc = true;
    } else if (scheme == QLatin1String("sqlserver") || scheme == QLatin1String("mssql")) {
        c.kind = ServerKind::SqlServer;
        c.viaOdbc = true;
    } else {
        *error = QStringLiteral("不支持的数据库类型：") + url.scheme();
        return false;
    }
    if (url.host().isEmpty()) {
        *error = QStringLiteral("数据库地址缺少服务器：") + address;
        return false;
    }
    c.port = url.port(0);
    c.server = Scrambled::fromPlain(url.host());
    c.user = Scrambled::fromPlain(url.userName());
    c.password = Scrambled::fromPlain(url.password());
    QString db = url.path();
    if (db.startsWith(QLatin1Char('/')))
        db.remove(0, 1);
    c.database = Scrambled::fromPlain(db);
    const QUrlQuery query(url);
    const QString driver = query.queryItemValue(QStringLiteral("driver"), QUrl::FullyDecoded);
    c.odbcDriver = driver.isEmpty() ? defaultOdbcDriver(c.kind) : driver;
    if (query.hasQueryItem(QStringLiteral("sslmode")))
        c.sslMode = query.queryItemValue(QStringLiteral("sslmode"), QUrl::FullyDecoded);
    *config = c;
    return true;
}

DbConfig DbConfig::embedded(const QString& dataFolder)
{
    QString folder = dataFolder;
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                 QStringLiteral("/lanzhou");
    DbConfig c;
    c.server = Scrambled::fromPlain(QDir(folder).filePath(QStringLiteral("ledgers.db")));
    return c;
}

DbConfig DbConfig::fromEnvironment(QString* error)
{
    QString address = qEnvironmentVariable("LANZHOU_DATABASE");
    if (address.isEmpty())
        address = QStringLiteral(LANZHOU_DEFAULT_DATABASE);
    if (address.isEmpty())
        return embedded();
    DbConfig c;
    if (!fromAddress(address, &c, error))
        return embedded();
    return c;
}

} // namespace lanzhou
