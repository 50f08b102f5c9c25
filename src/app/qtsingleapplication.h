#pragma once

#include <QApplication>

class QtLocalPeer;
class QWindow;

/// The application object of a GUI program that runs once for each user. A later instance checks `isRunning()`, calls
/// `sendMessage()` and exits.
class QtSingleApplication : public QApplication
{
    Q_OBJECT
    Q_DISABLE_COPY(QtSingleApplication)

public:
    /// Takes the executable's path as its id. `argc` must outlive the application.
    explicit QtSingleApplication(int &argc, char **argv, bool guiEnabled = true);
    /// The same with the given id.
    QtSingleApplication(const QString &applicationId, int &argc, char **argv);

    /// See QtLocalPeer::isClient().
    bool isRunning();
    /// The id under which instances find each other.
    QString id() const;

    /// Stores the window and, with `activateOnMessage`, emits `activateWindow()` at every message from now on. The
    /// window itself is never touched.
    void setActivationWindow(QWindow *window, bool activateOnMessage = true);
    QWindow *activationWindow() const;

signals:
    /// A later instance has sent `message`.
    void messageReceived(const QString &message);
    /// A message has arrived; the receiver brings the window forward.
    void activateWindow();

public slots:
    /// See QtLocalPeer::sendMessage().
    bool sendMessage(const QString &message, int timeoutMs = 5000);

private:
    void sysInit(const QString &applicationId = QString());

    QtLocalPeer *localPeer = nullptr;
    QWindow *activationTarget = nullptr;
};
