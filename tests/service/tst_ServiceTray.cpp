#include "comparelines.h"
#include "effects.h"
#include "logcapture.h"
#include "settingsfile.h"
#include "testmain.h"

Q_DECLARE_METATYPE(QSystemTrayIcon::ActivationReason)

namespace {

QImage pictureOf(const QIcon &icon)
{
    return icon.pixmap(128, 128).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage trayPicture()
{
    return QImage(QStringLiteral(":/images/tray.png")).convertToFormat(QImage::Format_ARGB32);
}

/// The log lines of the service and the stand-in documents.
QStringList log()
{
    QStringList lines;
    for (const QString &line : LogCapture::lines()) {
        if (!line.startsWith("warning: ") && !line.startsWith("\"--margin"))
            lines.append(line);
    }
    return lines;
}

} // namespace

/// The tray icon: its clicks, its picture and its stored counts.
class ServiceTray : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void icon_is_plain_visible_and_has_no_menu();
    void click_toggles_the_widget_and_hides_the_popups_data();
    void click_toggles_the_widget_and_hides_the_popups();
    void widget_shown_by_a_click_is_placed();
    void click_on_the_message_opens_the_list();
    void click_does_not_depend_on_the_document();
    void refreshed_icon_follows_both_counts_data();
    void refreshed_icon_follows_both_counts();
    void counts_are_stored_even_if_the_document_has_none();
    void main_document_that_did_not_load_has_no_counts();
    void badge_disappears_when_no_patient_waits();
    void refresh_calls_main_then_list_then_paints();
    void refresh_sends_no_message();
    void first_refresh_announces_and_paints_without_calling_the_documents();
};

void ServiceTray::init()
{
    SettingsFile::forgetEverything();
}

void ServiceTray::icon_is_plain_visible_and_has_no_menu()
{
    const RunningService running;
    QVERIFY(running.tray().isVisible());
    QCOMPARE(running.tray().contextMenu(), nullptr);
    QCOMPARE(running.tray().parent(), nullptr);
    QCOMPARE(trayPicture().size(), QSize(128, 128));
    QCOMPARE(pictureOf(running.tray().icon()), trayPicture());
}

void ServiceTray::click_toggles_the_widget_and_hides_the_popups_data()
{
    QTest::addColumn<QSystemTrayIcon::ActivationReason>("reason");
    QTest::addColumn<bool>("widgetVisible");
    QTest::addColumn<QStringList>("effects");

    QTest::newRow("click, widget visible")
        << QSystemTrayIcon::Trigger << true << QStringList{"list hidden", "contact hidden", "main hidden"};
    QTest::newRow("click, widget hidden")
        << QSystemTrayIcon::Trigger << false << QStringList{"list hidden", "contact hidden", "main shown"};
    QTest::newRow("double click, widget visible")
        << QSystemTrayIcon::DoubleClick << true << QStringList{"list hidden", "contact hidden", "main hidden"};
    QTest::newRow("double click, widget hidden")
        << QSystemTrayIcon::DoubleClick << false << QStringList{"list hidden", "contact hidden", "main shown"};
    QTest::newRow("context menu") << QSystemTrayIcon::Context << true << QStringList();
    QTest::newRow("middle click") << QSystemTrayIcon::MiddleClick << true << QStringList();
    QTest::newRow("unknown") << QSystemTrayIcon::Unknown << true << QStringList();
    QTest::newRow("context menu, widget hidden") << QSystemTrayIcon::Context << false << QStringList();
    QTest::newRow("middle click, widget hidden") << QSystemTrayIcon::MiddleClick << false << QStringList();
    QTest::newRow("unknown, widget hidden") << QSystemTrayIcon::Unknown << false << QStringList();
}

void ServiceTray::click_toggles_the_widget_and_hides_the_popups()
{
    QFETCH(QSystemTrayIcon::ActivationReason, reason);
    QFETCH(bool, widgetVisible);
    QFETCH(QStringList, effects);
    LogCapture capture;
    RunningService running;
    running.list->show();
    running.contact->show();
    if (widgetVisible)
        running.main->show();
    Effects observed(running);

    emit running.tray().activated(reason);

    COMPARE_LINES(observed.take(), effects);
}

void ServiceTray::widget_shown_by_a_click_is_placed()
{
    RunningService running;
    running.main->setPosition(100, 100);
    emit running.tray().activated(QSystemTrayIcon::Trigger);
    QCOMPARE(running.main->position(), QPoint(230, 35)); // on this screen of 800 x 600
}

void ServiceTray::click_on_the_message_opens_the_list()
{
    LogCapture capture;
    RunningService running;
    Effects observed(running);
    emit running.tray().messageClicked();
    COMPARE_LINES(observed.take(), {"list shown", "ShowListViewCounter is 1"});
}

void ServiceTray::click_does_not_depend_on_the_document()
{
    RunningService running;
    running.main->setSource(QUrl("qrc:/service-tests/bare.qml"));
    emit running.tray().activated(QSystemTrayIcon::Trigger);
    QVERIFY(running.main->isVisible());
}

