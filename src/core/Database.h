#pragma once

#include "DbConfig.h"
#include "ResultGrid.h"
#include "ServerDialect.h"

#include <QString>

#include <memory>

namespace lanzhou {

// The two query runners. Each call opens a fresh connection, runs one statement, closes it and
// answers "OK" for a write, the row count (RunQuery) or first value (RunScalar) for a read, and the
// empty text on any failure. They never show a message: the caller decides what to say.
class Database
{
public:
    explicit Database(DbConfig config);

    // The embedded file is made with its schema at start-up when it is missing; later a missing file
    // is a failure, never a new empty database. False when the file cannot be made.
    bool prepareEmbeddedFile() const;

    QString RunQuery(const QString& statement);
    QString RunScalar(const QString& statement);

    const ResultGrid& grid() const { return m_grid; }
    const DbConfig& config() const { return m_config; }

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

    DbConfig m_config;
    std::unique_ptr<ServerDialect> m_dialect;
    ResultGrid m_grid;
    quint64 m_connectionCounter = 0;
};

} // namespace lanzhou
