#include "buildsettings.h"
#include "cocoainitializer.h"
#include "draggablequickview.h"
#include "focuser.h"
#include "macautoupdater.h"
#include "macrecorder.h"
#include "macupdatechecker.h"
#include "testhome.h"

#include <QGuiApplication>
#include <QtTest>

namespace {

QtMessageHandler previousHandler = nullptr;

/// Filters two messages: Qt logs that a window without focus is activated, and that this platform cannot raise windows.
void keepWindowCalls(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith("requestActivate() called"))
        MacRecorder::add("QWindow::requestActivate");
    else if (text.startsWith("This plugin does not support raise()"))
        MacRecorder::add("QWindow::raise");
    else
        previousHandler(type, context, text);
}

} // namespace

/// Runs the unchanged macOS sources against an AppKit whose messages are recorded.
class tst_MacSources : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // Here and not in main(): the test framework installs its own handler first.
        previousHandler = qInstallMessageHandler(keepWindowCalls);
        MacRecorder::start();
    }
    void cleanup()
    {
        qInstallMessageHandler(previousHandler);
        MacRecorder::take();
    }

    void cocoa_is_loaded_before_its_pool();
    void the_pool_is_released_once_with_its_objects();
    void the_updater_is_prepared_in_this_order();
    void the_feed_address_is_passed_on_unchanged();
    void a_malformed_address_passes_a_nil_url();
    void a_check_is_one_message();
    void the_updater_is_released_as_often_as_retained();
    void the_checker_checks_at_once_and_releases_the_updater_at_its_end();
    void showing_a_view_activates_the_program_first();
    void the_focuser_raises_without_showing();
};

void tst_MacSources::cocoa_is_loaded_before_its_pool()
{
    const CocoaInitializer initializer;
    QCOMPARE(MacRecorder::take(),
             (QStringList{"NSApplicationLoad", "NSAutoreleasePool alloc", "NSAutoreleasePool init"}));
}

void tst_MacSources::the_pool_is_released_once_with_its_objects()
{
    {
        const CocoaInitializer initializer;
        MacRecorder::makePooledObject();
        MacRecorder::start();
    }
    QCOMPARE(MacRecorder::take(), (QStringList{"NSAutoreleasePool release", "Pooled dealloc"}));
}

void tst_MacSources::the_updater_is_prepared_in_this_order()
{
    const MacAutoUpdater updater("http://localhost/feed.xml");
    QCOMPARE(MacRecorder::take(),
             (QStringList{
                 "SUUpdater sharedUpdater",
                 "SUUpdater retain",
                 "NSString stringWithUTF8String: http://localhost/feed.xml",
                 "NSURL URLWithString: http://localhost/feed.xml",
                 "SUUpdater setFeedURL: http://localhost/feed.xml",
                 "SUUpdater setAutomaticallyDownloadsUpdates: YES",
             }));
}

void tst_MacSources::the_feed_address_is_passed_on_unchanged()
{
    const QString address = QString::fromUtf8("http://h\xc3\xb4te/\xe2\x82\xac");
    const MacAutoUpdater updater(address);
    QVERIFY(MacRecorder::take().contains("NSString stringWithUTF8String: " + address));
}

void tst_MacSources::a_malformed_address_passes_a_nil_url()
{
    const MacAutoUpdater updater("http://local host:port/");
    QVERIFY(MacRecorder::take().contains("SUUpdater setFeedURL: nil"));
}

void tst_MacSources::a_check_is_one_message()
{
    MacAutoUpdater updater("http://localhost/feed.xml");
    MacRecorder::start();
    updater.checkForUpdates();
    QCOMPARE(MacRecorder::take(), QStringList{"SUUpdater checkForUpdatesInBackground"});
}

void tst_MacSources::the_updater_is_released_as_often_as_retained()
{
    const unsigned before = MacRecorder::updaterOwners();
    {
        const MacAutoUpdater updater("http://localhost/feed.xml");
        QCOMPARE(MacRecorder::updaterOwners(), before + 1);
        MacRecorder::start();
    }
    QCOMPARE(MacRecorder::take(), QStringList{"SUUpdater release"});
    QCOMPARE(MacRecorder::updaterOwners(), before);
}

void tst_MacSources::the_checker_checks_at_once_and_releases_the_updater_at_its_end()
{
    const QString address = QString("http://%1/widget_vesk/tandry/mac/appcast.xml").arg(BuildSettings::updateHost);
    {
        MacUpdateChecker checker(nullptr);
        checker.checkForUpdate();
    }
    QCOMPARE(MacRecorder::take(),
             (QStringList{
                 "SUUpdater sharedUpdater",
                 "SUUpdater retain",
                 "NSString stringWithUTF8String: " + address,
                 "NSURL URLWithString: " + address,
                 "SUUpdater setFeedURL: " + address,
                 "SUUpdater setAutomaticallyDownloadsUpdates: YES",
                 "SUUpdater checkForUpdatesInBackground",
                 "SUUpdater checkForUpdatesInBackground",
                 "SUUpdater release",
             }));
}

static const QStringList bringsToFront{
    "NSApplication sharedApplication",
    "activateIgnoringOtherApps: YES to the shared application",
    "QWindow::requestActivate",
    "QWindow::raise",
};

void tst_MacSources::showing_a_view_activates_the_program_first()
{
    DraggableQuickView view(true);
    view.setFlag(Qt::WindowDoesNotAcceptFocus);
    view.show();
    QCOMPARE(MacRecorder::take(), bringsToFront);
    QVERIFY(view.isVisible());
}

void tst_MacSources::the_focuser_raises_without_showing()
{
    DraggableQuickView view(false);
    view.setFlag(Qt::WindowDoesNotAcceptFocus);
    view.create();
    Focuser(&view).raise();
    QCOMPARE(MacRecorder::take(), bringsToFront);
    QVERIFY(!view.isVisible());
}

int main(int argc, char **argv)
{
    const TestHome home;
    QGuiApplication application(argc, argv);
    MacRecorder::install();
    tst_MacSources test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MacSources.moc"
