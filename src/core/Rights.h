#pragma once

#include <QList>
#include <QString>

namespace lanzhou {

// An operator's rights string: one character per right, "1" grants, anything else refuses,
// and a missing position counts as granted.
namespace Rights {

constexpr int count = 16;

// Appends "1" until the string holds at least `length` characters.
QString Extend(const QString& rights, int length = count);
// Position is 1-based.
bool Granted(const QString& rights, int position);
QString FromChecks(const QList<bool>& checks);
QList<bool> ToChecks(const QString& rights, int boxes = count);
// The editor's dependency rules, run when a box is cleared: they only ever clear boxes.
void ApplyClearRules(QList<bool>& checks);
// The words every guarded menu entry and button shows when its right is missing.
QString RefusalText();

} // namespace Rights

} // namespace lanzhou
