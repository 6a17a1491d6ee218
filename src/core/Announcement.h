#pragma once

#include <QColor>
#include <QString>

namespace lanzhou {

// A ledger's announcement as the ledger row keeps it: the colour as a decimal number, "│", the text.
// The number holds red in its lowest byte, then green, then blue, as the first clients wrote it.
struct Announcement
{
    QColor colour;
    QString text;

    // Splits at the first "│"; a value without one is all text, a colour that does not read is black.
    static Announcement Parse(const QString& stored);
    // The stored form of a colour and a text.
    static QString Stored(const QColor& colour, const QString& text);
    static qint64 ColourNumber(const QColor& colour);
};

} // namespace lanzhou
