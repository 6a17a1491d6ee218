#pragma once

#include "DbConfig.h"

#include <QString>

#include <QList>

#include <memory>
#include <optional>

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
    QString sslMode;
    // The configuration's time-outs.
    int statementLimitMs = 0;
    int lockWaitMs = 0;
    int loginSeconds = 0;
};

// The plain parameters of a configuration; call only where a link is opened.
PlainConnection Unscramble(const DbConfig& config);

// What differs between server kinds: the Qt driver, how a connection is set up, and the rewrite
// of the two constructs (`select top N`, `Getdate()`) that a kind cannot read.
class ServerDialect
{
public:
    virtual ~ServerDialect() = default;
    virtual QString qtDriver() const = 0;
    virtual void configure(QSqlDatabase& db, const PlainConnection& params) const = 0;
    virtual QString rewrite(const QString& statement) const = 0;
    // The resource holding the kind's tables and indexes (schema/*.sql).
    virtual QString schemaResource() const = 0;
    // A statement that frees one held transaction from the statement time-out, since a ledger copy
    // reads its entries for as long as writing them takes; the watch still cuts a link that stops
    // answering. Empty where the server keeps no such time-out.
    virtual QString untimedTransaction() const { return QString(); }
    // Whether the kind can tell, without asking the server, that a link can still carry a statement;
    // and whether a link, idle for so many milliseconds, can. Where the kind cannot tell, a link is
    // dropped after any failure and a read that failed on a kept link runs once more on a new one.
    virtual bool checksLinks() const { return false; }
    virtual bool linkAlive(QSqlDatabase& db, qint64 idleMs = 0) const;
    // Runs single-value statements (already rewritten) over one link in as few round trips as the
    // kind allows, each answered as a single-value read is: its first value ("OK" for a write), or
    // nothing when it failed. Nothing at all when the kind has no such way or the link broke on the
    // way; the caller then runs them one by one.
    using Answers = QList<std::optional<QString>>;
    virtual std::optional<Answers> pipeline(QSqlDatabase& db, const QStringList& statements) const;
    // Called once a new link is open, so that the kind may note what it needs to judge it later.
    virtual void linkOpened(QSqlDatabase&) const {}
    // The socket of a link to a server, for the watch that cuts a link the server leaves unanswered;
    // below 0 when there is none or the kind cannot tell.
    virtual int linkSocket(QSqlDatabase&) const { return -1; }
    // How long an idle link stays open, in milliseconds; below 0 for as long as the program runs.
    virtual int idleLimitMs() const { return 60000; }

    static std::unique_ptr<ServerDialect> create(const DbConfig& config);
    // The ODBC connection string in the classic order: DRIVER, SERVER, UID, PWD, DATABASE.
    static QString odbcConnectionString(const PlainConnection& params);
};

// Rewrites `select top N ...` to `select ... limit N` and `Getdate()` to the given "now" expression.
QString rewriteTopAndGetdate(const QString& statement, const QString& nowExpression);

// Typed text (already cleaned) as the body of a like pattern that finds it on this server kind:
// PostgreSQL reads a backslash in a pattern as an escape, so there it is doubled. "%" and "_" stay
// wildcards everywhere, as the operator may type them on purpose.
QString LikeText(ServerKind kind, const QString& text);

// The day of a posting time as this server kind writes it in a statement: the first ten characters
// (yyyy-mm-dd) of the column's text.
QString DayOfTime(ServerKind kind, const QString& column);

} // namespace lanzhou
