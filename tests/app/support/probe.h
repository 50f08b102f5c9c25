#pragma once

#include <QElapsedTimer>
#include <QProcess>

/// One run of guard_probe, killed by the destructor if it still runs.
class Probe : public QProcess
{
public:
    explicit Probe(const QStringList &arguments = {}, const QString &program = defaultProgram())
    {
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
        start(program, arguments);
    }

    ~Probe() override
    {
        if (state() != QProcess::NotRunning) {
            kill();
            waitForFinished();
        }
    }

    static QString defaultProgram() { return QStringLiteral(GUARD_PROBE); }

    /// Waits until the program has printed this line; discards the lines before it.
    bool says(const QByteArray &line, int limitMs = 20000)
    {
        QElapsedTimer clock;
        clock.start();
        while (true) {
            while (canReadLine()) {
                if (readLine() == line + '\n')
                    return true;
            }
            const int left = limitMs - int(clock.elapsed());
            if (left <= 0 || !waitForReadyRead(left))
                return canReadLine() && says(line, 0);
        }
    }

    /// The next line that the program prints, without its line break; empty when none comes.
    QByteArray nextLine(int limitMs = 20000)
    {
        while (!canReadLine() && waitForReadyRead(limitMs)) { }
        return readLine().trimmed();
    }

    /// Waits until the program has printed the line that many more times.
    bool saysTimes(const QByteArray &line, int times, int limitMs = 60000)
    {
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < times; ++i) {
            if (!says(line, qMax(0, limitMs - int(clock.elapsed()))))
                return false;
        }
        return true;
    }

    /// Waits for the end of the program; true when it exited with status 0.
    bool leaves(int limitMs = 30000)
    {
        if (state() != QProcess::NotRunning)
            waitForFinished(limitMs);
        return state() == QProcess::NotRunning && exitStatus() == QProcess::NormalExit && exitCode() == 0;
    }

    void killAtOnce()
    {
        kill();
        waitForFinished();
    }
};
