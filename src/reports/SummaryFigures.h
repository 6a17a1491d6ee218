#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace lanzhou {

class Database;

// The four figures of one item over a period; the decrease is held as a positive number.
struct ItemFigures
{
    QString item;
    double opening = 0;
    double increase = 0;
    double decrease = 0;

    double closing() const { return opening + increase - decrease; }
    // A row whose four figures add up to zero is left out when the summary hides such rows; the test
    // is on the plain sum, so opening -2, increase 2, decrease 0, closing 0 is left out too.
    bool sumsToZero() const { return opening + increase + decrease + closing() == 0; }
};

// The three reads of an item, in the order opening, increase, decrease. Bounds are
// "year-month-day hour:minute"; the period includes both.
QStringList SummaryStatements(const QString& ledgerId, const QString& item, const QString& start,
                              const QString& end);

// The items a condition selects from the listed items, in list order: all of them for an empty
// condition; with `contains` those whose name holds the text ("*" in it stands for any run of
// characters); otherwise those whose name equals it. Letters are compared in upper case.
QStringList SelectSummaryItems(const QStringList& listed, const QString& condition, bool contains);

// Reads the figures of the items and hands each to `onItem` in order. The reads go to the server in
// batches of two hundred items, so a slow link costs a few round trips per batch rather than three per
// item, and the window still shows progress between batches; a single failed read counts as 0. `onItem`
// answers false to stop the reads there (the window was closed). Answers false when the server
// stopped answering, before the items of that batch are handed on.
bool ReadSummaryFigures(Database& db, const QString& ledgerId, const QStringList& items, const QString& start,
                        const QString& end, const std::function<bool(const ItemFigures&)>& onItem);

} // namespace lanzhou
