#pragma once

#include <QByteArray>
#include <QDateTime>

#include <ctime>

/// The clock and the time zone of this process, stopped where the test says, for Qt, the scripts and SQLite alike, and
/// given back with the object. Timers run on. Needs `tandry_move_clock` in CMake. A script engine takes the zone over
/// when it is created, so create it after the clock.
class TestClock
{
public:
    /// \a localTime is "2014-05-31 10:00:00" in \a zone.
    explicit TestClock(const QByteArray &localTime, const QByteArray &zone = "Europe/Paris")
        : m_previousZone(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
        tzset();
        moveTo(localTime);
    }

    ~TestClock()
    {
        qunsetenv("FAKETIME");
        qputenv("TZ", m_previousZone);
        tzset();
    }

    void moveTo(const QByteArray &localTime)
    {
        // The same text again, in another zone, is only read after another one.
        read("2000-01-01 00:00:00");
        const QByteArray now = read(localTime);
        if (now != localTime) {
            qFatal("The clock does not move (it is %s, not %s): run the test through ctest, which prepares it",
                   now.constData(), localTime.constData());
        }
    }

private:
    Q_DISABLE_COPY(TestClock)

    static QByteArray read(const QByteArray &localTime)
    {
        qputenv("FAKETIME", localTime);
        return QDateTime::currentDateTime().toString("yyyy-MM-dd HH:mm:ss").toLatin1();
    }

    const QByteArray m_previousZone;
};
