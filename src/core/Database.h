#pragma once

#include "DbConfig.h"
#include "LinkPool.h"
#include "LinkWatch.h"
#include "ResultGrid.h"
#include "ServerDialect.h"

#include <QString>

#include <functional>
#include <memory>

class QSqlDatabase;

namespace lanzhou {

// The two query runners. Each call takes a link to the database, runs one statement, gives the link
// back and answers "OK" for a write, the row count (RunQuery) or first value (RunScalar) for a read,
// and the empty text on any failure. They never show a message: the caller decides what to say.
// Beneath them a small pool keeps the physical links, so that a statement costs no login.
class Database
{
public:
    explicit Database(DbConfig config);
    ~Database();
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;

    // The embedded file is made with its schema at start-up when it is missing; later a missing file
    // is a failure, never a new empty database. False when the file cannot be made.
    bool prepareEmbeddedFile() const;
    // Makes on a link the tables and indexes of this server kind's schema that are missing.
    bool createSchema(QSqlDatabase& link) const;

    QString RunQuery(const QString& statement);
    QString RunScalar(const QString& statement);
    // A run of statements known in advance (the journal's opening balances), each answered exactly as
    // RunScalar would answer it, in order. PostgreSQL pipelines them over one link; other kinds run
    // them one by one on one link. `failed`, when given, receives for each statement whether it failed,
    // since an empty answer alone cannot tell a failure from a NULL.
    QStringList RunBatch(const QStringList& statements, QList<bool>* failed = nullptr);

    // Holds one link for a run of statements in one transaction (a ledger copy). The work runs its
    // statements on the link and calls `answered` after each, so that a long run is not taken for a
    // silent server. The transaction is committed when the work answers true and rolled back
    // otherwise; the answer is whether it was committed. Without a link the work does not run.
    using TransactionWork = std::function<bool(QSqlDatabase& link, const std::function<void()>& answered)>;
    bool RunTransaction(const TransactionWork& work);

    const ResultGrid& grid() const { return m_grid; }
    const DbConfig& config() const { return m_config; }
    // Physical links open now, in use or idle.
    int openLinks() const;

    enum class StatementKind
    {
        Unknown,
        Select,
        Write
    };
    // Upper-cased, blank-trimmed copy; its first 7 characters must be a keyword and one blank.
    static StatementKind classify(const QString& statement);

private:
    QString run(const QString& statement, bool fillGrid);
    // Runs the statement on an open link; false when it failed (the answer is then the empty text).
    bool execute(QSqlDatabase& db, const QString& statement, StatementKind kind, bool fillGrid,
                 QString& result);
    // Runs the work on a link of the pool; the work answers whether it succeeded. Without a link (the
    // server unreachable, the embedded file gone) the work does not run.
    void onLink(bool repeatable, const std::function<bool(QSqlDatabase&)>& work);
    // After a failure: whether the link can carry the next statement.
    bool linkSurvived(QSqlDatabase& db) const;

    DbConfig m_config;
    std::unique_ptr<ServerDialect> m_dialect;
    std::unique_ptr<LinkWatch> m_watch;
    std::unique_ptr<LinkPool> m_pool;
    ResultGrid m_grid;
};

// Whether a batch's failures mean that the server is gone: a read that failed while later reads were
// answered was a single failure, which counts as 0; failures that run to the end of the batch mean
// that nobody answers any more.
inline bool ServerGone(const QList<bool>& failed)
{
    return !failed.isEmpty() && failed.constLast();
}

} // namespace lanzhou
