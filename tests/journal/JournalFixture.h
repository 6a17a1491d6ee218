#pragma once

#include "MxEd.h"
#include "MxLst.h"
#include "TestContext.h"
#include "WindowDriver.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>

namespace lanzhou::test {

// The ledger "L1" with item label 物品 and quantity label 存量, opened by 管理员 with all rights,
// the server date cached as 2026-11-15 (the fixed clock's day).
void openJournalLedger(TestContext& t);
// Adds one row of Zhang as it stands.
void addEntry(TestContext& t, const QString& ledgerId, const QString& op, const QString& time,
              const QString& id, const QString& item, const QString& quantity, const QString& remark);
// A small ledger: movements before, inside and after 2026-11-15, a tombstoned entry, an entry of
// another ledger, an item written in two letter cases and an item name too long for its column.
void addSampleEntries(TestContext& t);

QListWidget* list(QWidget* window, const QString& name);
QComboBox* combo(QWidget* window, const QString& name);
QPushButton* button(QWidget* window, const QString& name);
void click(QWidget* window, const QString& buttonName);
// Picks the entry of a drop-down list as the user would.
void pick(QComboBox* list, const QString& text);
void pickIndex(QComboBox* list, int index);
// Clicks a line of a list (scrolled into view first).
void clickLine(QListWidget* list, int row);
void doubleClickLine(QListWidget* list, int row);

// The entry IDs of the listing, in listing order.
QStringList listedIds(MxLst& journal);
// The row of the line showing the entry.
int rowOfEntry(MxLst& journal, const QString& id);
// The trimmed cells of a line, split at its bars.
QStringList cells(const QString& line);
// The editor the journal has open, or null.
MxEd* openEditor(MxLst& journal);

} // namespace lanzhou::test
