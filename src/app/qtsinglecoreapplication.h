#pragma once

#include <QCoreApplication>

class QtLocalPeer;

/// The same as QtSingleApplication for a program without windows.
class QtSingleCoreApplication : public QCoreApplication
{
    Q_OBJECT
    Q_DISABLE_COPY(QtSingleCoreApplication)

public:
    /// Takes the executable's path as its id. `argc` must outlive the application.
    QtSingleCoreApplication(int &argc, char **argv);
    /// The same with the given id.
    QtSingleCoreApplication(const QString &applicationId, int &argc, char **argv);

    /// See QtLocalPeer::isClient().
    bool isRunning();
    /// The id under which instances find each other.
    QString id() const;

signals:
    /// A later instance has sent `message`.
    void messageReceived(const QString &message);

public slots:
    /// See QtLocalPeer::sendMessage().
    bool sendMessage(const QString &message, int timeoutMs = 5000);

private:
    void createPeer(const QString &applicationId = QString());

    QtLocalPeer *localPeer = nullptr;
};
