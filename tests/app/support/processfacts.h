#pragma once

#include <QByteArrayList>
#include <QFile>

#include <unistd.h>

/// Facts about a running process from /proc (Linux only).
namespace ProcessFacts {

inline QByteArray contents(qint64 process, const char *file)
{
    QFile facts(QString("/proc/%1/%2").arg(process).arg(QLatin1String(file)));
    return facts.open(QIODevice::ReadOnly) ? facts.readAll() : QByteArray();
}

/// A value such as "VmRSS" or "VmPeak" of the process's status, in KB; -1 when there is none.
inline qint64 statusKb(qint64 process, const QByteArray &name)
{
    for (const QByteArray &line : contents(process, "status").split('\n')) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').value(0).toLongLong();
    }
    return -1;
}

/// CPU time that the process has used so far, in ms.
inline qint64 processorMs(qint64 process)
{
    // The name in parentheses may contain spaces; user and system time are the 12th and 13th fields after it.
    const QByteArray stat = contents(process, "stat");
    const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toLongLong() + fields.value(12).toLongLong()) * 1000 / ::sysconf(_SC_CLK_TCK);
}

} // namespace ProcessFacts
