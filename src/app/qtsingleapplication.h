#pragma once

#include <QApplication>

class QtLocalPeer;
class QWindow;

/// The application object of a program with windows that runs once for each user: a later instance finds out through
/// `isRunning()`, hands over with `sendMessage()` and leaves.
class QtSingleApplication : public QApplication
{
    Q_OBJECT
    Q_DISABLE_COPY(QtSingleApplication)

public:
    /// Builds the application under the id of its executable's path; `argc` must live as long as the application.
    explicit QtSingleApplication(int &argc, char **argv, bool guiEnabled = true);
    /// The same under the given id.
    QtSingleApplication(const QString &applicationId, int &argc, char **argv);

    /// True when another instance was first; false makes this one the first.
    bool isRunning();
    /// The id under which instances find each other.
    QString id() const;

    /// Stores the window that messages are to bring forward. With `activateOnMessage` every message raises
    /// `activateWindow()` from now on, without it none does. The window itself is never touched here.
    void setActivationWindow(QWindow *window, bool activateOnMessage = true);
    QWindow *activationWindow() const;

signals:
    /// A later instance has sent `message`.
    void messageReceived(const QString &message);
    /// Whoever owns the window is asked to bring it forward.
    void activateWindow();

public slots:
    /// Sends `message` to the first instance, waiting up to `timeoutMs` for each step; false when it was not
    /// acknowledged, or when this is the first instance.
    bool sendMessage(const QString &message, int timeoutMs = 5000);

private:
    void sysInit(const QString &applicationId = QString());

    QtLocalPeer *localPeer = nullptr;
    QWindow *activationTarget = nullptr;
};
