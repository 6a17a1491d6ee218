#pragma once

#include <QThread>

namespace lanzhou::bench {

// A TCP relay on 127.0.0.1 in front of a local server: everything that passes it, in either
// direction, waits the given delay first, so that the server answers as one behind a slow link
// (15 ms each way make a 30 ms round trip). It runs in a thread of its own, since the runners block
// the thread they are called from.
class DelayRelay
{
public:
    DelayRelay(quint16 targetPort, int delayMs);
    ~DelayRelay();
    quint16 port() const { return m_port; }

private:
    QThread m_thread;
    quint16 m_port = 0;
};

} // namespace lanzhou::bench
