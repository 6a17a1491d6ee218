#include "ServerRelay.h"

#include <QList>
#include <QPointer>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace lanzhou::test {

// Lives in the relay's thread; every member is touched there only.
class RelayCore : public QObject
{
public:
    RelayCore(quint16 targetPort, int delayMs) : m_server(this), m_target(targetPort), m_delayMs(delayMs)
    {
        connect(&m_server, &QTcpServer::newConnection, this, &RelayCore::accept);
    }

    quint16 listen()
    {
        m_server.listen(QHostAddress::LocalHost);
        return m_server.serverPort();
    }

    void setMode(ServerRelay::Mode mode)
    {
        // A server that stops or restarts ends every session it had.
        if (mode == ServerRelay::Mode::Cut || m_mode == ServerRelay::Mode::Hang)
            closeLinks();
        m_mode = mode;
    }

    void cutOnSending(const QByteArray& pattern, int hits)
    {
        m_pattern = pattern;
        m_hitsLeft = hits;
    }

private:
    void accept()
    {
        while (QTcpSocket* client = m_server.nextPendingConnection()) {
            connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
            if (m_mode == ServerRelay::Mode::Cut) {
                client->abort();
                continue;
            }
            m_links.append(client);
            if (m_mode == ServerRelay::Mode::Hang) {
                connect(client, &QTcpSocket::readyRead, client, [client] { client->readAll(); });
                continue;
            }
            auto* upstream = new QTcpSocket(client);
            forward(client, upstream, true);
            forward(upstream, client, false);
            upstream->connectToHost(QHostAddress::LocalHost, m_target);
        }
    }

    // Passes what arrives on `from` to `to` after the delay, in order; a closed side closes the other.
    void forward(QTcpSocket* from, QTcpSocket* to, bool fromClient)
    {
        connect(from, &QTcpSocket::readyRead, to, [this, from, to, fromClient] {
            const QByteArray data = from->readAll();
            if (m_mode == ServerRelay::Mode::Hang)
                return;
            if (fromClient && m_hitsLeft > 0) {
                m_hitsLeft -= int(data.count(m_pattern));
                if (m_hitsLeft <= 0) {
                    setMode(ServerRelay::Mode::Cut);
                    return;
                }
            }
            if (m_delayMs == 0)
                to->write(data);
            else
                QTimer::singleShot(m_delayMs, Qt::PreciseTimer, to, [to, data] { to->write(data); });
        });
        connect(from, &QTcpSocket::disconnected, to, [this, to] {
            QTimer::singleShot(m_delayMs, Qt::PreciseTimer, to, [to] { to->disconnectFromHost(); });
        });
    }

    void closeLinks()
    {
        for (const QPointer<QTcpSocket>& link : std::as_const(m_links))
            if (link)
                link->abort();
        m_links.clear();
    }

    QTcpServer m_server;
    quint16 m_target;
    int m_delayMs;
    ServerRelay::Mode m_mode = ServerRelay::Mode::Pass;
    QList<QPointer<QTcpSocket>> m_links;
    QByteArray m_pattern;
    int m_hitsLeft = 0;
};

ServerRelay::ServerRelay(quint16 targetPort, int delayMs)
{
    QSemaphore listening;
    m_core = new RelayCore(targetPort, delayMs);
    m_core->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_core, &QObject::deleteLater);
    QObject::connect(&m_thread, &QThread::started, m_core, [&] {
        m_port = m_core->listen();
        listening.release();
    });
    m_thread.start();
    listening.acquire();
}

ServerRelay::~ServerRelay()
{
    m_thread.quit();
    m_thread.wait();
}

void ServerRelay::setMode(Mode mode)
{
    QMetaObject::invokeMethod(
        m_core, [this, mode] { m_core->setMode(mode); }, Qt::BlockingQueuedConnection);
}

void ServerRelay::cutOnSending(const QByteArray& pattern, int hits)
{
    QMetaObject::invokeMethod(
        m_core, [this, pattern, hits] { m_core->cutOnSending(pattern, hits); }, Qt::BlockingQueuedConnection);
}

} // namespace lanzhou::test
