#pragma once

#include <QString>

namespace lanzhou {

// Makes typed text safe for SQL literals and the program's own separators.
QString CleanInput(const QString& text);
// Makes a value read back from the server (an item, an operator, a label) safe between the quotes of
// a statement: apostrophes are doubled and a NUL is left out, nothing else changes, so an ordinary
// value stays as it is.
QString SqlLiteral(const QString& value);
// Display form of a quantity: general text with at most 8 decimals.
QString FormatQuantity(double quantity);
// General text of a number: up to 15 significant digits, no grouping, no exponent.
QString GeneralNumberText(double value);
// The number a text begins with (blanks ignored), 0 when it begins with none.
double NumericValue(const QString& text);
// Whether the whole text, blanks at both ends aside, is one number.
bool IsNumber(const QString& text);
// Collapses " -" and "- " to "-" until none is left, as item names and remarks are stored.
QString CollapseDashes(QString text);
// Trims blanks (not other white space) at both ends.
QString TrimBlanks(const QString& text);

} // namespace lanzhou
