#include "qtlocalpeer.h"

#include "messagereader.h"
#include "socketwaits.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>

#include <cerrno>
#include <ctime>
#include <memory>

#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int prefixLength = 6;
constexpr int connectAttempts = 2;
constexpr long retryPauseNs = 250000000; // 250 ms
constexpr int acknowledgeWaitMs = 1000;
constexpr int disconnectWaitMs = 1000;
constexpr int longestSocketPath = int(sizeof(sockaddr_un::sun_path)) - 1;

QString nameFor(const QString &identifier, QString prefix)
{
    prefix.remove(QRegularExpression(QStringLiteral("[^a-zA-Z]")));
    prefix.truncate(prefixLength);

    const QByteArray bytes = identifier.toUtf8();
    const quint16 checksum = qChecksum(bytes.constData(), uint(bytes.size()));
    return QStringLiteral("qtsingleapp-%1-%2-%3")
        .arg(prefix, QString::number(checksum, 16), QString::number(::getuid(), 16));
}

void pauseBeforeRetry()
{
    timespec left = {0, retryPauseNs};
    while (::nanosleep(&left, &left) == -1 && errno == EINTR) { }
}

} // namespace

QtLocalPeer::QtLocalPeer(QObject *parent, const QString &applicationId)
    : QObject(parent)
    , identifier(applicationId)
{
    QString prefix = identifier;
    if (identifier.isEmpty()) {
        identifier = QCoreApplication::applicationFilePath();
        prefix = identifier.section(QLatin1Char('/'), -1);
    }
    serverName = nameFor(identifier, prefix);

    localServer = new QLocalServer(this);
    Q_ASSERT_X(localServer, "QtLocalPeer", "localServer");

    instanceLock.setFileName(QDir(QDir::tempPath()).absolutePath() + QLatin1Char('/') + serverName
                             + QLatin1String("-lockfile"));
    if (!instanceLock.open(QIODevice::ReadWrite)) {
        qWarning("QtLocalPeer: the lock file %s cannot be opened, %s", qPrintable(instanceLock.fileName()),
                 qPrintable(instanceLock.errorString()));
    }
}

QtLocalPeer::~QtLocalPeer()
{
    // Close while the lock is held: closing removes the socket file, which could later be the next instance's.
    localServer->close();
}

bool QtLocalPeer::isClient()
{
    if (instanceLock.isLocked()) {
        return false;
    }
    if (!instanceLock.lock(QtLP_Private::QtLockedFile::LockWrite, false)) {
        return true;
    }

    if (!listen()) {
        // Logs of installed versions hold this text, with the core application's name. It serves both applications.
        qWarning("QtSingleCoreApplication: listen on local socket failed, %s", qPrintable(listenError()));
    }
    connect(localServer, SIGNAL(newConnection()), this, SLOT(receiveConnection()));
    return false;
}

bool QtLocalPeer::sendMessage(const QString &message, int timeoutMs)
{
    if (!isClient()) {
        return false;
    }

    QLocalSocket socket;
    if (!connectToFirst(socket, timeoutMs)) {
        return false;
    }

    const QByteArray bytes = message.toUtf8();
    QDataStream(&socket).writeBytes(bytes.constData(), uint(bytes.size()));

    return socket.waitForBytesWritten(timeoutMs) && socket.waitForReadyRead(timeoutMs)
        && QLatin1String(socket.read(ack.size())) == ack;
}

QString QtLocalPeer::applicationId() const
{
    return identifier;
}

void QtLocalPeer::receiveConnection()
{
    std::unique_ptr<QLocalSocket> socket(localServer->nextPendingConnection());
    if (!socket) {
        return;
    }

    MessageReader reader(*socket);
    if (!reader.receive()) {
        qWarning("QtLocalPeer: Message reception failed %s", qPrintable(socket->errorString()));
        return;
    }

    const QString message = reader.message();
    acknowledge(*socket);
    // Disconnect before the signal, so that its slots run with no connection open.
    socket.reset();
    emit messageReceived(message);
}

void QtLocalPeer::acknowledge(QLocalSocket &socket)
{
    // Skip each step once the sender has disconnected, or Qt logs a warning.
    const auto isConnected = [&socket] { return socket.state() == QLocalSocket::ConnectedState; };
    if (isConnected()) {
        socket.write(ack.data(), ack.size());
        // Flush, because waitForBytesWritten() reads first and would take a sender that has closed its writing side for
        // disconnected.
        socket.flush();
    }
    if (isConnected()) {
        socket.waitForBytesWritten(acknowledgeWaitMs);
    }
    // The sender disconnects once it has read the acknowledgement.
    if (isConnected()) {
        SocketWaits::waitForDisconnected(socket, disconnectWaitMs);
    }
}

bool QtLocalPeer::connectToFirst(QLocalSocket &socket, int timeoutMs) const
{
    for (int attempt = 1; attempt <= connectAttempts; ++attempt) {
        socket.connectToServer(serverName);
        if (SocketWaits::waitForConnected(socket, timeoutMs / connectAttempts)) {
            return true;
        }
        socket.abort();
        // An instance that is just starting locks the file shortly before it listens.
        if (attempt < connectAttempts) {
            pauseBeforeRetry();
        }
    }
    return false;
}

/// The server's error text, with the lengths when the path is too long: Qt's text is only a number then.
QString QtLocalPeer::listenError() const
{
    const QString path = QDir::cleanPath(QDir::tempPath()) + QLatin1Char('/') + serverName;
    const int length = QFile::encodeName(path).size();

    if (length <= longestSocketPath) {
        return localServer->errorString();
    }
    return localServer->errorString()
        + QStringLiteral(": the path has %1 bytes, a socket's at most %2: %3")
              .arg(length)
              .arg(longestSocketPath)
              .arg(path);
}

bool QtLocalPeer::listen()
{
    if (localServer->listen(serverName)) {
        return true;
    }
    if (localServer->serverError() != QAbstractSocket::AddressInUseError) {
        return false;
    }

    // We hold the lock, so the socket file was left by an instance that crashed.
    QFile::remove(QDir::cleanPath(QDir::tempPath()) + QLatin1Char('/') + serverName);
    return localServer->listen(serverName);
}