void ServiceTray::refreshed_icon_follows_both_counts_data()
{
    QTest::addColumn<QVariant>("number");
    QTest::addColumn<QVariant>("total");
    QTest::addColumn<int>("waiting");
    QTest::addColumn<int>("all");
    QTest::addColumn<QString>("line");

    const QVariant nothing;
    QTest::newRow("no patients") << QVariant(0) << QVariant(0) << 0 << 0 << "icon 0.";
    QTest::newRow("no patient waits") << QVariant(0) << QVariant(5) << 0 << 5 << "icon 0.";
    QTest::newRow("one waits") << QVariant(1) << QVariant(5) << 1 << 5 << "icon 1";
    QTest::newRow("three wait") << QVariant(3) << QVariant(5) << 3 << 5 << "icon 3";
    QTest::newRow("150 wait") << QVariant(150) << QVariant(2000) << 150 << 2000 << "icon 150";
    QTest::newRow("below none") << QVariant(-1) << QVariant(5) << -1 << 5 << "icon 0.";
    QTest::newRow("number as text") << QVariant("4") << QVariant("6") << 4 << 6 << "icon 4";
    QTest::newRow("number is no number") << QVariant("abc") << QVariant(5) << 0 << 5 << "icon 0.";
    QTest::newRow("number is not given") << nothing << QVariant(5) << 0 << 5 << "icon 0.";
    // The flag of the second conversion decides whether there is a badge.
    QTest::newRow("total is no number") << QVariant(3) << QVariant("abc") << 3 << 0 << "icon 0.";
    QTest::newRow("total is not given") << QVariant(3) << nothing << 3 << 0 << "icon 0.";
    QTest::newRow("neither is a number") << QVariant("a") << QVariant("b") << 0 << 0 << "icon 0.";
}

void ServiceTray::refreshed_icon_follows_both_counts()
{
    QFETCH(QVariant, number);
    QFETCH(QVariant, total);
    QFETCH(int, waiting);
    QFETCH(int, all);
    QFETCH(QString, line);
    RunningService running;
    QQuickItem *document = running.standInFor(running.main);
    document->setProperty("number", number);
    document->setProperty("total", total);
    LogCapture capture;

    running.call("refreshIcon");

    COMPARE_LINES(log(), {"Refreshing icon.", line});
    QCOMPARE(SettingsFile::value("PatientsWaitingCounter"), QVariant(waiting));
    QCOMPARE(SettingsFile::value("PatientsCounter"), QVariant(all));
    QCOMPARE(pictureOf(running.tray().icon()) == trayPicture(), line == "icon 0.");
    QCOMPARE(running.service->messages.size(), 0);
}

void ServiceTray::counts_are_stored_even_if_the_document_has_none()
{
    RunningService running;
    running.main->setSource(QUrl("qrc:/service-tests/bare.qml"));
    LogCapture capture;
    running.call("refreshIcon");
    COMPARE_LINES(log(), {"Refreshing icon.", "icon 0."});
    QCOMPARE(SettingsFile::value("PatientsWaitingCounter"), QVariant(0));
    QCOMPARE(SettingsFile::value("PatientsCounter"), QVariant(0));
}

void ServiceTray::main_document_that_did_not_load_has_no_counts()
{
    LogCapture capture;
    RunningService running;
    running.main->setSource(QUrl("qrc:/service-tests/missing.qml"));
    QVERIFY(!running.main->rootObject());
    QCOMPARE(LogCapture::warnings().filter("missing.qml").size(), 1);
    SettingsFile::setValue("PatientsWaitingCounter", 3);

    running.call("autoRefresh");
    running.call("refreshViews");

    QCOMPARE(pictureOf(running.tray().icon()), trayPicture());
    QCOMPARE(SettingsFile::value("PatientsWaitingCounter"), QVariant(0));
    QCOMPARE(running.service->messages.size(), 0);
}

void ServiceTray::badge_disappears_when_no_patient_waits()
{
    RunningService running;
    QQuickItem *document = running.standInFor(running.main);
    document->setProperty("number", 2);
    running.call("refreshIcon");
    QVERIFY(pictureOf(running.tray().icon()) != trayPicture());
    document->setProperty("number", 0);
    running.call("refreshIcon");
    QCOMPARE(pictureOf(running.tray().icon()), trayPicture());
}

void ServiceTray::refresh_calls_main_then_list_then_paints()
{
    RunningService running;
    QQuickItem *main = running.standInFor(running.main);
    main->setProperty("nextNumber", 4);
    main->setProperty("nextTotal", 9);
    running.standInFor(running.list);
    running.standInFor(running.contact);
    LogCapture capture;

    running.call("refreshViews");

    COMPARE_LINES(log(), {"main.qml refresh", "ListPopup.qml refresh", "Refreshing icon.", "icon 4"});
    QCOMPARE(SettingsFile::value("PatientsWaitingCounter"), QVariant(4));
    QCOMPARE(SettingsFile::value("PatientsCounter"), QVariant(9));
}

void ServiceTray::refresh_sends_no_message()
{
    RunningService running;
    running.standInFor(running.list);
    QQuickItem *document = running.standInFor(running.main);
    LogCapture capture;
    for (const int waiting : {1, 2, 2, 0, 5}) {
        document->setProperty("nextNumber", waiting);
        running.call("refreshViews");
    }
    QCOMPARE(running.service->messages.size(), 0);
    QCOMPARE(log().count("Refreshing icon."), 5);
}

void ServiceTray::first_refresh_announces_and_paints_without_calling_the_documents()
{
    RunningService running;
    running.standInFor(running.list);
    running.standInFor(running.main)->setProperty("number", 2);
    LogCapture capture;

    running.call("firstRefresh");

    COMPARE_LINES(log(), {"message: Vous avez 2 patients en attente", "Refreshing icon.", "icon 2"});
}

SERVICE_TEST_MAIN(ServiceTray)

#include "tst_ServiceTray.moc"
