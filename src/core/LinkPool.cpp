#include "LinkPool.h"

#include <QSqlDatabase>

#include <atomic>

namespace lanzhou {

LinkPool::LinkPool(const QString& qtDriver, std::function<bool(QSqlDatabase&)> open, AliveCheck alive,
                   int idleLimitMs)
    : m_driver(qtDriver), m_open(std::move(open)), m_alive(std::move(alive)), m_idleLimitMs(idleLimitMs)
{
    static std::atomic<quint64> pools{0};
    m_prefix = QStringLiteral("lanzhou-%1-").arg(++pools);
    m_idleTimer.setSingleShot(true);
    connect(&m_idleTimer, &QTimer::timeout, this, &LinkPool::closeIdleLinks);
}

LinkPool::~LinkPool()
{
    for (const Idle& idle : std::as_const(m_idle))
        close(idle.link);
}

QString LinkPool::take(bool* reused)
{
    closeIdleLinks();
    // The most recently used link first: it is the one most likely still alive.
    while (!m_idle.isEmpty()) {
        const Idle idle = m_idle.takeLast();
        const QString& link = idle.link;
        QSqlDatabase db = QSqlDatabase::database(link, false);
        if (db.isOpen() && m_alive(db, idle.since.elapsed())) {
            ++m_taken;
            if (reused)
                *reused = true;
            return link;
        }
        db = QSqlDatabase();
        close(link);
    }
    const QString link = m_prefix + QString::number(++m_counter);
    bool opened = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(m_driver, link);
        opened = m_open(db);
    }
    if (!opened) {
        close(link);
        return QString();
    }
    ++m_taken;
    if (reused)
        *reused = false;
    return link;
}

void LinkPool::giveBack(const QString& link, bool healthy)
{
    --m_taken;
    if (!healthy) {
        close(link);
        return;
    }
    Idle idle{link, {}};
    idle.since.start();
    m_idle.append(idle);
    if (m_idleLimitMs >= 0)
        m_idleTimer.start(m_idleLimitMs);
}

void LinkPool::closeIdleLinks()
{
    if (m_idleLimitMs < 0)
        return;
    // Oldest first: a link given back later has waited less.
    while (!m_idle.isEmpty() && m_idle.constFirst().since.elapsed() >= m_idleLimitMs)
        close(m_idle.takeFirst().link);
    if (!m_idle.isEmpty())
        m_idleTimer.start(qMax<qint64>(0, m_idleLimitMs - m_idle.constFirst().since.elapsed()));
}

void LinkPool::close(const QString& link)
{
    {
        QSqlDatabase db = QSqlDatabase::database(link, false);
        if (db.isValid())
            db.close();
    }
    QSqlDatabase::removeDatabase(link);
}

} // namespace lanzhou
