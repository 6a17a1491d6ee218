#pragma once

#include <QCoreApplication>

namespace lanzhou {

// Lets pending window events run, `times` rounds, so that captions repaint during long work.
inline void YieldEvents(int times = 1)
{
    for (int i = 0; i < times; ++i)
        QCoreApplication::processEvents();
}

} // namespace lanzhou
