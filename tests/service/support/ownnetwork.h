#pragma once

#include "ownnamespace.h"

#include <QByteArray>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>

namespace OwnNetwork {

inline bool entered = false;

/// Cuts this process off from the network: from here on it has a loopback interface of its own and nothing else. Where
/// the system refuses that, as an ordinary container does, the process keeps the network it has: test builds know no host
/// but this machine (CMakePresets.json). Call it before the first thread.
inline void enter()
{
    entered = enterNamespace();
}

/// Waits until no other test on this machine has claimed this port, and claims it until the process ends. A network of
/// this process's own has its own ports. The desktop's tests claim theirs in the same file.
inline void claim(quint16 port)
{
    if (entered)
        return;
    const QByteArray path = "/tmp/tandry-test-port-" + QByteArray::number(port);
    int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) // another user's is not opened with O_CREAT in a folder for all
        file = open(path.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
    if (file < 0 || flock(file, LOCK_EX) != 0)
        qFatal("%s cannot be locked: %s", path.constData(), strerror(errno));
}

} // namespace OwnNetwork
