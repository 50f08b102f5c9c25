#pragma once

class QLocalSocket;

/// The guard's waits for its peer, in a source file of their own: the test of their limits replaces it.
namespace SocketWaits {

/// Waits up to `timeoutMs` until `socket` is connected; false when it is not.
bool waitForConnected(QLocalSocket &socket, int timeoutMs);

/// Waits up to `timeoutMs` until the peer has closed `socket`; false when it has not.
bool waitForDisconnected(QLocalSocket &socket, int timeoutMs);

} // namespace SocketWaits
