#include "ContactCheck.h"

#include "TextUtils.h"

namespace lanzhou {

namespace {

constexpr int minimumLength = 5;
constexpr int mobileLength = 11;

QString incompleteText(const QString& kindText)
{
    return QStringLiteral("请完整输入您的") + kindText + QStringLiteral("（或其他联系方式）！");
}

// Keeps the digits 0-9 only and drops leading zeros, so "0138-1234-5678" becomes "13812345678".
QString mobileDigits(const QString& text)
{
    QString digits;
    for (const QChar c : text)
        if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            digits.append(c);
    qsizetype zeros = 0;
    while (zeros < digits.size() && digits.at(zeros) == QLatin1Char('0'))
        ++zeros;
    return digits.mid(zeros);
}

} // namespace

QString CleanLedgerText(const QString& typed)
{
    return CleanInput(typed).remove(QLatin1Char('#'));
}

ContactCheck CheckContact(const QString& typed, ContactKind kind, const QString& kindText)
{
    ContactCheck check{CleanLedgerText(typed), QString()};
    if (check.text.size() < minimumLength) {
        check.refusal = incompleteText(kindText);
        return check;
    }
    switch (kind) {
    case ContactKind::Email:
        if (!check.text.contains(QLatin1Char('.')) || !check.text.contains(QLatin1Char('@')))
            check.refusal =
                QStringLiteral("您输入的  “") + check.text + QStringLiteral("”不是正确的电子邮箱格式 ！");
        break;
    case ContactKind::Mobile:
        check.text = mobileDigits(check.text);
        if (check.text.size() < minimumLength)
            check.refusal = incompleteText(kindText);
        else if (check.text.size() != mobileLength)
            check.refusal = QStringLiteral("手机号码应该为11位数字！");
        break;
    case ContactKind::QQ:
        break;
    }
    return check;
}

} // namespace lanzhou
