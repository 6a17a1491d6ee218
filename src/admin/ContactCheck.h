#pragma once

#include <QString>

namespace lanzhou {

// The kinds of contact a ledger ID can be, in the order of the contact combo box.
enum class ContactKind
{
    Mobile = 0,
    QQ = 1,
    Email = 2
};

struct ContactCheck
{
    // The contact as cleaned so far; the window writes it back to the ID box.
    QString text;
    // Why the contact is refused, or empty when it may be looked up.
    QString refusal;
};

// Typed text cleaned for SQL and without the "#" that separates ID and name in the local ledger list.
QString CleanLedgerText(const QString& typed);

// Cleans a typed contact into a ledger ID and checks it against its kind.
// `kindText` is the kind as the combo box shows it, for the "type it completely" message.
ContactCheck CheckContact(const QString& typed, ContactKind kind, const QString& kindText);

} // namespace lanzhou
