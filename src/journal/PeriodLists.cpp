#include "PeriodLists.h"

#include "TextUtils.h"

#include <QComboBox>

namespace lanzhou {

namespace {

enum Part
{
    Year,
    Month,
    Day,
    Hour,
    Minute
};

QString twoDigits(int value)
{
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

void addRange(QComboBox* list, int from, int to)
{
    QStringList texts;
    for (int value = from; value <= to; ++value)
        texts.append(twoDigits(value));
    list->addItems(texts);
}

int value(const PeriodLists& lists, Part part)
{
    return int(NumericValue(lists[part]->currentText()));
}

void selectText(QComboBox* list, const QString& text)
{
    const int index = list->findText(text);
    if (index >= 0)
        list->setCurrentIndex(index);
}

void clampDay(const PeriodLists& lists)
{
    const int month = value(lists, Month);
    const int day = value(lists, Day);
    if ((month == 4 || month == 6 || month == 9 || month == 11) && day == 31)
        selectText(lists[Day], QStringLiteral("30"));
    else if (month == 2) {
        const int last = value(lists, Year) % 4 == 0 ? 29 : 28;
        if (day > last)
            selectText(lists[Day], twoDigits(last));
    }
}

} // namespace

void FillPeriodLists(const PeriodLists& lists, int year)
{
    for (QComboBox* list : lists)
        list->clear();
    QStringList years;
    for (int y = year - 10; y <= year + 20; ++y)
        years.append(QString::number(y));
    lists[Year]->addItems(years);
    addRange(lists[Month], 1, 12);
    addRange(lists[Day], 1, 31);
    addRange(lists[Hour], 0, 23);
    addRange(lists[Minute], 0, 59);
}

void SelectPeriod(const PeriodLists& lists, int year, int month, int day, int hour, int minute)
{
    QComboBox* years = lists[Year];
    const QString yearText = QString::number(year);
    if (years->findText(yearText) < 0) {
        int at = 0;
        while (at < years->count() && NumericValue(years->itemText(at)) < year)
            ++at;
        years->insertItem(at, yearText);
    }
    selectText(years, yearText);
    selectText(lists[Month], twoDigits(month));
    selectText(lists[Day], twoDigits(day));
    selectText(lists[Hour], twoDigits(hour));
    selectText(lists[Minute], twoDigits(minute));
}

PeriodChoice ChosenPeriod(const PeriodLists& lists)
{
    PeriodChoice choice;
    for (size_t i = 0; i < lists.size(); ++i)
        choice[i] = lists[i]->currentText();
    return choice;
}

void ChoosePeriod(const PeriodLists& lists, const PeriodChoice& choice)
{
    for (size_t i = 0; i < lists.size(); ++i) {
        if (!choice[i].isEmpty())
            selectText(lists[i], choice[i]);
    }
}

QString PeriodText(const PeriodLists& lists)
{
    return lists[Year]->currentText() + QLatin1Char('-') + lists[Month]->currentText() + QLatin1Char('-') +
           lists[Day]->currentText() + QLatin1Char(' ') + lists[Hour]->currentText() + QLatin1Char(':') +
           lists[Minute]->currentText();
}

QDateTime PeriodDateTime(const PeriodLists& lists)
{
    const QDate monthStart(value(lists, Year), value(lists, Month), 1);
    return QDateTime(monthStart.addDays(value(lists, Day) - 1),
                     QTime(value(lists, Hour), value(lists, Minute)), Qt::UTC);
}

void ClampDayOnChange(const PeriodLists& lists)
{
    for (QComboBox* list : lists)
        QObject::connect(list, &QComboBox::currentIndexChanged, list, [lists] { clampDay(lists); });
}

} // namespace lanzhou
