#pragma once

#include <QByteArray>
#include <QThread>

namespace lanzhou::test {

class RelayCore;

// A TCP relay on 127.0.0.1 in front of a local server, in a thread of its own, since the runners
// block the thread they are called from. Everything that passes it, in either direction, may wait a
// delay first, so that the server answers as one behind a slow link (15 ms each way make a 30 ms
// round trip). The test switches it at any time between:
//   Pass  the server is there;
//   Cut   the server was killed or stopped: every link is closed, new ones are closed at once;
//   Hang  the server hangs: links stay open and new ones are accepted, but nothing is answered.
// Back to Pass is the server started again: links that hung are closed, as a restart would.
class ServerRelay
{
public:
    enum class Mode
    {
        Pass,
        Cut,
        Hang
    };

    explicit ServerRelay(quint16 targetPort, int delayMs = 0);
    ~ServerRelay();
    quint16 port() const { return m_port; }
    // In effect when it returns.
    void setMode(Mode mode);
    // Cuts as setMode(Cut) does when the client sends `pattern` for the `hits`-th time counted from
    // now, before that statement reaches the server: a server killed in the middle of a run.
    void cutOnSending(const QByteArray& pattern, int hits);

private:
    QThread m_thread;
    RelayCore* m_core = nullptr;
    quint16 m_port = 0;
};

} // namespace lanzhou::test
