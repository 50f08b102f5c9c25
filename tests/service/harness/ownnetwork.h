#pragma once

#include <QtGlobal>

#include <cerrno>
#include <cstring>

#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

/// Cuts this process off from the network: from here on it has a loopback interface of its own and nothing else, so
/// that no test sends a byte beyond it and two tests may listen on the same port. Call it before the first thread.
inline void enterOwnNetwork()
{
    const int user = geteuid() == 0 ? 0 : CLONE_NEWUSER;
    if (unshare(CLONE_NEWNET | user) != 0)
        qFatal("No network of the test's own: %s", strerror(errno));

    const int any = socket(AF_INET, SOCK_DGRAM, 0);
    ifreq request;
    memset(&request, 0, sizeof request);
    strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP | IFF_LOOPBACK | IFF_RUNNING;
    if (ioctl(any, SIOCSIFFLAGS, &request) != 0)
        qFatal("The loopback interface does not come up: %s", strerror(errno));
    close(any);
}
