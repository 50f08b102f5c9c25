#pragma once

#include <QStringList>

/// Collects the messages of the Qt log during its lifetime.
class LogCapture
{
    Q_DISABLE_COPY(LogCapture)

public:
    LogCapture()
    {
        lines().clear();
        previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            lines() << (type == QtWarningMsg ? "warning: " : "other: ") + text;
        });
    }
    ~LogCapture() { qInstallMessageHandler(previous); }

    static QStringList &lines()
    {
        static QStringList collected;
        return collected;
    }

private:
    QtMessageHandler previous;
};
