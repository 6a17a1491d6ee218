#include "KeywordBoxes.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

namespace lanzhou {

namespace {

struct Run
{
    qsizetype start;
    qsizetype length;
};

QList<Run> blankRuns(const QString& caption)
{
    QList<Run> runs;
    for (qsizetype i = 0; i < caption.size();) {
        if (caption.at(i) != QLatin1Char(' ')) {
            ++i;
            continue;
        }
        const qsizetype start = i;
        while (i < caption.size() && caption.at(i) == QLatin1Char(' '))
            ++i;
        runs.append({start, i - start});
    }
    return runs;
}

} // namespace

void PlaceOverBlankRuns(const QRadioButton* option, const QList<QLineEdit*>& boxes)
{
    QStyleOptionButton style;
    style.initFrom(option);
    style.text = option->text();
    const QRect contents = option->style()->subElementRect(QStyle::SE_RadioButtonContents, &style, option);
    const QFontMetrics metrics(option->font());
    const QString caption = option->text();
    const QList<Run> runs = blankRuns(caption);

    for (qsizetype i = 0; i < boxes.size() && i < runs.size(); ++i) {
        QLineEdit* box = boxes.at(i);
        const int left = contents.left() + metrics.horizontalAdvance(caption.left(runs.at(i).start));
        const int width = metrics.horizontalAdvance(caption.mid(runs.at(i).start, runs.at(i).length));
        const int height = qMin(box->sizeHint().height(), option->height());
        const QPoint topLeft =
            option->mapTo(box->parentWidget(), QPoint(left, (option->height() - height) / 2));
        box->setGeometry(QRect(topLeft, QSize(width, height)));
        box->raise();
    }
}

} // namespace lanzhou
