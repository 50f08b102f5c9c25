#include "qtsingleapplication.h"

#include "qtlocalpeer.h"

// The bool lands in QApplication's integer flags: Qt takes 1, not its own version, for the version that the program was
// built with, and behaves as it does for such a program.
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
