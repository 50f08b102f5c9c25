#pragma once

#include <QRegularExpression>
#include <QStringList>

/// Collects the messages of the Qt log during its lifetime and marks warnings. Only one can exist at a time.
class LogCapture
{
    Q_DISABLE_COPY(LogCapture)

public:
    LogCapture()
    {
        lines().clear();
        previous() = qInstallMessageHandler(keep);
    }
    ~LogCapture() { qInstallMessageHandler(previous()); }

    static QStringList &lines()
    {
        static QStringList collected;
        return collected;
    }

    static QStringList warnings() { return lines().filter(QRegularExpression(QStringLiteral("^warning: "))); }

private:
    static void keep(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (type == QtFatalMsg)
            previous()(type, context, text);
        lines().append((type == QtDebugMsg || type == QtInfoMsg ? QString() : QStringLiteral("warning: ")) + text);
    }

    static QtMessageHandler &previous()
    {
        static QtMessageHandler handler = nullptr;
        return handler;
    }
};
