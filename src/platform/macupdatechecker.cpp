#include "macupdatechecker.h"

#include "buildsettings.h"
#include "macautoupdater.h"

#include <QTimer>

namespace {

constexpr int checkIntervalMs = 24 * 60 * 60 * 1000;

QString feedAddress()
{
    // Plain http: the feed's address in every installed version. Downloads are verified by their signature.
    return QLatin1String("http://") + QString::fromUtf8(BuildSettings::updateHost)
        + QLatin1String("/widget_vesk/tandry/mac/appcast.xml");
}

} // namespace

MacUpdateChecker::MacUpdateChecker(QObject *parent)
    : QObject(parent)
{
    autoUpdater = new MacAutoUpdater(feedAddress());
    Q_ASSERT(autoUpdater);
    autoUpdater->checkForUpdates();

    updateTimer = new QTimer;
    Q_ASSERT(updateTimer);
    updateTimer->setInterval(checkIntervalMs);
    connect(updateTimer, SIGNAL(timeout()), this, SLOT(checkForUpdate()));
    updateTimer->start();
}

MacUpdateChecker::~MacUpdateChecker()
{
    delete updateTimer;
    delete autoUpdater;
}

void MacUpdateChecker::checkForUpdate()
{
    autoUpdater->checkForUpdates();
}
