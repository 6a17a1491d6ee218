#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QList>
#include <QString>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <map>

namespace lanzhou::bench {

// A benchmark prints its own figures; it receives the backends to run on ("sqlite", "postgresql", ...).
using BenchFunction = std::function<void(const QStringList& backends)>;

inline std::map<QString, BenchFunction>& registry()
{
    static std::map<QString, BenchFunction> benches;
    return benches;
}

struct Register
{
    Register(const QString& name, BenchFunction fn) { registry()[name] = std::move(fn); }
};

// Median of `runs` timings of fn, in milliseconds.
inline double medianMs(int runs, const std::function<void()>& fn)
{
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        fn();
        times.append(timer.nsecsElapsed() / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

// Median of `runs` timings of fn, each after an untimed `prepare` (a fresh target), in milliseconds.
inline double medianMs(int runs, const std::function<void()>& prepare, const std::function<void()>& fn)
{
    QList<double> times;
    for (int i = 0; i < runs; ++i) {
        prepare();
        times.append(medianMs(1, fn));
    }
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

// Chooses an entry of a window's named list, as a pick would.
inline void pick(QWidget& window, const QString& name, const QString& text)
{
    auto* list = window.findChild<QComboBox*>(name);
    list->setCurrentIndex(list->findText(text));
}

// One figure: "BENCH <name> <backend> median_ms=<x> peak_rss_mib=<y>". Figures are remembered for
// the comparison with the peers.
void printFigure(const QString& name, const QString& backend, double medianMs, double peakMiB);
// The figures printed so far: name -> backend -> median in milliseconds.
const std::map<QString, std::map<QString, double>>& printedFigures();

// Peak resident memory of this process so far, in MiB (VmHWM).
double peakMemoryMiB();
// Resets the peak so that the next reading covers only what follows.
void resetPeakMemory();

} // namespace lanzhou::bench
