#pragma once

#include <QCoreApplication>

class QtLocalPeer;

/// The application object of a program without windows that runs once for each user.
class QtSingleCoreApplication : public QCoreApplication
{
    Q_OBJECT
    Q_DISABLE_COPY(QtSingleCoreApplication)

public:
    /// Builds the application under the id of its executable's path; `argc` must live as long as the application.
    QtSingleCoreApplication(int &argc, char **argv);
    /// The same under the given id.
    QtSingleCoreApplication(const QString &applicationId, int &argc, char **argv);

    /// True when another instance was first; false makes this one the first.
    bool isRunning();
    /// The id under which instances find each other.
    QString id() const;

signals:
    /// A later instance has sent `message`.
    void messageReceived(const QString &message);

public slots:
    /// Sends `message` to the first instance, waiting up to `timeoutMs` for each step; false when it was not
    /// acknowledged, or when this is the first instance.
    bool sendMessage(const QString &message, int timeoutMs = 5000);

private:
    void createPeer(const QString &applicationId = QString());

    QtLocalPeer *localPeer = nullptr;
};
