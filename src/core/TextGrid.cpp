#include "TextGrid.h"

#include "TextUtils.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

namespace lanzhou {

namespace {

const QChar bar(0x2502);
const QChar rule(0x2500);
const QChar blank(QLatin1Char(' '));

// Twips follow the font's point size (one point is 20 twips), so the widths do not move with the
// screen's pixel rounding: a 9-point em is 180 twips on every screen.
double twipsPerPixel(const QFont& font)
{
    const int pixels = QFontInfo(font).pixelSize();
    if (font.pointSizeF() > 0 && pixels > 0)
        return font.pointSizeF() * 20.0 / pixels;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return 1440.0 / (screen ? screen->logicalDotsPerInchX() : 96.0);
}

qsizetype lastCharacterLength(const QString& text)
{
    return text.size() > 1 && text.at(text.size() - 1).isLowSurrogate() &&
                   text.at(text.size() - 2).isHighSurrogate()
               ? 2
               : 1;
}

} // namespace

TextGrid::TextGrid(const QFont& font) : m_metrics(font), m_twipsPerPixel(twipsPerPixel(font))
{
    m_asciiAdvances.fill(-1);
}

QFont TextGrid::listFont()
{
    // At 9 points a half-width character is 90 twips and a full-width one 180, which puts every
    // bar of the journal's and the reports' cells (890, 1590, 3000, 1000) on the same column as
    // the junctions of their rule segments (800, 1500, 3000, 1000).
#ifdef Q_OS_WIN
    QFont font(QStringLiteral("SimSun"));
#else
    QFont font(QStringLiteral("Noto Sans Mono CJK SC"));
#endif
    font.setPointSize(9);
    font.setStyleHint(QFont::Monospace);
    return font;
}

double TextGrid::advance(QStringView character) const
{
    const char32_t key = character.size() == 2 ? QChar::surrogateToUcs4(character.at(0), character.at(1))
                                               : character.at(0).unicode();
    if (key < m_asciiAdvances.size()) {
        double& width = m_asciiAdvances[key];
        if (width < 0)
            width = m_metrics.horizontalAdvance(character.toString()) * m_twipsPerPixel;
        return width;
    }
    const auto known = m_advances.constFind(key);
    if (known != m_advances.constEnd())
        return *known;
    const double width = m_metrics.horizontalAdvance(character.toString()) * m_twipsPerPixel;
    m_advances.insert(key, width);
    return width;
}

double TextGrid::widthTwips(QStringView text) const
{
    double width = 0;
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype length =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate() ? 2 : 1;
        width += advance(text.mid(i, length));
        i += length;
    }
    return width;
}

int TextGrid::fillCount(double from, int width, QStringView filler) const
{
    const double step = advance(filler);
    if (step <= 0)
        return 0;
    int count = 0;
    for (double reached = from; reached < width; reached += step)
        ++count;
    return count;
}

QString TextGrid::textCell(const QString& text, int width) const
{
    QString cell = text;
    double cellWidth = widthTwips(cell);
    while (!cell.isEmpty() && cellWidth > width) {
        const qsizetype length = lastCharacterLength(cell);
        cellWidth -= advance(QStringView(cell).right(length));
        cell.chop(length);
    }
    const int blanks = fillCount(cellWidth, width, QStringView(&blank, 1));
    // Filled in place: the lists draw tens of thousands of cells.
    cell.reserve(cell.size() + blanks + 1);
    cell.resize(cell.size() + blanks, blank);
    cell.append(bar);
    return cell;
}

QString TextGrid::numberCell(double value, int width) const
{
    const QString number = FormatQuantity(value);
    const int blanks = fillCount(widthTwips(number), width, QStringView(&blank, 1));
    QString cell;
    cell.reserve(blanks + number.size() + 1);
    cell.fill(blank, blanks);
    cell.append(number);
    cell.append(bar);
    return cell;
}

QString TextGrid::ruleSegment(Junction junction, int width) const
{
    static const QChar glyphs[] = {QChar(0x252C), QChar(0x253C), QChar(0x2534)};
    return QString(fillCount(0, width, QStringView(&rule, 1)), rule) + glyphs[junction];
}

QString TextGrid::ruleLine(Junction junction, const QList<int>& widths) const
{
    QString line;
    for (const int width : widths)
        line += ruleSegment(junction, width);
    return line;
}

QString TextGrid::blankCells(const QList<int>& widths) const
{
    QString line;
    for (const int width : widths)
        line += textCell(QString(), width);
    return line;
}

QStringList SplitCells(const QString& line)
{
    return line.split(bar);
}

} // namespace lanzhou
