#include "QuickEntryRules.h"

#include "LedgerItems.h"
#include "Rights.h"
#include "TextUtils.h"

#include <cmath>

namespace lanzhou {

namespace {

bool IsAsciiDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// Digit grouping the operator may type; the input cleaner turns "," into "，" before the scan.
bool IsGroupingComma(QChar c)
{
    return c == QLatin1Char(',') || c == QChar(0xFF0C);
}

const QString kTitle = QStringLiteral("提示");

} // namespace

QString GenerateEntryId(const QString& serverDate, double secondsSinceMidnight)
{
    QString digits = serverDate;
    digits.remove(QLatin1Char('-'));
    const QChar yearCode(digits.left(4).toInt() - 1948);
    // The clock's hundredths are read as a single-precision value.
    const float hundredths = float(secondsSinceMidnight) * 100.0f;
    const qint64 ticks = std::llround(double(hundredths));
    return yearCode + digits.mid(4) + QStringLiteral("%1").arg(ticks, 7, 10, QLatin1Char('0'));
}

QString WithAutomaticSign(const QString& text)
{
    qsizetype first = 0;
    while (first < text.size() && text.at(first) == QLatin1Char(' '))
        ++first;
    if (first == text.size())
        return text;
    const QChar c = text.at(first);
    if (IsAsciiDigit(c))
        return QLatin1Char('+') + text.mid(first);
    if (c == QLatin1Char('.'))
        return QStringLiteral("+0") + text.mid(first);
    return text;
}

bool HasNoPostingRight(const QString& rights)
{
    return rights.mid(1, 2) == QLatin1String("00");
}

QString NoPostingRightText()
{
    return QStringLiteral("对不起，您没有【记账】的权限！");
}

Posting SplitQuantity(const QString& quantityText)
{
    Posting posting;
    qsizetype at = 0;
    for (; at < quantityText.size(); ++at) {
        const QChar c = quantityText.at(at);
        if (IsAsciiDigit(c) || c == QLatin1Char('.') ||
            (at == 0 && (c == QLatin1Char('+') || c == QLatin1Char('-'))))
            posting.numberText.append(c);
        else if (!IsGroupingComma(c))
            break;
    }
    posting.quantity = NumericValue(posting.numberText);
    if (at < quantityText.size()) {
        QString remark = CleanInput(quantityText.mid(at));
        remark.remove(QLatin1Char('|'));
        posting.remark = CollapseDashes(remark);
    }
    return posting;
}

PostingCheck CheckPosting(const PostingRequest& r)
{
    PostingCheck check;
    const auto refuse = [&check](const QString& text, const QString& title) {
        check.refusal = text;
        check.refusalTitle = title;
        return check;
    };
    if (r.item.isEmpty())
        return refuse(QStringLiteral("请输入或选择") + r.itemLabel + QStringLiteral("！"), kTitle);
    const QString item = CollapseDashes(r.item);
    const QString allItems = AllItemsEntry(r.itemLabel);
    if (item.contains(allItems))
        return refuse(r.itemLabel + QStringLiteral("中不能包含“") + allItems + QStringLiteral("”这样的词！"),
                      kTitle);
    const QString& text = r.quantityText;
    if (text.size() < 2)
        return refuse(QStringLiteral("请输入") + r.quantityCaption + QStringLiteral("数字！"), kTitle);
    if ((text.at(0) != QLatin1Char('+') && text.at(0) != QLatin1Char('-')) || !IsAsciiDigit(text.at(1)))
        return refuse(QStringLiteral("请在") + r.quantityCaption +
                          QStringLiteral("栏输入数字，备注信息请放在数字之后，并用空格隔开！"),
                      QString());
    check.posting = SplitQuantity(text);
    check.posting.item = item;
    // The sign right reads the whole text, so "-0" counts as an increase.
    const double signedValue = NumericValue(text);
    if (signedValue >= 0 && !Rights::Granted(r.rights, Right::RecordIncrease))
        return refuse(QStringLiteral("对不起，您只能记录") + r.quantityLabel + QStringLiteral("减少的账目！"),
                      QString());
    if (signedValue < 0 && !Rights::Granted(r.rights, Right::RecordDecrease))
        return refuse(QStringLiteral("对不起，您只能记录") + r.quantityLabel + QStringLiteral("增加的账目！"),
                      QString());
    return check;
}

} // namespace lanzhou
