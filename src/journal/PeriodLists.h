#pragma once

#include <QDateTime>
#include <QString>

#include <array>

class QComboBox;

namespace lanzhou {

// The five lists of a point in time: year, month, day, hour, minute (control arrays Cmb, Cmb2).
using PeriodLists = std::array<QComboBox*, 5>;
// The entries chosen in the five lists, by position; an empty text stands for "as it is".
using PeriodChoice = std::array<QString, 5>;

// Years from ten before to twenty after `year` as plain digits; months, days, hours, minutes "#00".
void FillPeriodLists(const PeriodLists& lists, int year);
// Selects the entries of a point in time; a year missing from its list is added in order.
void SelectPeriod(const PeriodLists& lists, int year, int month, int day, int hour, int minute);
// The entries the lists show now.
PeriodChoice ChosenPeriod(const PeriodLists& lists);
// Selects each given entry in the list at its position; an empty text, or one the list lacks, leaves
// that list as it is.
void ChoosePeriod(const PeriodLists& lists, const PeriodChoice& choice);
// year-month-day hour:minute from the lists' texts, as TM is written and compared.
QString PeriodText(const PeriodLists& lists);
// The date and time the lists show; a day past the month's end runs on into the next month.
QDateTime PeriodDateTime(const PeriodLists& lists);
// Keeps the day inside its month whenever one of the lists changes: 31 becomes 30 in April, June,
// September and November; in February 29 is the limit when the year divides by 4, else 28.
void ClampDayOnChange(const PeriodLists& lists);

} // namespace lanzhou
