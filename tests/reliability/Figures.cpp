#include "Figures.h"

#include <QMap>
#include <QPair>

#include <cstdio>

namespace lanzhou::test {

namespace {
using Key = QPair<QString, QString>;
QMap<Key, QPair<int, int>> tallies; // tries, failures
QMap<Key, qint64> worstTimes;
} // namespace

bool Figures::count(const QString& test, const QString& backend, bool ok)
{
    auto& tally = tallies[{test, backend}];
    ++tally.first;
    tally.second += !ok;
    return ok;
}

void Figures::time(const QString& test, const QString& backend, qint64 ms)
{
    qint64& worst = worstTimes[{test, backend}];
    worst = qMax(worst, ms);
}

void Figures::print()
{
    for (auto it = tallies.cbegin(); it != tallies.cend(); ++it)
        std::printf("RELIABILITY %s %s tries=%d failures=%d\n", qPrintable(it.key().first),
                    qPrintable(it.key().second), it.value().first, it.value().second);
    for (auto it = worstTimes.cbegin(); it != worstTimes.cend(); ++it)
        std::printf("FAULT-TIME %s %s worst_ms=%lld\n", qPrintable(it.key().first),
                    qPrintable(it.key().second), it.value());
    std::fflush(stdout);
}

} // namespace lanzhou::test
