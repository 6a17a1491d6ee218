#pragma once

#include <QByteArray>
#include <QString>

namespace lanzhou {

// A connection parameter held scrambled in memory; the plain text exists only in the locals of a
// runner call that asks for it.
class Scrambled
{
public:
    Scrambled() = default;
    static Scrambled fromPlain(const QString& plain);

    QString plain() const;
    bool isEmpty() const { return m_bytes.isEmpty(); }

private:
    QByteArray m_bytes;
};

} // namespace lanzhou
