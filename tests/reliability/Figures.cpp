#include "Figures.h"

#include <QMap>
#include <QPair>

#include <cstdio>

namespace lanzhou::test {

namespace {
struct Tally
{
    int tries = 0;
    int failures = 0;
};

QMap<QPair<QString, QString>, Tally>& tallies()
{
    static QMap<QPair<QString, QString>, Tally> all;
    return all;
}
} // namespace

bool Figures::count(const QString& test, const QString& backend, bool ok)
{
    Tally& tally = tallies()[{test, backend}];
    ++tally.tries;
    if (!ok)
        ++tally.failures;
    return ok;
}

void Figures::print()
{
    const auto& all = tallies();
    for (auto it = all.cbegin(); it != all.cend(); ++it)
        std::printf("RELIABILITY %s %s tries=%d failures=%d\n", qPrintable(it.key().first),
                    qPrintable(it.key().second), it.value().tries, it.value().failures);
    std::fflush(stdout);
}

} // namespace lanzhou::test
