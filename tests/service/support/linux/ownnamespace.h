#pragma once

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <cstring>

#include <net/if.h>
#include <sched.h>
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
        qFatal("Cannot bring up the loopback interface: %s", strerror(errno));
    close(any);
}

/// Moves this process to a network namespace with only a loopback interface. False when the system refuses it.
inline bool enterNamespace()
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(user == 0 ? CLONE_NEWNET : CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    if (user != 0) {
        // The file system sees the same user as before.
        write("/proc/self/setgroups", "deny");
        write("/proc/self/uid_map", QByteArray::number(user) + ' ' + QByteArray::number(user) + " 1");
        write("/proc/self/gid_map", QByteArray::number(group) + ' ' + QByteArray::number(group) + " 1");
    }
    raiseLoopback();
    return true;
}

} // namespace OwnNetwork
