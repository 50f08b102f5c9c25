#include "comparelines.h"
#include "logcapture.h"
#include "objecttrace.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSettings>
#include <QTimer>

namespace {

/// The only part of launch at login that is a QObject.
bool isAgentList(const QObject *object)
{
    const auto *settings = qobject_cast<const QSettings *>(object);
    return settings && settings->fileName() == SettingsFile::agentList();
}

/// Whether a window created now can be transparent.
QString transparency()
{
    return QQuickWindow::hasDefaultAlphaBuffer() ? QStringLiteral(", transparent") : QString();
}

} // namespace

/// The order in which the service creates and deletes its parts.
class ServiceConstruction : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void parts_are_created_in_order();
    void destructor_hides_the_tray_icon_then_deletes_three_objects();
    void windows_icon_and_daily_timer_outlive_the_service();
    void start_logs_nothing_but_the_upload();
};

void ServiceConstruction::init()
{
    SettingsFile::forgetEverything();
}

void ServiceConstruction::parts_are_created_in_order()
{
    QQuickWindow::setDefaultAlphaBuffer(false);
    ObjectTrace trace(transparency);
    const RunningService running;
    const ObservedService &service = *running.service;
    const QHash<QObject *, QString> names{{service.networkManager, "network manager"},
                                          {service.settings, "settings"},
                                          {&running.tray(), "tray icon"},
                                          {service.dialogParent, "dialog parent"},
                                          {service.refreshTimer, "hourly timer"},
                                          {running.main, "main"},
                                          {running.contact, "contact"},
                                          {running.list, "list"},
                                          {service.statisticsTimer, "daily timer"}};

    QStringList parts;
    for (const ObjectTrace::Made &made : qAsConst(ObjectTrace::made())) {
        const QString name = names.value(made.object,
                                         isAgentList(made.object)                         ? "launch at login"
                                             : qobject_cast<QNetworkReply *>(made.object) ? "upload"
                                                                                          : "");
        if (!name.isEmpty())
            parts.append(name + made.noted);
    }
    COMPARE_LINES(parts,
                  {
                      "network manager",
                      "launch at login",
                      "settings",
                      "tray icon",
                      "dialog parent",
                      "hourly timer",
                      "main, transparent",
                      "contact, transparent",
                      "list, transparent",
                      "daily timer, transparent",
                      "upload, transparent",
                  });
    QCOMPARE(service.networkManager->parent(), &service);
    QCOMPARE(service.settings->organizationName(), QString("Vesk Tandry"));
    QCOMPARE(service.settings->applicationName(), QString("Olmeric"));
    QCOMPARE(service.settings->parent(), nullptr);
    QCOMPARE(service.dialogParent->parent(), nullptr);
    QCOMPARE(service.dialogParent->windowType(), Qt::Window);
}

void ServiceConstruction::destructor_hides_the_tray_icon_then_deletes_three_objects()
{
    ObjectTrace trace;
    RunningService running;
    const QSystemTrayIcon *tray = &running.tray();
    QStringList gone;
    const auto watch = [&](QObject *object, const char *name) {
        connect(object, &QObject::destroyed, this, [&gone, tray, name] {
            gone.append(QString(name) + (tray->isVisible() ? " before the icon is hidden" : ""));
        });
    };
    watch(running.service->settings, "settings");
    watch(running.service->networkManager, "network manager");
    for (const ObjectTrace::Made &made : qAsConst(ObjectTrace::made())) {
        if (isAgentList(made.object))
            watch(made.object, "launch at login");
    }

    running.destroyService();

    COMPARE_LINES(gone, {"settings", "launch at login", "network manager"});
}

void ServiceConstruction::windows_icon_and_daily_timer_outlive_the_service()
{
    RunningService running;
    QPointer<QTimer> hourly = running.service->refreshTimer;
    QPointer<QTimer> daily = running.service->statisticsTimer;
    QPointer<QSystemTrayIcon> tray = &running.tray();
    QPointer<QWidget> dialogParent = running.service->dialogParent;
    QPointer<DraggableQuickView> view = running.main;
    QVERIFY(hourly && daily && tray && dialogParent && view);

    running.destroyService();

    QVERIFY(!hourly);
    QVERIFY(daily && daily->isActive());
    QVERIFY(tray && !tray->isVisible());
    QVERIFY(dialogParent);
    QCOMPARE(windowOf("main.qml"), running.main);
    QCOMPARE(windowOf("ContactPopup.qml"), running.contact);
    QCOMPARE(windowOf("ListPopup.qml"), running.list);
}

void ServiceConstruction::start_logs_nothing_but_the_upload()
{
    LogCapture log;
    RunningService running;
    QStringList lines = LogCapture::lines();
    // Logged by Qt, which has no tray to watch without a display.
    lines.removeAll("warning: QObject::connect: No such signal "
                    "QPlatformNativeInterface::systemTrayWindowChanged(QScreen*)");
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().startsWith("\"--margin\\r\\nContent-Disposition: form-data; name=\\\"action\\\""));
}

SERVICE_TEST_MAIN(ServiceConstruction)

#include "tst_ServiceConstruction.moc"
