#include "Scrambled.h"

namespace lanzhou {

namespace {

// Rolling XOR keeps the texts out of plain sight in memory dumps; it is not encryption.
QByteArray roll(QByteArray bytes)
{
    quint8 key = 0x5A;
    for (char& c : bytes) {
        c = char(quint8(c) ^ key);
        key = quint8(key * 13 + 7);
    }
    return bytes;
}

} // namespace

Scrambled Scrambled::fromPlain(const QString& plain)
{
    Scrambled s;
    s.m_bytes = roll(plain.toUtf8());
    return s;
}

QString Scrambled::plain() const
{
    return QString::fromUtf8(roll(m_bytes));
}

} // namespace lanzhou
