#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QScreen>

namespace {

const QPoint mainDefault(1350, 35);
const QPoint listDefault(925, 35);
const QPoint contactDefault(1125, 35);

} // namespace

/// Where the windows open. The screen has 1920 x 1080 pixels unless a test sets another size.
class ServicePlacement : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void window_stays_inside_and_comes_back_from_outside_data();
    void window_stays_inside_and_comes_back_from_outside();
    void first_show_always_goes_to_the_default_place();
    void opening_a_patient_does_not_count_as_the_first_show();
    void startup_without_a_window_does_not_count_as_the_first_show();
    void list_may_hang_over_the_right_edge();
    void actual_size_of_the_main_window_does_not_matter();
    void small_screen_puts_the_list_partly_outside();
    void narrow_screen_keeps_the_widget_s_left_edge_inside();
    void place_depends_on_the_size_of_that_screen_data();
    void place_depends_on_the_size_of_that_screen();
    void placement_uses_the_real_screen();
    void window_pushed_up_moves_back_down_when_it_shrinks_data();
    void window_pushed_up_moves_back_down_when_it_shrinks();
};

void ServicePlacement::init()
{
    SettingsFile::forgetEverything();
    ObservedService::chosenSize = QSize(1920, 1080);
}

void ServicePlacement::window_stays_inside_and_comes_back_from_outside_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QPoint>("before");
    QTest::addColumn<QPoint>("after");

    const auto row = [](const char *slot, const char *document, QPoint before, QPoint after) {
        QTest::addRow("%s from %d,%d", slot, before.x(), before.y())
            << QByteArray(slot) << QByteArray(document) << before << after;
    };

    // 275 x 50
    row("show", "main.qml", {-1, 100}, mainDefault);
    row("show", "main.qml", {0, 100}, {0, 100});
    row("show", "main.qml", {1645, 100}, {1645, 100});
    row("show", "main.qml", {1646, 100}, mainDefault);
    row("show", "main.qml", {100, -1}, mainDefault);
    row("show", "main.qml", {100, 0}, {100, 0});
    row("show", "main.qml", {100, 1030}, {100, 1030});
    row("show", "main.qml", {100, 1031}, mainDefault);
    row("show", "main.qml", {0, 0}, {0, 0});
    row("show", "main.qml", {1645, 1030}, {1645, 1030});
    row("show", "main.qml", {-4000, -4000}, mainDefault);
    row("show", "main.qml", {4000, 4000}, mainDefault);

    // 700 x 650
    row("openList", "ListPopup.qml", {-1, 100}, listDefault);
    row("openList", "ListPopup.qml", {0, 100}, {0, 100});
    row("openList", "ListPopup.qml", {1220, 100}, {1220, 100});
    row("openList", "ListPopup.qml", {1221, 100}, listDefault);
    row("openList", "ListPopup.qml", {100, -1}, listDefault);
    row("openList", "ListPopup.qml", {100, 0}, {100, 0});
    row("openList", "ListPopup.qml", {100, 430}, {100, 430});
    row("openList", "ListPopup.qml", {100, 431}, listDefault);

    // 500 x 450
    row("openContact", "ContactPopup.qml", {-1, 100}, contactDefault);
    row("openContact", "ContactPopup.qml", {0, 100}, {0, 100});
    row("openContact", "ContactPopup.qml", {1420, 100}, {1420, 100});
    row("openContact", "ContactPopup.qml", {1421, 100}, contactDefault);
    row("openContact", "ContactPopup.qml", {100, -1}, contactDefault);
    row("openContact", "ContactPopup.qml", {100, 0}, {100, 0});
    row("openContact", "ContactPopup.qml", {100, 630}, {100, 630});
    row("openContact", "ContactPopup.qml", {100, 631}, contactDefault);
}

void ServicePlacement::window_stays_inside_and_comes_back_from_outside()
{
    QFETCH(QByteArray, slot);
    QFETCH(QByteArray, document);
    QFETCH(QPoint, before);
    QFETCH(QPoint, after);
    RunningService running;
    running.call("show"); // the first show has tests of its own
    running.call("hide");
    DraggableQuickView *window = windowOf(document);
    window->setPosition(before);
    QCOMPARE(window->position(), before);
    QPoint shownAt;
    connect(window, &QWindow::visibleChanged, this, [&] { shownAt = window->position(); });

    running.call(slot);

    QCOMPARE(shownAt, after);
    QCOMPARE(window->position(), after);
    QVERIFY(window->isVisible());
}

void ServicePlacement::first_show_always_goes_to_the_default_place()
{
    RunningService running;
    running.main->setPosition(100, 100);
    running.call("show");
    QCOMPARE(running.main->position(), mainDefault);

    running.main->setPosition(200, 200);
    running.call("show");
    QCOMPARE(running.main->position(), QPoint(200, 200));
}

