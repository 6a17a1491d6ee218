#pragma once

#include <QList>
#include <QStringList>
#include <QVariant>

#include <optional>

namespace lanzhou {

// One of the three tables as a ledger copy reads and writes it.
struct LedgerTable
{
    QString name;
    // Every column, in the order the rows are read and written; the ledger ID comes first.
    QStringList columns;
    // The one numeric column (the entries' SL), -1 where every column is text.
    int quantityColumn = -1;
    // The entries: a deleted or modified entry stays under a tombstone that names the ledger.
    bool withTombstones = false;
};

// ZbLst, UsrLst and Zhang, in the order a copy writes them.
const QList<LedgerTable>& LedgerTables();

// Statements that read the same rows on every server kind. A table's rows of a ledger are those of
// its ID; the entries' also those whose ZBID holds "#" + ID + "#" anywhere (a tombstone, also one
// that was restored and stamped again), matched with "%" and "_" in the ID taken literally.
QString SelectLedgerRows(const LedgerTable& table, const QString& ledgerId);
QString CountLedgerRows(const LedgerTable& table, const QString& ledgerId);
// The live entries' total per item, as the balance list adds them.
QString ItemSumsStatement(const QString& ledgerId);
// Whether a row read by the statements above really is the ledger's: a server whose pattern matching
// differed would otherwise hand over another ledger's entries.
bool BelongsToLedger(const LedgerTable& table, const QString& zbid, const QString& ledgerId);

// "insert into T (columns) values " for a run of rows.
QString InsertHead(const LedgerTable& table);
// One row as values of an insert, each exactly as stored: text between quotes, NULL as NULL, the
// quantity as the shortest number that reads back as the stored one (a REAL 0.1 stays 0.1). Nothing
// when the quantity is not a number any server kind could take (a text stored in SQLite's REAL column).
std::optional<QString> RowValues(const LedgerTable& table, const QList<QVariant>& values);
// The row as "column=value" pairs, to name it in a message.
QString RowText(const LedgerTable& table, const QList<QVariant>& values);

} // namespace lanzhou
