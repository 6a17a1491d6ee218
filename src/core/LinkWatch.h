#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace lanzhou {

// Watches the link a statement runs on. A hung server accepts a statement and never answers, and
// the driver would wait for it for ever with the window frozen; when the link has been silent for
// the limit, the watch shuts its socket down, so that the driver's wait ends in a failure and the
// runner answers the empty text. The watch runs in a thread of its own, started on first use, since
// the runner blocks the thread it was called from.
class LinkWatch
{
public:
    LinkWatch() = default;
    ~LinkWatch();
    LinkWatch(const LinkWatch&) = delete;
    LinkWatch& operator=(const LinkWatch&) = delete;

    // Starts watching the socket; a socket below 0 (a file, not a link) is not watched.
    void arm(int socket, int limitMs);
    // The link answered: its silence is counted from now.
    void rearm();
    // Ends the watch; true when it had to cut the link.
    bool disarm();

private:
    void watch();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::thread m_thread;
    int m_socket = -1;
    int m_limitMs = 0;
    std::chrono::steady_clock::time_point m_deadline;
    // The deadline the thread sleeps until, and whether it sleeps with none (nothing watched).
    std::chrono::steady_clock::time_point m_waitingUntil;
    bool m_idle = false;
    bool m_cut = false;
    bool m_ending = false;
};

} // namespace lanzhou