void ServicePlacement::opening_a_patient_does_not_count_as_the_first_show()
{
    RunningService running;
    running.main->setPosition(-40, 2000);
    QMetaObject::invokeMethod(running.service, "openPatient", Q_ARG(QString, "7"));
    QCOMPARE(running.main->position(), QPoint(-40, 2000));

    running.main->setPosition(100, 100);
    running.call("show");
    QCOMPARE(running.main->position(), mainDefault);
}

void ServicePlacement::startup_without_a_window_does_not_count_as_the_first_show()
{
    RunningService running;
    running.main->setPosition(100, 100);
    running.call("hide");
    running.call("openList");
    running.call("openContact");
    running.call("toggleView");
    QCOMPARE(running.main->position(), mainDefault);
}

void ServicePlacement::list_may_hang_over_the_right_edge()
{
    RunningService running;
    running.list->setPosition(1920 - 750, 100);
    running.call("openList");
    QCOMPARE(running.list->position(), QPoint(1170, 100));
    QCOMPARE(running.list->width(), 800);
}

void ServicePlacement::actual_size_of_the_main_window_does_not_matter()
{
    RunningService running;
    running.call("show");
    running.main->rootObject()->setProperty("height", 326);
    QTRY_COMPARE(running.main->height(), 326);
    running.main->setPosition(1645, 1030);
    running.call("show");
    QCOMPARE(running.main->position(), QPoint(1645, 1030));
}

void ServicePlacement::small_screen_puts_the_list_partly_outside()
{
    ObservedService::chosenSize = QSize(800, 600);
    RunningService running;
    running.list->setPosition(50, 0);
    running.call("openList");
    QCOMPARE(running.list->position(), QPoint(-195, 35));
}

void ServicePlacement::narrow_screen_keeps_the_widget_s_left_edge_inside()
{
    ObservedService::chosenSize = QSize(426, 341); // 1280 x 1024 at a scale of 3
    RunningService running;
    running.call("show");
    QCOMPARE(running.main->position(), QPoint(0, 35));
}

void ServicePlacement::place_depends_on_the_size_of_that_screen_data()
{
    QTest::addColumn<QSize>("available");
    QTest::addColumn<QPoint>("main");
    QTest::addColumn<QPoint>("list");
    QTest::addColumn<QPoint>("contact");

    QTest::newRow("1280 x 1024") << QSize(1280, 1024) << QPoint(710, 35) << QPoint(285, 35) << QPoint(485, 35);
    QTest::newRow("2560 x 1417") << QSize(2560, 1417) << QPoint(1990, 35) << QPoint(1565, 35) << QPoint(1765, 35);
}

void ServicePlacement::place_depends_on_the_size_of_that_screen()
{
    QFETCH(QSize, available);
    ObservedService::chosenSize = available;
    RunningService running;
    for (DraggableQuickView *window : {running.main, running.list, running.contact})
        window->setPosition(-1, -1);
    running.call("show");
    running.call("openList");
    running.call("openContact");
    QTEST(running.main->position(), "main");
    QTEST(running.list->position(), "list");
    QTEST(running.contact->position(), "contact");
}

void ServicePlacement::placement_uses_the_real_screen()
{
    ObservedService::chosenSize = QSize();
    RunningService running;
    QCOMPARE(QGuiApplication::primaryScreen()->availableSize(), QSize(800, 600));
    running.call("show");
    QCOMPARE(running.main->position(), QPoint(230, 35));
}

void ServicePlacement::window_pushed_up_moves_back_down_when_it_shrinks_data()
{
    QTest::addColumn<QVector<QPoint>>("moves");
    QTest::addColumn<int>("height");
    QTest::addColumn<QPoint>("after");

    // The user's place is 100,400, on a screen 600 high; the window grows to 400 and shrinks to that height.
    QTest::newRow("pushed") << QVector<QPoint>{{100, 200}} << 174 << QPoint(100, 400);
    QTest::newRow("pushed twice") << QVector<QPoint>{{100, 300}, {100, 200}} << 174 << QPoint(100, 400);
    QTest::newRow("pushed, and still high") << QVector<QPoint>{{100, 200}} << 300 << QPoint(100, 300);
    QTest::newRow("moved aside") << QVector<QPoint>{{90, 200}} << 174 << QPoint(90, 200);
    QTest::newRow("moved down") << QVector<QPoint>{{100, 450}} << 174 << QPoint(100, 450);
    QTest::newRow("pushed, then moved") << QVector<QPoint>{{100, 200}, {300, 100}} << 174 << QPoint(300, 100);
}

void ServicePlacement::window_pushed_up_moves_back_down_when_it_shrinks()
{
    QFETCH(QVector<QPoint>, moves);
    QFETCH(int, height);
    RunningService running;
    running.call("show");
    running.main->setPosition(100, 400);
    running.main->resize(275, 400);
    QCoreApplication::processEvents(); // the window processes its moves and resizes one by one
    for (const QPoint &place : moves) {
        running.main->setPosition(place);
        QCoreApplication::processEvents();
    }
    running.main->resize(275, height);
    QCoreApplication::processEvents();
    QTEST(running.main->position(), "after");
}

SERVICE_TEST_MAIN(ServicePlacement)

#include "tst_ServicePlacement.moc"
