#include "qtsinglecoreapplication.h"

#include "qtlocalpeer.h"

QtSingleCoreApplication::QtSingleCoreApplication(int &argc, char **argv)
    : QCoreApplication(argc, argv)
{
    createPeer();
}

QtSingleCoreApplication::QtSingleCoreApplication(const QString &applicationId, int &argc, char **argv)
    : QCoreApplication(argc, argv)
{
    createPeer(applicationId);
}

bool QtSingleCoreApplication::isRunning()
{
    return localPeer->isClient();
}

QString QtSingleCoreApplication::id() const
{
    return localPeer->applicationId();
}

bool QtSingleCoreApplication::sendMessage(const QString &message, int timeoutMs)
{
    return localPeer->sendMessage(message, timeoutMs);
}

void QtSingleCoreApplication::createPeer(const QString &applicationId)
{
    localPeer = new QtLocalPeer(this, applicationId);
    Q_ASSERT_X(localPeer, "QtSingleCoreApplication", "localPeer");
    connect(localPeer, SIGNAL(messageReceived(QString)), this, SIGNAL(messageReceived(QString)));
}
