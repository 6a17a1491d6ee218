#include "TextGrid.h"

#include "TextUtils.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>

namespace lanzhou {

namespace {

double screenDpi()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchX() : 96.0;
}

const QChar bar(0x2502);

} // namespace

TextGrid::TextGrid(const QFont& font) : m_metrics(font), m_twipsPerPixel(1440.0 / screenDpi()) {}

QFont TextGrid::listFont()
{
#ifdef Q_OS_WIN
    QFont font(QStringLiteral("SimSun"), 10);
#else
    QFont font(QStringLiteral("Noto Sans Mono CJK SC"), 10);
#endif
    font.setStyleHint(QFont::Monospace);
    return font;
}

double TextGrid::widthTwips(const QString& text) const
{
    return m_metrics.horizontalAdvance(text) * m_twipsPerPixel;
}

QString TextGrid::textCell(const QString& text, int width) const
{
    QString cell = text;
    while (!cell.isEmpty() && widthTwips(cell) > width)
        cell.chop(cell.size() > 1 && cell.at(cell.size() - 1).isLowSurrogate() ? 2 : 1);
    while (widthTwips(cell) < width)
        cell.append(QLatin1Char(' '));
    return cell + bar;
}

QString TextGrid::numberCell(double value, int width) const
{
    QString cell = FormatQuantity(value);
    while (widthTwips(cell) < width)
        cell.prepend(QLatin1Char(' '));
    return cell + bar;
}

QString TextGrid::ruleSegment(Junction junction, int width) const
{
    static const QChar glyphs[] = {QChar(0x252C), QChar(0x253C), QChar(0x2534)};
    QString rule;
    while (widthTwips(rule) < width)
        rule.append(QChar(0x2500));
    return rule + glyphs[junction];
}

} // namespace lanzhou
