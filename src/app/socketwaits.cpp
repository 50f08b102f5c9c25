#include "socketwaits.h"

#include <QLocalSocket>

bool SocketWaits::waitForConnected(QLocalSocket &socket, int timeoutMs)
{
    return socket.waitForConnected(timeoutMs);
}

bool SocketWaits::waitForDisconnected(QLocalSocket &socket, int timeoutMs)
{
    return socket.waitForDisconnected(timeoutMs);
}
