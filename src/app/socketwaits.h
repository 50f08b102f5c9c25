#pragma once

class QLocalSocket;

/// How long the guard waits for the other side: in a source file of its own, which the test of these limits replaces.
namespace SocketWaits {

/// Waits until `socket` is connected, `timeoutMs` at most; false when it is not.
bool waitForConnected(QLocalSocket &socket, int timeoutMs);

/// Waits until the other side has closed `socket`, `timeoutMs` at most; false when it has not.
bool waitForDisconnected(QLocalSocket &socket, int timeoutMs);

} // namespace SocketWaits
