#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

class QSqlDatabase;

namespace lanzhou {

// The physical links beneath the runners, one small pool per database, as the ODBC driver manager
// kept them beneath ADO: a runner call takes a link, runs its one statement and gives it back. An idle
// link is checked alive before it is used again, a link that failed is dropped, and links idle for
// the idle limit are closed.
class LinkPool : public QObject
{
    Q_OBJECT
public:
    // `open` sets up and opens a new link of the Qt driver; `alive` tells whether a link idle for so
    // many milliseconds can still be used. An idle limit below 0 keeps idle links open until the pool
    // goes.
    using AliveCheck = std::function<bool(QSqlDatabase&, qint64 idleMs)>;
    LinkPool(const QString& qtDriver, std::function<bool(QSqlDatabase&)> open, AliveCheck alive,
             int idleLimitMs);
    ~LinkPool() override;

    // The name of an open link, or the empty text when none could be opened. `reused` says whether
    // it served an earlier statement.
    QString take(bool* reused = nullptr);
    // A healthy link waits for the next statement; any other is closed.
    void giveBack(const QString& link, bool healthy);
    // How many links are open, taken or idle.
    int openLinks() const { return int(m_idle.size()) + m_taken; }

private:
    void closeIdleLinks();
    static void close(const QString& link);

    struct Idle
    {
        QString link;
        QElapsedTimer since;
    };
    QString m_driver;
    std::function<bool(QSqlDatabase&)> m_open;
    AliveCheck m_alive;
    int m_idleLimitMs;
    QList<Idle> m_idle;
    int m_taken = 0;
    QTimer m_idleTimer;
    QString m_prefix;
    quint64 m_counter = 0;
};

} // namespace lanzhou
