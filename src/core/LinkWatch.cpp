#include "LinkWatch.h"

#include <QtGlobal>

#include <utility>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace lanzhou {

LinkWatch::~LinkWatch()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_wake.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void LinkWatch::arm(int socket, int limitMs)
{
    if (socket < 0)
        return;
    bool wake = false;
    {
        const std::lock_guard lock(m_mutex);
        m_socket = socket;
        m_limitMs = limitMs;
        m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
        m_cut = false;
        if (!m_thread.joinable())
            m_thread = std::thread([this] { watch(); });
        // A thread already waiting for an earlier statement's deadline looks again when it passes;
        // waking it for every statement would cost a switch of threads each time.
        wake = m_idle || m_deadline < m_waitingUntil;
    }
    if (wake)
        m_wake.notify_one();
}

void LinkWatch::rearm()
{
    const std::lock_guard lock(m_mutex);
    if (m_socket >= 0)
        m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_limitMs);
}

bool LinkWatch::disarm()
{
    const std::lock_guard lock(m_mutex);
    m_socket = -1;
    return std::exchange(m_cut, false);
}

void LinkWatch::watch()
{
    std::unique_lock lock(m_mutex);
    while (!m_ending) {
        if (m_socket < 0) {
            m_idle = true;
            m_wake.wait(lock);
            m_idle = false;
            continue;
        }
        m_waitingUntil = m_deadline;
        m_wake.wait_until(lock, m_waitingUntil);
        if (!m_ending && m_socket >= 0 && std::chrono::steady_clock::now() >= m_deadline) {
            // Under the lock: the runner cannot give the link back, and so close the socket, meanwhile.
#ifdef Q_OS_WIN
            ::shutdown(m_socket, SD_BOTH);
#else
            ::shutdown(m_socket, SHUT_RDWR);
#endif
            m_socket = -1;
            m_cut = true;
        }
    }
}

} // namespace lanzhou
