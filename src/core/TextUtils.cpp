#include "TextUtils.h"

#include <QRegularExpression>

#include <cmath>

namespace lanzhou {

QString TrimBlanks(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

QString CleanInput(const QString& text)
{
    QString s = TrimBlanks(text);
    s.remove(QLatin1Char('\''));
    s.remove(QChar(10));
    s.remove(QChar(13));
    // A NUL ends the statement text on every driver, so the quoted value would never be closed.
    s.remove(QChar(0));
    s.replace(QLatin1Char(','), QChar(0xFF0C));
    s.replace(QChar(0x2502), QLatin1Char('|'));
    s.replace(QChar(0x2500), QLatin1Char('-'));
    return s;
}

QString GeneralNumberText(double value)
{
    if (value == 0 || !std::isfinite(value))
        return QStringLiteral("0");
    QString s = QString::number(value, 'g', 15);
    if (!s.contains(QLatin1Char('e')))
        return s;
    const int exponent = int(std::floor(std::log10(std::fabs(value))));
    s = QString::number(value, 'f', qMax(0, 14 - exponent));
    if (s.contains(QLatin1Char('.'))) {
        while (s.endsWith(QLatin1Char('0')))
            s.chop(1);
        if (s.endsWith(QLatin1Char('.')))
            s.chop(1);
    }
    return s;
}

QString SqlLiteral(const QString& value)
{
    QString literal = value;
    // No quoted value can carry a NUL: every driver ends the statement text at it.
    literal.remove(QChar(0));
    return literal.replace(QLatin1Char('\''), QStringLiteral("''"));
}

QString FormatQuantity(double quantity)
{
    QString s = GeneralNumberText(quantity);
    const qsizetype dot = s.indexOf(QLatin1Char('.'));
    if (dot >= 0 && s.size() - dot - 1 > 8)
        s = GeneralNumberText(NumericValue(QString::number(quantity, 'f', 8)));
    QString sign;
    if (s.startsWith(QLatin1Char('-')) || s.startsWith(QLatin1Char('+'))) {
        sign = s.left(1);
        s.remove(0, 1);
    }
    if (s.startsWith(QLatin1Char('.')))
        s.prepend(QLatin1Char('0'));
    return sign + s;
}

double NumericValue(const QString& text)
{
    QString s;
    for (const QChar c : text) {
        if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QChar(10) && c != QChar(13))
            s.append(c);
    }
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eEdD][+-]?\\d+)?"));
    const QRegularExpressionMatch m = number.match(s);
    if (!m.hasMatch())
        return 0;
    QString found = m.captured(0);
    found.replace(QLatin1Char('d'), QLatin1Char('e')).replace(QLatin1Char('D'), QLatin1Char('e'));
    const double value = found.toDouble();
    return std::isfinite(value) ? value : 0;
}

bool IsNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
    return number.match(text.trimmed()).hasMatch();
}

QString CollapseDashes(QString text)
{
    while (text.contains(QStringLiteral(" -")))
        text.replace(QStringLiteral(" -"), QStringLiteral("-"));
    while (text.contains(QStringLiteral("- ")))
        text.replace(QStringLiteral("- "), QStringLiteral("-"));
    return text;
}

} // namespace lanzhou
