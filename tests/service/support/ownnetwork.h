#pragma once

#include "ownnamespace.h"

#include <QByteArray>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>

namespace OwnNetwork {

inline bool entered = false;

/// Cuts this process off from the network: it gets a loopback interface of its own and nothing else. Where the system
/// refuses this, as ordinary containers do, the process stays on the system's network; test builds contact only this
/// machine (CMakePresets.json). Call it before the first thread starts.
inline void enter()
{
    entered = enterNamespace();
}

/// Waits until no other test on this machine uses this port, and reserves it until the process ends. Not needed in a
/// network namespace, which has its own ports. The desktop tests use the same lock file.
inline void claim(quint16 port)
{
    if (entered)
        return;
    const QByteArray path = "/tmp/tandry-test-port-" + QByteArray::number(port);
    int file = open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) // O_CREAT fails on another user's file in a world-writable folder
        file = open(path.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
    if (file < 0 || flock(file, LOCK_EX) != 0)
        qFatal("%s cannot be locked: %s", path.constData(), strerror(errno));
}

} // namespace OwnNetwork
