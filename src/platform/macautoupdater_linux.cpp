#include "macautoupdater.h"

#include <QDebug>

class MacAutoUpdater::Private
{
public:
    QString feedAddress;
};

MacAutoUpdater::MacAutoUpdater(const QString &feedAddress)
    : d(new Private{feedAddress})
{
}

MacAutoUpdater::~MacAutoUpdater() = default;

void MacAutoUpdater::checkForUpdates()
{
    qDebug("Update check asked for, feed %s; here updates come with the package", qUtf8Printable(d->feedAddress));
}
