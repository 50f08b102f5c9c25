#pragma once

#include "qtlockedfile.h"

#include <QLatin1String>
#include <QObject>
#include <QString>

class QLocalServer;
class QLocalSocket;

/// One instance of the program; one user's instances of one executable know each other. The first holds the lock file
/// and listens on a local socket; a later one can only send it a message.
class QtLocalPeer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(QtLocalPeer)

public:
    /// Opens the lock file without locking it. An empty id stands for the executable's path.
    explicit QtLocalPeer(QObject *parent = nullptr, const QString &applicationId = QString());
    ~QtLocalPeer() override;

    /// True when another instance was first. False makes the caller the first: it then holds the lock and listens. A
    /// failure to listen is only logged.
    bool isClient();

    /// Sends `message` to the first instance and waits for the acknowledgement, up to `timeoutMs` for each step. False
    /// without an acknowledgement, and when the caller is itself the first.
    bool sendMessage(const QString &message, int timeoutMs);

    QString applicationId() const;

signals:
    /// A later instance has sent `message` and is disconnected.
    void messageReceived(const QString &message);

private slots:
    void receiveConnection();

private:
    static constexpr QLatin1String ack{"ack", 3};

    static void acknowledge(QLocalSocket &socket);
    bool connectToFirst(QLocalSocket &socket, int timeoutMs) const;
    bool listen();
    QString listenError() const;

    QString identifier;
    QString serverName;
    QLocalServer *localServer = nullptr;
    QtLP_Private::QtLockedFile instanceLock;
};
