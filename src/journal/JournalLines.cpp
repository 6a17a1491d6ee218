#include "JournalLines.h"

#include "Database.h"
#include "JournalQuery.h"
#include "TextUtils.h"

namespace lanzhou {

namespace {

// Column widths in twips: operator, time, item, increase, decrease, balance.
constexpr int operatorWidth = 890;
constexpr int timeWidth = 1590;
constexpr int itemWidth = 3000;
constexpr int amountWidth = 1000;

} // namespace

JournalLines::JournalLines(const TextGrid& grid, const QString& itemLabel, const QString& quantityLabel,
                           bool balanceMode)
    : m_grid(grid), m_itemLabel(itemLabel), m_quantityLabel(quantityLabel), m_balanceMode(balanceMode)
{
    // Framed blank lines continue the bars above and below every rule, so each junction is a cross.
    // The closing segment under the remark is shorter by the balance column in balance mode, so that
    // rules are equally long either way.
    m_ruleLine = m_balanceMode ? m_grid.ruleLine(TextGrid::Middle, {800, 1500, 3000, 1000, 1000, 1000, 4000})
                               : m_grid.ruleLine(TextGrid::Middle, {800, 1500, 3000, 1000, 1000, 5000});
}

void JournalLines::add(const QString& line, const QString& id, const QString& item)
{
    m_lines.append(line);
    m_ids.append(id);
    m_items.append(item);
}

QString JournalLines::framedBlankLine() const
{
    const QString line =
        m_balanceMode
            ? m_grid.blankCells({operatorWidth, timeWidth, itemWidth, amountWidth, amountWidth, amountWidth})
            : m_grid.blankCells({operatorWidth, timeWidth, itemWidth, amountWidth, amountWidth});
    return line + QLatin1Char(' ');
}

void JournalLines::addHeading()
{
    add(framedBlankLine());
    QString title = m_grid.textCell(QStringLiteral("  操作员"), operatorWidth) +
                    m_grid.textCell(QStringLiteral("  时间"), timeWidth) +
                    m_grid.textCell(m_itemLabel + QStringLiteral("  "), itemWidth) +
                    m_grid.textCell(QStringLiteral("  增加"), amountWidth) +
                    m_grid.textCell(QStringLiteral("  减少"), amountWidth);
    if (m_balanceMode)
        title += m_grid.textCell(m_quantityLabel + QStringLiteral("  "), amountWidth);
    add(title + QStringLiteral("  备注"));
}

void JournalLines::addRule(Rule kind)
{
    add(m_ruleLine);
    if (kind == Rule::Framed)
        add(framedBlankLine());
}

void JournalLines::addEntry(const QString& id, const QString& op, const QString& time, const QString& item,
                            double quantity, double balance, const QString& remark)
{
    QString line = m_grid.textCell(op, operatorWidth) + m_grid.textCell(time, timeWidth) +
                   m_grid.textCell(item, itemWidth);
    // Zero counts as an increase; decreases show as positive numbers.
    if (quantity >= 0)
        line += m_grid.numberCell(quantity) + m_grid.textCell(QString(), amountWidth);
    else
        line += m_grid.textCell(QString(), amountWidth) + m_grid.numberCell(-quantity);
    if (m_balanceMode)
        line += m_grid.numberCell(balance);
    add(line + remark, id, item);
}

void JournalLines::addTotals(double increase, double decrease, double grandBalance)
{
    QString line = m_grid.textCell(QString(), operatorWidth) + m_grid.textCell(QString(), timeWidth) +
                   m_grid.textCell(QStringLiteral("        合计："), itemWidth) +
                   m_grid.numberCell(increase) + m_grid.numberCell(decrease);
    if (m_balanceMode)
        line += m_grid.numberCell(grandBalance);
    add(line);
}

bool FillJournal(JournalLines& lines, const ResultGrid& rows, Database& db, const QString& ledgerId,
                 const QString& periodStart, const JournalProgress& progress)
{
    lines.addHeading();
    lines.addRule(JournalLines::Rule::Framed);
    lines.addRule(JournalLines::Rule::Single);

    // The server matches item names without regard to case, so "ABC" and "abc" are one item with one
    // opening balance. In balance mode the opening balances of all listed items are read as one batch
    // before the lines are built.
    const auto startsItem = [&rows](int i) {
        return i == 1 || rows.cell(i, 3).compare(rows.cell(i - 1, 3), Qt::CaseInsensitive) != 0;
    };
    QStringList openingReads;
    for (int i = 1; lines.balanceMode() && i < rows.rowLimit(); ++i)
        if (startsItem(i))
            openingReads.append(OpeningBalanceStatement(ledgerId, rows.cell(i, 3), periodStart));
    QList<bool> failed;
    const QStringList openings = db.RunBatch(openingReads, &failed);
    const bool answered = !ServerGone(failed);

    double increase = 0;
    double decrease = 0;
    double grandBalance = 0;
    double balance = 0;
    qsizetype nextOpening = 0;
    for (int i = 1; i < rows.rowLimit(); ++i) {
        const QString item = rows.cell(i, 3);
        if (!lines.balanceMode()) {
            if (!progress(QStringLiteral("正在读入第 ") + QString::number(i) + QStringLiteral(" 行……")))
                return answered;
        } else if (startsItem(i)) {
            grandBalance += balance;
            if (!progress(QStringLiteral("正在统计【") + item + QStringLiteral("】……")))
                return answered;
            // A failed read is an empty text, which counts as 0.
            balance = NumericValue(openings.at(nextOpening++));
        }

        const double quantity = NumericValue(rows.cell(i, 4));
        if (quantity >= 0)
            increase += quantity;
        else
            decrease -= quantity;
        balance += quantity;
        lines.addEntry(rows.cell(i, 0), rows.cell(i, 1), rows.cell(i, 2), item, quantity, balance,
                       rows.cell(i, 5));
    }
    if (lines.balanceMode())
        grandBalance += balance;

    lines.addRule(JournalLines::Rule::Single);
    lines.addTotals(increase, decrease, grandBalance);
    lines.addRule(JournalLines::Rule::Framed);
    return answered;
}

} // namespace lanzhou
