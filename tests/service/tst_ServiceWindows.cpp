#include "comparelines.h"
#include "effects.h"
#include "logcapture.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QJSEngine>

namespace {

void showAllWindows(RunningService &running)
{
    for (DraggableQuickView *window : {running.main, running.list, running.contact})
        window->show();
}

} // namespace

/// The slots that show and hide the windows and call functions of the main document.
class ServiceWindows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void each_window_has_a_title_for_screen_readers();
    void each_window_has_the_program_s_icon();
    void main_window_is_shown_and_hidden();
    void toggle_hides_what_is_visible_and_shows_what_is_not();
    void closing_slot_hides_its_own_window_only_data();
    void closing_slot_hides_its_own_window_only();
    void window_manager_s_close_hides_a_popup_or_asks_data();
    void window_manager_s_close_hides_a_popup_or_asks();
    void opening_a_popup_is_counted_data();
    void opening_a_popup_is_counted();
    void counter_stays_at_its_maximum();
    void showing_the_main_window_is_not_counted();
    void selected_patient_opens_in_the_main_window_and_the_list_stays();
    void selected_patient_is_passed_on_as_text();
    void deleted_patients_are_passed_on_unchanged_data();
    void deleted_patients_are_passed_on_unchanged();
    void missing_function_only_warns();
};

void ServiceWindows::init()
{
    SettingsFile::forgetEverything();
}

void ServiceWindows::each_window_has_a_title_for_screen_readers()
{
    LogCapture log;
    RunningService running;
    QCOMPARE(running.main->title(), QString("Vesk Tandry"));
    QCOMPARE(running.contact->title(), QString::fromUtf8("Vesk Tandry – contacts"));
    QCOMPARE(running.list->title(), QString::fromUtf8("Vesk Tandry – liste des patients"));
}

void ServiceWindows::each_window_has_the_program_s_icon()
{
    LogCapture log;
    RunningService running;
    const QImage picture(":/images/tray.png");
    for (const DraggableQuickView *window : {running.main, running.contact, running.list})
        QCOMPARE(window->icon().pixmap(128, 128).toImage().convertToFormat(picture.format()), picture);
}

void ServiceWindows::main_window_is_shown_and_hidden()
{
    LogCapture log;
    RunningService running;
    Effects observed(running);
    running.call("show");
    COMPARE_LINES(observed.take(), {"main shown"});
    running.call("show");
    COMPARE_LINES(observed.take(), {});
    running.call("hide");
    COMPARE_LINES(observed.take(), {"main hidden"});
    running.call("hide");
    COMPARE_LINES(observed.take(), {});
}

void ServiceWindows::toggle_hides_what_is_visible_and_shows_what_is_not()
{
    LogCapture log;
    RunningService running;
    Effects observed(running);
    running.call("openList");
    running.call("openContact");
    observed.take();

    running.call("toggleView");
    COMPARE_LINES(observed.take(), {"main shown"});
    running.call("toggleView");
    COMPARE_LINES(observed.take(), {"main hidden"});
}

void ServiceWindows::closing_slot_hides_its_own_window_only_data()
{
    QTest::addColumn<QString>("effect");
    QTest::newRow("closeList") << "list hidden";
    QTest::newRow("closeContact") << "contact hidden";
    QTest::newRow("hide") << "main hidden";
}

void ServiceWindows::closing_slot_hides_its_own_window_only()
{
    QFETCH(QString, effect);
    LogCapture log;
    RunningService running;
    showAllWindows(running);
    Effects observed(running);
    running.call(QTest::currentDataTag());
    COMPARE_LINES(observed.take(), {effect});
}

void ServiceWindows::window_manager_s_close_hides_a_popup_or_asks_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("effect");
    QTest::newRow("widget") << "main.qml"
                            << "box: Fermeture de Tandry";
    QTest::newRow("list") << "ListPopup.qml"
                          << "list hidden";
    QTest::newRow("contacts") << "ContactPopup.qml"
                              << "contact hidden";
}

void ServiceWindows::window_manager_s_close_hides_a_popup_or_asks()
{
    QFETCH(QString, document);
    QFETCH(QString, effect);
    LogCapture log;
    RunningService running;
    showAllWindows(running);
    Effects observed(running);
    DraggableQuickView *window = windowOf(document.toUtf8());

    QVERIFY(!window->close()); // refused: some systems destroy a window that accepts

    QVERIFY(window->handle());
    QCoreApplication::processEvents(); // the question is queued
    COMPARE_LINES(observed.take(), {effect});
}

