#pragma once

#include <QByteArray>
#include <QDateTime>

#include <ctime>

/// Stops the clock of this process at a given time and sets its time zone, for Qt, the scripts and SQLite. The
/// destructor restores both. Timers keep running. Needs `tandry_move_clock` in CMake. A script engine reads the time
/// zone when it is created: create it after the clock.
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
        // libfaketime rereads the text only when it changes: set another one in between.
        read("2000-01-01 00:00:00");
        const QByteArray now = read(localTime);
        if (now != localTime) {
            qFatal("The clock was not set (it is %s, not %s): run the test through ctest, which sets its environment",
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
