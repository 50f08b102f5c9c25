#include "comparelines.h"
#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testclock.h"
#include "testmain.h"

#include <QPointer>
#include <QQmlEngine>
#include <QTimer>

#include <algorithm>

namespace {

const QString one = QStringLiteral("Vous avez 1 patient en attente");
const QString three = QStringLiteral("Vous avez 3 patients en attente");

} // namespace

/// The hourly tick: when it announces waiting patients, and when the documents read the database again.
class ServiceMessages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void message_has_the_expected_text_data();
    void message_has_the_expected_text();
    void unchanged_count_is_announced_at_every_second_tick();
    void same_count_on_three_ticks_is_announced_at_the_first_and_third();
    void one_patient_is_announced_at_every_second_tick();
    void changed_count_is_announced_at_once();
    void count_announced_at_the_start_is_not_announced_at_the_first_tick();
    void tick_without_waiting_patients_resets_the_last_count_data();
    void tick_without_waiting_patients_resets_the_last_count();
    void refresh_between_two_ticks_does_not_change_the_messages();
    void tray_without_messages_does_not_change_the_alternation();
    void timer_ticks_every_hour();
    void tick_of_the_same_day_refreshes_nothing();
    void tick_of_another_day_of_the_month_refreshes_data();
    void tick_of_another_day_of_the_month_refreshes();
    void new_day_refreshes_once();
    void refresh_by_the_user_counts_as_the_refresh_of_the_day();
    void message_comes_before_the_day_s_refresh();
    void every_engine_collects_garbage_after_the_day_s_refresh();

private:
    /// Ticks the timer that many times; returns the announcement of each tick, empty for none.
    static QStringList tick(RunningService &running, int times);
};

void ServiceMessages::init()
{
    SettingsFile::forgetEverything();
}

QStringList ServiceMessages::tick(RunningService &running, int times)
{
    QStringList announced;
    for (int i = 0; i < times; ++i) {
        running.service->messages.clear();
        running.call("autoRefresh");
        announced.append(running.service->messageTexts().join(" and "));
    }
    return announced;
}

void ServiceMessages::message_has_the_expected_text_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("1") << 1 << "Vous avez 1 patient en attente";
    QTest::newRow("2") << 2 << "Vous avez 2 patients en attente";
    QTest::newRow("99") << 99 << "Vous avez 99 patients en attente";
    QTest::newRow("150") << 150 << "Vous avez 150 patients en attente";
    QTest::newRow("1234567") << 1234567 << "Vous avez 1234567 patients en attente";
}

void ServiceMessages::message_has_the_expected_text()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    RunningService running;
    running.standInFor(running.main)->setProperty("number", number);

    running.call("firstRefresh");

    QCOMPARE(running.service->messages.size(), 1);
    const ObservedService::Message message = running.service->messages.first();
    QCOMPARE(message.title, QString("Tandry"));
    QCOMPARE(message.text, text);
    QCOMPARE(message.icon, QSystemTrayIcon::Information);
    QCOMPARE(message.durationMs, 50000);
}

void ServiceMessages::unchanged_count_is_announced_at_every_second_tick()
{
    const TestClock clock("2014-05-31 10:00:00");
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);

    COMPARE_LINES(tick(running, 24), {three, "", three, "", three, "", three, "", three, "", three, "",
                                      three, "", three, "", three, "", three, "", three, "", three, ""});
}

void ServiceMessages::same_count_on_three_ticks_is_announced_at_the_first_and_third()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);
    COMPARE_LINES(tick(running, 3), {three, "", three});
}

void ServiceMessages::one_patient_is_announced_at_every_second_tick()
{
    RunningService running;
    QQuickItem *document = running.standInFor(running.main);
    document->setProperty("number", 0);
    COMPARE_LINES(tick(running, 1), {""});
    document->setProperty("number", 1);
    COMPARE_LINES(tick(running, 3), {one, "", one});
}

