#include "widgetservice.h"

#include "autorun.h"
#include "settingskeys.h"

#include <QNetworkAccessManager>
#include <QSettings>

WidgetService::WidgetService(QObject *parent)
    : QObject(parent)
{
    createNetworkManager();
    createAutorun();
    openSettings();
    identifyInstallation();
    recordOperatingSystem();
    WidgetService::incrementCounter(SettingsKeys::launchCounter);
    createTrayIcon();
    startRefreshTimer();
    createViews();
    connectDocuments();
    watchDesktop();
    // The documents are connected by now: the main document's tick takes the real state.
    announceAutorun();
    startStatistics();
}

WidgetService::~WidgetService()
{
    trayIcon->hide();
    // The settings first: the counters are on disk before anything else ends. The network manager would go as a child,
    // too; deleted here, it breaks off its uploads while the service is still whole.
    delete settings;
    delete m_autorun;
    delete networkManager;
}
