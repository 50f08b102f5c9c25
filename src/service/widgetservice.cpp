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
    // After the documents are connected, so that the main document's switch starts in the real state.
    announceAutorun();
    startStatistics();
}

WidgetService::~WidgetService()
{
    trayIcon->hide();
    // The settings first, so that the counters are on disk. The network manager is a child and would be deleted by
    // QObject; deleting it here aborts its uploads while the service still exists.
    delete settings;
    delete m_autorun;
    delete networkManager;
}
