#include "qtsingleapplication.h"

#include "qtlocalpeer.h"

// Kept: the flag goes where the application's integer flags go, which makes them 1 and not the Qt version.
QtSingleApplication::QtSingleApplication(int &argc, char **argv, bool guiEnabled)
    : QApplication(argc, argv, guiEnabled)
{
    sysInit();
}

QtSingleApplication::QtSingleApplication(const QString &applicationId, int &argc, char **argv)
    : QApplication(argc, argv)
{
    sysInit(applicationId);
}

bool QtSingleApplication::isRunning()
{
    return localPeer->isClient();
}

QString QtSingleApplication::id() const
{
    return localPeer->applicationId();
}

void QtSingleApplication::setActivationWindow(QWindow *window, bool activateOnMessage)
{
    activationTarget = window;
    if (activateOnMessage) {
        connect(localPeer, SIGNAL(messageReceived(QString)), this, SIGNAL(activateWindow()));
    } else {
        disconnect(localPeer, SIGNAL(messageReceived(QString)), this, SIGNAL(activateWindow()));
    }
}

QWindow *QtSingleApplication::activationWindow() const
{
    return activationTarget;
}

bool QtSingleApplication::sendMessage(const QString &message, int timeoutMs)
{
    return localPeer->sendMessage(message, timeoutMs);
}

void QtSingleApplication::sysInit(const QString &applicationId)
{
    localPeer = new QtLocalPeer(this, applicationId);
    Q_ASSERT_X(localPeer, "QtSingleApplication", "localPeer");
    connect(localPeer, SIGNAL(messageReceived(QString)), this, SIGNAL(messageReceived(QString)));
}
