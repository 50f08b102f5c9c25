#pragma once

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <net/if.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace OwnNetwork {

inline void write(const char *path, const QByteArray &text)
{
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(text) != text.size())
        qFatal("%s cannot be written: %s", path, qPrintable(file.errorString()));
}

inline void raiseLoopback()
{
    const int any = socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request;
    memset(&request, 0, sizeof request);
    strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP | IFF_LOOPBACK | IFF_RUNNING;
    if (ioctl(any, SIOCSIFFLAGS, &request) != 0)
        qFatal("The loopback interface does not come up: %s", strerror(errno));
    close(any);
}

inline bool entered = false;

/// Cuts this process off from the network: from here on it has a loopback interface of its own and nothing else. Where
/// the system refuses that, as an ordinary container does, the process keeps the network it has: test builds know no host
/// but this machine (CMakePresets.json). Call it before the first thread.
inline void enter()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(user == 0 ? CLONE_NEWNET : CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return;
    entered = true;
    if (user != 0) {
        // The same user as before, in the eyes of the file system.
        write("/proc/self/setgroups", "deny");
        write("/proc/self/uid_map", QByteArray::number(user) + ' ' + QByteArray::number(user) + " 1");
        write("/proc/self/gid_map", QByteArray::number(group) + ' ' + QByteArray::number(group) + " 1");
    }
    raiseLoopback();
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

}
