#pragma once

#include <QStringList>

#include <functional>

namespace lanzhou {

class Database;

// Rows written so far of all the rows of one table; answering false stops the copy, which then
// leaves the target as it was.
using CopyProgress = std::function<bool(const QString& table, qint64 done, qint64 total)>;

struct CopyOutcome
{
    bool ok = false;
    // One line per table with the rows on both sides, then what was copied; empty when not copied.
    QStringList lines;
    // What went wrong and where, when not copied.
    QString error;
};

// Copies one ledger from one ledger database to another, of any server kind: its ZbLst row, its
// operators with their passwords and rights, and all its entries, tombstones included, every value
// as stored. The target gets the tables it lacks; a target that already holds the ledger is refused.
// Everything is written in one transaction, in runs of rows, and committed only when both sides
// count the same rows per table and the same total per item; otherwise nothing is kept.
CopyOutcome CopyLedger(Database& source, Database& target, const QString& ledgerId,
                       const CopyProgress& progress = {});

} // namespace lanzhou