void ServiceWindows::opening_a_popup_is_counted_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<int>("after");

    const auto rows = [](const char *slot, const char *key) {
        const auto row = [&](const char *name, const QVariant &before, int after) {
            QTest::addRow("%s, %s", slot, name) << QByteArray(slot) << key << before << after;
        };
        row("absent", QVariant(), 1);
        row("0", 0, 1);
        row("41", 41, 42);
        row("text of a number", "41", 42);
        row("other text", "often", 1);
        row("empty text", "", 1);
    };
    rows("openList", "ShowListViewCounter");
    rows("openContact", "ShowContactViewCounter");
}

void ServiceWindows::opening_a_popup_is_counted()
{
    QFETCH(QByteArray, slot);
    QFETCH(QString, key);
    QFETCH(QVariant, before);
    QFETCH(int, after);
    RunningService running;
    if (before.isValid())
        SettingsFile::setValue(key, before);

    running.call(slot);
    QCOMPARE(SettingsFile::value(key), QVariant(after));
    running.call(slot); // already open, but still counted
    QCOMPARE(SettingsFile::value(key), QVariant(after + 1));
}

void ServiceWindows::counter_stays_at_its_maximum()
{
    RunningService running;
    SettingsFile::setValue("ShowListViewCounter", 2147483646);
    running.call("openList");
    running.call("openList");
    QCOMPARE(SettingsFile::value("ShowListViewCounter"), QVariant(2147483647));
}

void ServiceWindows::showing_the_main_window_is_not_counted()
{
    RunningService running;
    const QStringList before = SettingsFile::keys();
    running.call("show");
    running.call("toggleView");
    running.call("toggleView");
    QMetaObject::invokeMethod(running.service, "openPatient", Q_ARG(QString, "7"));
    QCOMPARE(SettingsFile::keys(), before);
    QVERIFY(!before.contains("ShowMainViewCounter"));
}

void ServiceWindows::selected_patient_opens_in_the_main_window_and_the_list_stays()
{
    LogCapture log;
    RunningService running;
    running.list->show();
    Effects observed(running);
    QMetaObject::invokeMethod(running.service, "openPatient", Q_ARG(QString, "7"));
    COMPARE_LINES(observed.take(), {"main shown", "main document is \"open\""});
    QVERIFY(running.list->isVisible());
}

void ServiceWindows::selected_patient_is_passed_on_as_text()
{
    RunningService running;
    const QQuickItem *document = running.standInFor(running.main);
    QMetaObject::invokeMethod(running.service, "openPatient", Q_ARG(QString, "0042"));
    COMPARE_LINES(document->property("calls").toStringList(), {"openPatient string 0042"});
}

void ServiceWindows::deleted_patients_are_passed_on_unchanged_data()
{
    QTest::addColumn<QVariant>("list");
    QTest::addColumn<QString>("received");

    QTest::newRow("numbers and texts") << QVariant(QVariantList{3, "12"}) << "removedPatients [3,\"12\"]";
    QTest::newRow("empty") << QVariant(QVariantList()) << "removedPatients []";
    QTest::newRow("no list") << QVariant("7") << "removedPatients \"7\"";
    // As the list's document sends it: a value from another engine than the main window's.
    static QJSEngine otherEngine;
    QTest::newRow("script value") << QVariant::fromValue(otherEngine.evaluate("[3, '12']"))
                                  << "removedPatients [3,\"12\"]";
    QTest::newRow("null") << QVariant::fromValue(nullptr) << "removedPatients null";
}

void ServiceWindows::deleted_patients_are_passed_on_unchanged()
{
    QFETCH(QVariant, list);
    QFETCH(QString, received);
    RunningService running;
    const QQuickItem *document = running.standInFor(running.main);
    QMetaObject::invokeMethod(running.service, "removedPatients", Q_ARG(QVariant, list));
    COMPARE_LINES(document->property("calls").toStringList(), {received});
    QVERIFY(!running.main->isVisible());
}

void ServiceWindows::missing_function_only_warns()
{
    RunningService running;
    running.main->setSource(QUrl("qrc:/service-tests/bare.qml"));
    LogCapture log;
    QMetaObject::invokeMethod(running.service, "removedPatients", Q_ARG(QVariant, QVariantList()));
    QCOMPARE(LogCapture::warnings().size(), 1);
    QVERIFY(LogCapture::warnings().first().contains("QMetaObject::invokeMethod: No such method"));
}

SERVICE_TEST_MAIN(ServiceWindows)

#include "tst_ServiceWindows.moc"
