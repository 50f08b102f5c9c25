#include "comparelines.h"
#include "constructionsteps.h"
#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QTimer>

/// The order in which the service makes things, and in which it lets go of them.
class ServiceConstruction : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void first_start_goes_through_its_steps_in_order();
    void later_start_leaves_the_identifier_and_launch_at_login_out();
    void end_hides_the_tray_icon_then_lets_go_of_three_things();
    void windows_icon_and_daily_timer_outlive_the_service();
    void start_says_nothing_in_the_log_but_the_upload();
};

void ServiceConstruction::init()
{
    SettingsFile::forgetEverything();
    constructionSteps().clear();
}

void ServiceConstruction::first_start_goes_through_its_steps_in_order()
{
    RunningService running;

    COMPARE_LINES(constructionSteps(), QStringList({
        "network access manager, owned",
        "autorun",
        "settings Vesk Tandry, Olmeric",
        "settings Vesk Korrin, Olmeric",
        "write Uuid",
        "launch at login on",
        "settings Vesk Korrin gone",
        "write OSType",
        "write OSVersion",
        "write OSVersionReadable",
        "write LaunchCounter",
        "tray icon",
        "widget with parent 0 and flags 0",
        "tray icon shown",
        "timer of 3600000 ms started",
        "default alpha buffer 1",
        "view on top",
        "point_factor is the double 1.3",
        "load qrc:///qml/main.qml",
        "colour #00000000",
        "view",
        "point_factor is the double 1.3",
        "load qrc:///qml/ContactPopup.qml",
        "colour #00000000",
        "view",
        "point_factor is the double 1.3",
        "load qrc:///qml/ListPopup.qml",
        "colour #00000000",
        "launch at login?",
        "launch at login?", // the document's tick has moved and reports it
        "timer of 86400000 ms started",
        "post to https://127.0.0.1:47443/api/vesktandry/tracking/ with Content-Type, Content-Length",
    }));
}

void ServiceConstruction::later_start_leaves_the_identifier_and_launch_at_login_out()
{
    { RunningService first; }
    constructionSteps().clear();

    RunningService running;

    COMPARE_LINES(constructionSteps().mid(0, 9), QStringList({
        "network access manager, owned",
        "autorun",
        "settings Vesk Tandry, Olmeric",
        "write OSType",
        "write OSVersion",
        "write OSVersionReadable",
        "write LaunchCounter",
        "tray icon",
        "widget with parent 0 and flags 0",
    }));
}

void ServiceConstruction::end_hides_the_tray_icon_then_lets_go_of_three_things()
{
    RunningService running;
    constructionSteps().clear();

    running.destroyService();

    COMPARE_LINES(constructionSteps(), QStringList({
        "tray icon hidden",
        "settings Vesk Tandry gone",
        "autorun gone",
        "network access manager gone",
    }));
}

void ServiceConstruction::windows_icon_and_daily_timer_outlive_the_service()
{
    RunningService running;
    QPointer<QTimer> hourly = running.service->findChild<QTimer *>();
    QPointer<QTimer> daily = running.statisticsTimer();
    QPointer<QSystemTrayIcon> tray = &running.tray();
    QPointer<QWidget> dialogParent = running.dialogParent();
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

void ServiceConstruction::start_says_nothing_in_the_log_but_the_upload()
{
    LogCapture log;
    RunningService running;
    QStringList lines = LogCapture::lines();
    // Qt's own, with no display: there is no tray to watch.
    lines.removeAll("warning: QObject::connect: No such signal "
                    "QPlatformNativeInterface::systemTrayWindowChanged(QScreen*)");
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().startsWith("\"--margin\\r\\nContent-Disposition: form-data; name=\\\"action\\\""));
}

SERVICE_TEST_MAIN(ServiceConstruction)

#include "tst_ServiceConstruction.moc"
