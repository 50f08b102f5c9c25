#pragma once

#include "qtlockedfile.h"

#include <QLatin1String>
#include <QObject>
#include <QString>

class QLocalServer;
class QLocalSocket;

/// One of the instances of the program that one user runs from one place: the first, which holds the lock file and
/// listens on a local socket, or a later one, which can only send the first a message.
class QtLocalPeer : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(QtLocalPeer)

public:
    /// Works out the names and opens the lock file; takes nothing yet. An empty id stands for the executable's path.
    explicit QtLocalPeer(QObject *parent = nullptr, const QString &applicationId = QString());
    ~QtLocalPeer() override;

    /// True when another instance was first. False makes the caller the first: it holds the lock and listens from
    /// now on. A failure to listen is only logged.
    bool isClient();

    /// Sends `message` to the first instance and waits for its acknowledgement, up to `timeoutMs` for each step.
    /// False when that did not come, or when the caller is itself the first.
    bool sendMessage(const QString &message, int timeoutMs);

    QString applicationId() const;

signals:
    /// A later instance has sent `message`; its connection is closed by now.
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
