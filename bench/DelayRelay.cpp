#include "DelayRelay.h"

#include <QPointer>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace lanzhou::bench {

namespace {

// Forwards what arrives on `from` to `to` after the delay, in order; a closed side closes the other.
void forward(QTcpSocket* from, QTcpSocket* to, int delayMs)
{
    QObject::connect(from, &QTcpSocket::readyRead, to, [from, to, delayMs] {
        const QByteArray data = from->readAll();
        QTimer::singleShot(delayMs, Qt::PreciseTimer, to, [to, data] { to->write(data); });
    });
    QObject::connect(from, &QTcpSocket::disconnected, to, [to, delayMs] {
        QTimer::singleShot(delayMs, Qt::PreciseTimer, to, [to] { to->disconnectFromHost(); });
    });
}

} // namespace

DelayRelay::DelayRelay(quint16 targetPort, int delayMs)
{
    QSemaphore listening;
    auto* server = new QTcpServer;
    server->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, server, &QObject::deleteLater);
    QObject::connect(&m_thread, &QThread::started, server, [&, server, targetPort, delayMs] {
        server->listen(QHostAddress::LocalHost);
        m_port = server->serverPort();
        QObject::connect(server, &QTcpServer::newConnection, server, [server, targetPort, delayMs] {
            while (QTcpSocket* client = server->nextPendingConnection()) {
                auto* upstream = new QTcpSocket(client);
                forward(client, upstream, delayMs);
                forward(upstream, client, delayMs);
                QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
                upstream->connectToHost(QHostAddress::LocalHost, targetPort);
            }
        });
        listening.release();
    });
    m_thread.start();
    listening.acquire();
}

DelayRelay::~DelayRelay()
{
    m_thread.quit();
    m_thread.wait();
}

} // namespace lanzhou::bench
