#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

namespace lanzhou {

// Lets pending window events run, `times` rounds, so that captions repaint during long work.
inline void YieldEvents(int times = 1)
{
    for (int i = 0; i < times; ++i)
        QCoreApplication::processEvents();
}

// Yields to the event loop at most every 50 ms while a long run works through its rows: often enough
// for its caption and list to repaint, seldom enough that repainting never costs more than the work.
class PacedYield
{
public:
    void operator()()
    {
        if (!m_since.isValid() || m_since.elapsed() >= 50) {
            YieldEvents();
            m_since.start();
        }
    }

private:
    QElapsedTimer m_since;
};

} // namespace lanzhou
