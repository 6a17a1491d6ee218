#pragma once

#include "TextGrid.h"

#include <QStringList>

#include <functional>

namespace lanzhou {

class Database;
class ResultGrid;

// The journal's text table: each line goes with the ID and the whole item name of the entry it shows
// (empty for heading, rule and totals lines), so that the lists stay index-aligned.
class JournalLines
{
public:
    // A rule alone, or a rule followed by a framed blank line.
    enum class Rule
    {
        Single = 1,
        Framed = 2
    };

    JournalLines(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel,
                 bool balanceMode);

    bool balanceMode() const { return m_balanceMode; }
    const QStringList& lines() const { return m_lines; }
    const QStringList& ids() const { return m_ids; }
    const QStringList& items() const { return m_items; }

    // A framed blank line and the column titles.
    void addHeading();
    void addRule(Rule kind);
    // `balance` is shown in balance mode only.
    void addEntry(const QString& id, const QString& op, const QString& time, const QString& item,
                  double quantity, double balance, const QString& remark);
    void addTotals(double increase, double decrease, double grandBalance);

private:
    void add(const QString& line, const QString& id = QString(), const QString& item = QString());
    QString framedBlankLine() const;

    const TextGrid& m_grid;
    QString m_itemLabel;
    QString m_quantityLabel;
    bool m_balanceMode;
    QString m_ruleLine;
    QStringList m_lines;
    QStringList m_ids;
    QStringList m_items;
};

// Progress callers show while the listing is built: a caption per row, or per item in balance mode.
// It answers false when the listing is to stop there (its window was closed).
using JournalProgress = std::function<bool(const QString& caption)>;

// Builds the listing from the rows of the journal statement (row 0 the field names; fields id, usr,
// tm, item, sl, bz). In balance mode each item starts from its balance before the period, read
// from the database, a single failed read counting as 0. Answers false when the server stopped
// answering those reads, so that no balance can be trusted. A stopped listing is left unfinished.
bool FillJournal(JournalLines& lines, const ResultGrid& rows, Database& db, const QString& ledgerId,
                 const QString& periodStart, const JournalProgress& progress);

} // namespace lanzhou
