#pragma once

#include "DbConfig.h"

#include <QString>

#include <memory>

class QSqlDatabase;

namespace lanzhou {

// The plain connection parameters, alive only inside one runner call.
struct PlainConnection
{
    QString server;
    QString user;
    QString password;
    QString database;
    int port = 0;
    QString odbcDriver;
};

// What differs between server kinds: the Qt driver, how a connection is set up, and the rewrite
// of the two constructs (`select top N`, `Getdate()`) that a kind cannot read.
class ServerDialect
{
public:
    virtual ~ServerDialect() = default;
    virtual QString qtDriver() const = 0;
    virtual void configure(QSqlDatabase& db, const PlainConnection& params) const = 0;
    virtual QString rewrite(const QString& statement) const = 0;

    static std::unique_ptr<ServerDialect> create(const DbConfig& config);
    // The ODBC connection string in the classic order: DRIVER, SERVER, UID, PWD, DATABASE.
    static QString odbcConnectionString(const PlainConnection& params);
};

// Rewrites `select top N ...` to `select ... limit N` and `Getdate()` to the given "now" expression.
QString rewriteTopAndGetdate(const QString& statement, const QString& nowExpression);

} // namespace lanzhou
