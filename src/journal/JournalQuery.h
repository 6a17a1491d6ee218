#pragma once

#include "DbConfig.h"

#include <QString>

namespace lanzhou {

// The journal's filters as the window's controls hold them; the texts are taken verbatim.
struct JournalFilter
{
    QString ledgerId;
    QString periodStart; // yyyy-mm-dd hh:mm
    QString periodEnd;
    QString itemText;      // CmbItm, before cleaning
    QString allItemsEntry; // "全部" + item label: no item condition
    bool itemContains = false;
    int signIndex = 0;                          // 0 all, 1 increases, 2 decreases
    QString remarkText;                         // TxtBZ, before cleaning
    QString operatorName;                       // empty: every operator
    int sortIndex = 0;                          // 0 item, 1 time, 2 quantity
    ServerKind serverKind = ServerKind::Sqlite; // how the "contains" patterns are written
};

struct JournalStatement
{
    QString sql;
    // A running balance only makes sense for an unfiltered listing sorted by item.
    bool balanceMode = true;
};

JournalStatement BuildJournalStatement(const JournalFilter& filter);
// The balance an item carries into the period.
QString OpeningBalanceStatement(const QString& ledgerId, const QString& item, const QString& periodStart);

} // namespace lanzhou
