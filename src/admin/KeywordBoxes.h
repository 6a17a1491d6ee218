#pragma once

#include <QList>

class QLineEdit;
class QRadioButton;

namespace lanzhou {

// The custom ledger type's caption leaves runs of blanks where its two keyword boxes go.
// Places box i over the i-th run of blanks of the option's caption (in the boxes' parent).
void PlaceOverBlankRuns(const QRadioButton* option, const QList<QLineEdit*>& boxes);

} // namespace lanzhou
