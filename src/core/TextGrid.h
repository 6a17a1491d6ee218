#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>

namespace lanzhou {

// Builds the cells of the text tables that the journal and the reports draw in their lists:
// widths in twips, measured with the list's font, cells closed by "│", rules of "─".
class TextGrid
{
public:
    enum Junction
    {
        Top = 0,
        Middle = 1,
        Bottom = 2
    };

    explicit TextGrid(const QFont& font);

    // The CJK monospace font the lists use, so that the bars line up.
    static QFont listFont();

    double widthTwips(QStringView text) const;
    double widthPixels(QStringView text) const { return widthTwips(text) / m_twipsPerPixel; }
    // Left-aligned, clipped to the width, padded with blanks, closed by a bar.
    QString textCell(const QString& text, int width) const;
    // FormatQuantity of the value, right-aligned in the width, never clipped, closed by a bar.
    QString numberCell(double value, int width = 1000) const;
    // "─" up to the width, then the junction glyph.
    QString ruleSegment(Junction junction, int width) const;
    // One rule segment per column width, all closed by the same junction.
    QString ruleLine(Junction junction, const QList<int>& widths) const;
    // One empty text cell per column width: the bars of the columns and nothing between them.
    QString blankCells(const QList<int>& widths) const;

private:
    // The advance of one character (a surrogate pair counts as one), remembered per character:
    // the list font is monospace, so a text's width is the sum of its characters' advances.
    double advance(QStringView character) const;
    // How many copies of `filler` bring a text of width `from` up to `width`.
    int fillCount(double from, int width, QStringView filler) const;

    QFontMetricsF m_metrics;
    double m_twipsPerPixel;
    // Digits, Latin letters, blanks and the like, which most cells hold, are looked up by their code;
    // below 0 until measured.
    mutable std::array<double, 128> m_asciiAdvances;
    mutable QHash<char32_t, double> m_advances;
};

// The cells of a drawn line, the texts between its bars (the part after the last bar included, empty
// when the line ends with a bar), so that the line is the cells joined by "│" again.
QStringList SplitCells(const QString& line);

} // namespace lanzhou
