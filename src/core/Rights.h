#pragma once

#include <QList>
#include <QString>

namespace lanzhou {

struct AppContext;

// The rights an operator may hold, numbered by their position in the rights string.
enum class Right : int
{
    Administer = 1,
    RecordIncrease = 2,
    RecordDecrease = 3,
    SeeQuantity = 4,
    BalanceList = 5,
    Journal = 6,
    Summary = 7,
    Export = 8,
    Audit = 9, // reserved: nothing tests it
    LateEntry = 10,
    ModifyEntry = 11,
    DeleteEntry = 12,
    BulkDelete = 13,
    ChangePassword = 14,
    Reserved15 = 15,
    Announce = 16
};

// The one guard of every guarded menu entry and button: true when the session's operator holds the
// right, otherwise the refusal is shown and the answer is false.
bool RequireRight(const AppContext& context, Right right);

// An operator's rights string: one character per right, "1" grants, anything else refuses,
// and a missing position counts as granted.
namespace Rights {

constexpr int count = 16;

// Appends "1" until the string holds at least `length` characters.
QString Extend(const QString& rights, int length = count);
// Position is 1-based.
bool Granted(const QString& rights, int position);
inline bool Granted(const QString& rights, Right right)
{
    return Granted(rights, int(right));
}
QString FromChecks(const QList<bool>& checks);
QList<bool> ToChecks(const QString& rights, int boxes = count);
// The editor's dependency rules, run when a box is cleared: they only ever clear boxes.
void ApplyClearRules(QList<bool>& checks);
// The words every guarded menu entry and button shows when its right is missing.
QString RefusalText();

} // namespace Rights

} // namespace lanzhou