void ServiceMessages::changed_count_is_announced_at_once()
{
    RunningService running;
    QQuickItem *document = running.standInFor(running.main);
    QStringList announced;
    for (const int number : {3, 4, 3, 3, 5}) {
        document->setProperty("number", number);
        announced += tick(running, 1);
    }
    COMPARE_LINES(announced, {three, "Vous avez 4 patients en attente", three, "", "Vous avez 5 patients en attente"});
}

void ServiceMessages::count_announced_at_the_start_is_not_announced_at_the_first_tick()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);
    running.call("firstRefresh");
    COMPARE_LINES(tick(running, 3), {"", three, ""});
}

void ServiceMessages::tick_without_waiting_patients_resets_the_last_count_data()
{
    QTest::addColumn<QVariant>("number");
    QTest::newRow("none") << QVariant(0);
    QTest::newRow("below none") << QVariant(-2);
    QTest::newRow("no number") << QVariant("abc");
    QTest::newRow("not given") << QVariant();
}

void ServiceMessages::tick_without_waiting_patients_resets_the_last_count()
{
    QFETCH(QVariant, number);
    RunningService running;
    QQuickItem *document = running.standInFor(running.main);
    document->setProperty("number", 3);
    QStringList announced = tick(running, 1);
    document->setProperty("number", number);
    announced += tick(running, 2);
    document->setProperty("number", 3);
    announced += tick(running, 2);
    COMPARE_LINES(announced, {three, "", "", three, ""});
}

void ServiceMessages::refresh_between_two_ticks_does_not_change_the_messages()
{
    RunningService running;
    running.standInFor(running.list);
    running.standInFor(running.main)->setProperty("number", 3);
    QStringList announced = tick(running, 1);
    running.call("refreshViews");
    running.call("refreshIcon");
    announced += tick(running, 2);
    COMPARE_LINES(announced, {three, "", three});
}

void ServiceMessages::tray_without_messages_does_not_change_the_alternation()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);
    running.service->takesMessages = false;
    QStringList announced = tick(running, 1); // the count is remembered without a message
    running.service->takesMessages = true;
    announced += tick(running, 2);
    COMPARE_LINES(announced, {"", "", three});
}

void ServiceMessages::timer_ticks_every_hour()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);
    QTimer *timer = running.service->refreshTimer;
    QCOMPARE(timer->parent(), running.service);
    QCOMPARE(timer->interval(), 3600000);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());

    QMetaObject::invokeMethod(timer, "timeout");
    COMPARE_LINES(running.service->messageTexts(), {three});
}

void ServiceMessages::tick_of_the_same_day_refreshes_nothing()
{
    TestClock clock("2014-05-31 00:00:00");
    RunningService running;
    const QQuickItem *main = running.standInFor(running.main);
    const QQuickItem *list = running.standInFor(running.list);
    const qint64 icon = running.tray().icon().cacheKey();
    for (const char *hour : {"00:00:01", "09:00:00", "18:00:00", "23:59:59"}) {
        clock.moveTo("2014-05-31 " + QByteArray(hour));
        running.call("autoRefresh");
    }
    QCOMPARE(main->property("calls").toStringList(), QStringList());
    QCOMPARE(list->property("calls").toStringList(), QStringList());
    QCOMPARE(running.tray().icon().cacheKey(), icon);
}

void ServiceMessages::tick_of_another_day_of_the_month_refreshes_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<bool>("refreshes");

    const auto row = [](const char *name, const char *start, const char *now, bool refreshes) {
        QTest::newRow(name) << QByteArray(start) << QByteArray(now) << refreshes;
    };
    row("across midnight", "2014-05-30 23:59:59", "2014-05-31 00:00:00", true);
    row("into the next month", "2014-05-31 23:30:00", "2014-06-01 00:30:00", true);
    row("into the next year", "2014-12-31 23:30:00", "2015-01-01 00:30:00", true);
    row("a day back", "2014-05-31 10:00:00", "2014-05-30 10:00:00", true);
    row("same day of the next month", "2014-05-30 10:00:00", "2014-06-30 10:00:00", false);
    row("same day of the next year", "2014-05-30 10:00:00", "2015-05-30 10:00:00", false);
    row("same day of the last month", "2014-05-30 10:00:00", "2014-04-30 10:00:00", false);
    row("night of the clock change", "2014-10-25 23:30:00", "2014-10-26 02:30:00", true);
}

