#include "Bench.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace lanzhou::bench {

namespace {
std::map<QString, std::map<QString, double>>& figures()
{
    static std::map<QString, std::map<QString, double>> printed;
    return printed;
}
} // namespace

const std::map<QString, std::map<QString, double>>& printedFigures()
{
    return figures();
}

void printFigure(const QString& name, const QString& backend, double medianMs, double peakMiB)
{
    figures()[name][backend] = medianMs;
    std::printf("BENCH %s %s median_ms=%.3f peak_rss_mib=%.1f\n", qPrintable(name), qPrintable(backend),
                medianMs, peakMiB);
    std::fflush(stdout);
}

double peakMemoryMiB()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    return 0;
}

void resetPeakMemory()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

} // namespace lanzhou::bench

// Usage: lanzhou_bench [--list] [name ...]
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    using namespace lanzhou::bench;
    QStringList names = QApplication::arguments().mid(1);
    if (names.contains(QStringLiteral("--list"))) {
        for (const auto& [name, fn] : registry())
            std::printf("%s\n", qPrintable(name));
        return 0;
    }
    if (names.isEmpty()) {
        for (const auto& [name, fn] : registry())
            names.append(name);
        // The peers go last, so that our own figures are there to compare with.
        names.move(names.indexOf(QStringLiteral("peers")), names.size() - 1);
    }
    const QStringList backends{QStringLiteral("sqlite"), QStringLiteral("postgresql"),
                               QStringLiteral("postgresql-odbc"), QStringLiteral("postgresql-30ms")};
    for (const QString& name : names) {
        const auto it = registry().find(name);
        if (it == registry().end()) {
            std::fprintf(stderr, "unknown benchmark: %s\n", qPrintable(name));
            return 2;
        }
        std::printf("== %s ==\n", qPrintable(name));
        std::fflush(stdout);
        it->second(backends);
    }
    return 0;
}
