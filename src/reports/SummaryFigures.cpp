#include "SummaryFigures.h"

#include "Database.h"
#include "ReportItems.h"
#include "TextUtils.h"

namespace lanzhou {

namespace {

constexpr qsizetype itemsPerBatch = 200;

} // namespace

QStringList SummaryStatements(const QString& ledgerId, const QString& item, const QString& start,
                              const QString& end)
{
    const QString itemRows = QStringLiteral("select sum(sl) from Zhang Where ZBID='") + SqlLiteral(ledgerId) +
                             QStringLiteral("' and Item='") + SqlLiteral(item);
    const QString inPeriod =
        itemRows + QStringLiteral("' and TM>='") + start + QStringLiteral("' and TM<='") + end;
    return {itemRows + QStringLiteral("' and TM<'") + start + QLatin1Char('\''),
            inPeriod + QStringLiteral("' and SL>=0 "), inPeriod + QStringLiteral("' and SL<0 ")};
}

QStringList SelectSummaryItems(const QStringList& listed, const QString& condition, bool contains)
{
    if (condition.isEmpty())
        return listed;
    QStringList selected;
    const QString pattern = QLatin1Char('*') + condition + QLatin1Char('*');
    const QString upper = condition.toUpper();
    for (const QString& item : listed) {
        if (contains ? MatchesWildcard(item, pattern) : item.toUpper() == upper)
            selected.append(item);
    }
    return selected;
}

bool ReadSummaryFigures(Database& db, const QString& ledgerId, const QStringList& items, const QString& start,
                        const QString& end, const std::function<bool(const ItemFigures&)>& onItem)
{
    for (qsizetype first = 0; first < items.size(); first += itemsPerBatch) {
        const QStringList batch = items.mid(first, itemsPerBatch);
        QStringList reads;
        for (const QString& item : batch)
            reads += SummaryStatements(ledgerId, item, start, end);
        QList<bool> failed;
        const QStringList answers = db.RunBatch(reads, &failed);
        if (ServerGone(failed))
            return false;
        for (qsizetype i = 0; i < batch.size(); ++i) {
            ItemFigures figures;
            figures.item = batch.at(i);
            figures.opening = NumericValue(answers.at(3 * i));
            figures.increase = NumericValue(answers.at(3 * i + 1));
            figures.decrease = -NumericValue(answers.at(3 * i + 2));
            if (!onItem(figures))
                return true;
        }
    }
    return true;
}

} // namespace lanzhou
