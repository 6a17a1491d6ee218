#include "ReportItems.h"

#include "AppContext.h"
#include "LedgerItems.h"
#include "Session.h"
#include "TextGrid.h"

#include <QComboBox>
#include <QListWidget>
#include <QRegularExpression>

namespace lanzhou {

void FillReportItems(QComboBox* box, const AppContext& context)
{
    box->clear();
    // The items as the server knows them now; the session's list when the server cannot say.
    const QStringList items =
        ReadLedgerItems(context.db, context.session.ledgerId()).value_or(context.session.items());
    if (items.isEmpty())
        return;
    box->addItem(AllItemsEntry(context.session.itemLabel()));
    box->addItem(QString());
    box->addItems(items);
    box->setCurrentIndex(0);
}

bool MatchesWildcard(const QString& name, const QString& pattern)
{
    QStringList parts = pattern.toUpper().split(QLatin1Char('*'));
    for (QString& part : parts)
        part = QRegularExpression::escape(part);
    const QRegularExpression whole(QRegularExpression::anchoredPattern(parts.join(QStringLiteral(".*"))),
                                   QRegularExpression::DotMatchesEverythingOption);
    return whole.match(name.toUpper()).hasMatch();
}

QString ListedItemOfLine(const QComboBox* box, const QString& line)
{
    if (line.contains(QStringLiteral("合计：")) || !line.contains(QChar(0x2502)))
        return QString();
    const QString item = SplitCells(line).constFirst().trimmed();
    if (item.isEmpty())
        return QString();
    for (int i = firstListedItem; i < box->count(); ++i) {
        if (box->itemText(i) == item)
            return item;
    }
    const QString pattern = QLatin1Char('*') + item + QLatin1Char('*');
    for (int i = firstListedItem; i < box->count(); ++i) {
        if (MatchesWildcard(box->itemText(i), pattern))
            return box->itemText(i);
    }
    return QString();
}

QString SelectedListedItem(const QListWidget* list, int headLines, const QComboBox* box)
{
    const QListWidgetItem* line = list->currentItem();
    if (!line || !line->isSelected() || list->row(line) < headLines)
        return QString();
    return ListedItemOfLine(box, line->text());
}

} // namespace lanzhou