void ServiceMessages::tick_of_another_day_of_the_month_refreshes()
{
    QFETCH(QByteArray, start);
    QFETCH(QByteArray, now);
    QFETCH(bool, refreshes);
    TestClock clock(start);
    RunningService running;
    const QQuickItem *main = running.standInFor(running.main);
    const QQuickItem *list = running.standInFor(running.list);

    const qint64 icon = running.tray().icon().cacheKey();

    clock.moveTo(now);
    running.call("autoRefresh");

    const QStringList calls = refreshes ? QStringList{"refresh"} : QStringList();
    QCOMPARE(main->property("calls").toStringList(), calls);
    QCOMPARE(list->property("calls").toStringList(), calls);
    QCOMPARE(running.tray().icon().cacheKey() != icon, refreshes);
}

void ServiceMessages::new_day_refreshes_once()
{
    TestClock clock("2014-05-30 22:00:00");
    RunningService running;
    const QQuickItem *main = running.standInFor(running.main);
    running.standInFor(running.list);
    for (const char *now : {"2014-05-30 23:00:00", "2014-05-31 00:00:00", "2014-05-31 01:00:00", "2014-05-31 02:00:00",
                            "2014-06-01 00:00:00"}) {
        clock.moveTo(now);
        running.call("autoRefresh");
    }
    COMPARE_LINES(main->property("calls").toStringList(), {"refresh", "refresh"});
}

void ServiceMessages::refresh_by_the_user_counts_as_the_refresh_of_the_day()
{
    TestClock clock("2014-05-30 22:00:00");
    RunningService running;
    const QQuickItem *main = running.standInFor(running.main);
    running.standInFor(running.list);
    clock.moveTo("2014-05-31 00:10:00");
    running.call("refreshViews");
    clock.moveTo("2014-05-31 01:00:00");
    running.call("autoRefresh");
    COMPARE_LINES(main->property("calls").toStringList(), {"refresh"});
}

void ServiceMessages::message_comes_before_the_day_s_refresh()
{
    TestClock clock("2014-05-30 23:30:00");
    RunningService running;
    running.standInFor(running.list);
    QQuickItem *main = running.standInFor(running.main);
    main->setProperty("number", 3);
    main->setProperty("nextNumber", 4);
    clock.moveTo("2014-05-31 00:30:00");
    // The first tick announces yesterday's number, the next one today's.
    COMPARE_LINES(tick(running, 2), {three, "Vous avez 4 patients en attente"});
    QCOMPARE(SettingsFile::value("PatientsWaitingCounter"), QVariant(4));
}

void ServiceMessages::every_engine_collects_garbage_after_the_day_s_refresh()
{
    TestClock clock("2014-05-30 23:30:00");
    RunningService running;
    QList<QPointer<QObject>> held;
    for (DraggableQuickView *window : {running.main, running.contact, running.list}) {
        // Its document drops it when it is refreshed; that of the contacts, which is never refreshed, does at once.
        held.append(new QObject);
        QQmlEngine::setObjectOwnership(held.last(), QQmlEngine::JavaScriptOwnership);
        running.standInFor(window)->setProperty("held", QVariant::fromValue(window->engine()->newQObject(held.last())));
    }
    running.contact->rootObject()->setProperty("held", QVariant());
    const auto left = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return std::count_if(held.begin(), held.end(), [](const QPointer<QObject> &each) { return !each.isNull(); });
    };

    running.call("autoRefresh");
    QCOMPARE(left(), 3);
    clock.moveTo("2014-05-31 00:30:00");
    running.call("autoRefresh");
    QCOMPARE(left(), 0);
}

SERVICE_TEST_MAIN(ServiceMessages)

#include "tst_ServiceMessages.moc"
