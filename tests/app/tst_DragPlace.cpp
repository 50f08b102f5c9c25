#include "dragplace.h"

#include <QtTest>

class tst_DragPlace : public QObject
{
    Q_OBJECT

private slots:
    void window_below_the_pointer_counts_in_the_units_of_each_screen_data();
    void window_below_the_pointer_counts_in_the_units_of_each_screen();
};

/// Two screens of 1280 by 1024 pixels side by side; on the second one a unit is two pixels.
void tst_DragPlace::window_below_the_pointer_counts_in_the_units_of_each_screen_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("first screen") << QPoint(400, 300) << QPoint(280, 280);
    QTest::newRow("pointer on the first, middle still there") << QPoint(1250, 300) << QPoint(1130, 280);
    // Pixel 1270, 500 is 5 units left of the second screen's edge, and 250 below its top.
    QTest::newRow("pointer on the first, middle on the second") << QPoint(1270, 500) << QPoint(1155, 230);
    QTest::newRow("second screen") << QPoint(1490, 150) << QPoint(1370, 130);
    QTest::newRow("beside all screens") << QPoint(2500, 150) << QPoint(2380, 130);
}

void tst_DragPlace::window_below_the_pointer_counts_in_the_units_of_each_screen()
{
    QFETCH(QPoint, pointer);
    const QVector<ScreenArea> screens{{QRect(0, 0, 1280, 1024), 1}, {QRect(1280, 0, 640, 512), 2}};
    QTEST(dragPlace(pointer, {120, 20}, {275, 174}, screens), "place");
}

QTEST_APPLESS_MAIN(tst_DragPlace)

#include "tst_DragPlace.moc"
