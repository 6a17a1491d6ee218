#pragma once

#include <QDate>
#include <QTime>

namespace lanzhou {

// The local clock. Tests fix it with FixedClock.
class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDate today() const = 0;
    virtual QTime now() const = 0;
    // Seconds since local midnight with hundredths, as the entry IDs use them.
    double secondsSinceMidnight() const { return now().msecsSinceStartOfDay() / 1000.0; }
};

class SystemClock final : public Clock
{
public:
    QDate today() const override { return QDate::currentDate(); }
    QTime now() const override { return QTime::currentTime(); }
};

class FixedClock final : public Clock
{
public:
    FixedClock(QDate date, QTime time) : m_date(date), m_time(time) {}
    QDate today() const override { return m_date; }
    QTime now() const override { return m_time; }
    void set(QDate date, QTime time)
    {
        m_date = date;
        m_time = time;
    }
    void advance(int msecs) { m_time = m_time.addMSecs(msecs); }

private:
    QDate m_date;
    QTime m_time;
};

} // namespace lanzhou
