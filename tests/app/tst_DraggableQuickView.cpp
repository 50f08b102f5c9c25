#include "draggablequickview.h"
#include "focuser.h"
#include "testhome.h"

#include <QGuiApplication>
#include <QMetaMethod>
#include <QQuickItem>
#include <QtTest>

Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::MouseButtons)

namespace {

QtMessageHandler previousHandler = nullptr;
QStringList windowCalls;

/// Filters two messages: Qt logs that a window without focus is activated, and that this platform cannot raise windows.
void keepWindowCalls(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith("requestActivate() called"))
        windowCalls.append("requestActivate");
    else if (text.startsWith("This plugin does not support raise()"))
        windowCalls.append("raise");
    else
        previousHandler(type, context, text);
}

/// The document: records its mouse events, and arms its window during a press when `arms` is set.
class Document : public QQuickItem
{
    Q_OBJECT

public:
    Document()
    {
        setAcceptedMouseButtons(Qt::AllButtons);
        setSize(QSizeF(300, 200));
    }

    QStringList events;
    bool arms = false;

signals:
    void enableDragging();

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        events.append(QString("press %1,%2").arg(event->x()).arg(event->y()));
        if (arms)
            emit enableDragging();
    }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        events.append(QString("move %1,%2").arg(event->x()).arg(event->y()));
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        events.append(QString("release %1,%2").arg(event->x()).arg(event->y()));
    }
};

/// A window at a known position, with a document connected as in the program.
class Window : public DraggableQuickView
{
public:
    Window()
        : DraggableQuickView(true)
    {
        setGeometry(100, 80, 300, 200);
        document.setParentItem(contentItem());
        QObject::connect(&document, SIGNAL(enableDragging()), this, SLOT(enableDragging()));
    }
    ~Window() override { document.setParentItem(nullptr); }

    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        send(QEvent::MouseButtonPress, place, button, button);
    }
    void move(QPoint place, Qt::MouseButtons held = Qt::LeftButton)
    {
        send(QEvent::MouseMove, place, Qt::NoButton, held);
    }
    void release(QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        send(QEvent::MouseButtonRelease, place, button, Qt::NoButton);
    }

    /// Moves the pointer to a screen position; the event carries the position in the window.
    void pointTo(QPoint onScreen) { move(onScreen - position()); }

    Document document;

private:
    void send(QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, place, position() + place, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &event);
    }
};

} // namespace

class tst_DraggableQuickView : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        windowCalls.clear();
        previousHandler = qInstallMessageHandler(keepWindowCalls);
    }
    void cleanup() { qInstallMessageHandler(previousHandler); }

    void window_flags_are_exactly_these();
    void window_has_no_parent();
    void meta_object_has_two_slots_in_this_order();
    void document_receives_the_press();
    void unarmed_window_stays_and_its_document_receives_the_move();
    void window_armed_by_its_press_follows_and_its_document_receives_no_move();
    void window_armed_before_the_press_follows();
    void window_does_not_drift();
    void press_position_does_not_change_during_a_drag();
    void only_a_held_left_button_drags_data();
    void only_a_held_left_button_drags();
    void any_release_disarms_data();
    void any_release_disarms();
    void window_disarmed_by_the_slot_stays();
    void a_press_alone_does_not_arm();
    void press_position_is_the_corner_before_any_press();
    void window_can_leave_the_screen_on_the_left();
    void drag_gives_the_window_the_size_of_its_document_back();
    void another_screen_gives_the_window_the_size_of_its_document_back();
    void show_brings_the_window_to_the_front();
    void showing_the_window_again_raises_it_again();
    void the_focuser_shows_and_raises_twice();
    void shown_window_becomes_the_active_one();
};

void tst_DraggableQuickView::window_flags_are_exactly_these()
{
    const DraggableQuickView widget(true);
    QCOMPARE(widget.flags(), Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const DraggableQuickView popup(false);
    QCOMPARE(popup.flags(), Qt::WindowFlags(Qt::FramelessWindowHint));
}

void tst_DraggableQuickView::window_has_no_parent()
{
    const DraggableQuickView view(false);
    QVERIFY(!static_cast<const QWindow &>(view).parent());
    QVERIFY(!static_cast<const QObject &>(view).parent());
    QVERIFY(!view.transientParent());
}

void tst_DraggableQuickView::meta_object_has_two_slots_in_this_order()
{
    const QMetaObject &meta = DraggableQuickView::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod first = meta.method(meta.methodOffset());
    const QMetaMethod second = meta.method(meta.methodOffset() + 1);
    QCOMPARE(first.methodSignature(), QByteArray("enableDragging()"));
    QCOMPARE(second.methodSignature(), QByteArray("disableDragging()"));
    QCOMPARE(first.methodType(), QMetaMethod::Slot);
    QCOMPARE(second.methodType(), QMetaMethod::Slot);
    QCOMPARE(first.access(), QMetaMethod::Public);
    QCOMPARE(second.access(), QMetaMethod::Public);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_DraggableQuickView::document_receives_the_press()
{
    Window window;
    window.press({40, 30});
    QCOMPARE(window.document.events, QStringList{"press 40,30"});
}

void tst_DraggableQuickView::unarmed_window_stays_and_its_document_receives_the_move()
{
    Window window;
    window.press({40, 30});
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(100, 80));
    window.release({60, 50});
    QCOMPARE(window.document.events, (QStringList{"press 40,30", "move 60,50", "release 60,50"}));
}

void tst_DraggableQuickView::window_armed_by_its_press_follows_and_its_document_receives_no_move()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.move({45, 28});
    QCOMPARE(window.position(), QPoint(105, 78));
    window.release({40, 30});
    QCOMPARE(window.position(), QPoint(105, 78));
    QCOMPARE(window.document.events, (QStringList{"press 40,30", "release 40,30"}));
}

void tst_DraggableQuickView::window_armed_before_the_press_follows()
{
    Window window;
    QVERIFY(QMetaObject::invokeMethod(&window, "enableDragging", Qt::DirectConnection));
    window.press({10, 10});
    window.move({13, 14});
    QCOMPARE(window.position(), QPoint(103, 84));
}

void tst_DraggableQuickView::window_does_not_drift()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30}); // 140,110 on the screen
    for (int step = 1; step <= 50; ++step)
        window.pointTo({140 + 7 * step, 110 - 3 * step});
    QCOMPARE(window.position(), QPoint(100 + 350, 80 - 150));
    for (int step = 49; step >= 0; --step)
        window.pointTo({140 + 7 * step, 110 - 3 * step});
    QCOMPARE(window.position(), QPoint(100, 80));
}

void tst_DraggableQuickView::press_position_does_not_change_during_a_drag()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.move({45, 30});
    // The window has followed: the pointer is back at the press position and moves nothing.
    window.move({40, 30});
    QCOMPARE(window.position(), QPoint(105, 80));
    window.move({45, 30});
    QCOMPARE(window.position(), QPoint(110, 80));
}

void tst_DraggableQuickView::only_a_held_left_button_drags_data()
{
    QTest::addColumn<Qt::MouseButtons>("held");
    QTest::addColumn<QPoint>("position");
    QTest::newRow("right") << Qt::MouseButtons(Qt::RightButton) << QPoint(100, 80);
    QTest::newRow("middle") << Qt::MouseButtons(Qt::MiddleButton) << QPoint(100, 80);
    QTest::newRow("none") << Qt::MouseButtons(Qt::NoButton) << QPoint(100, 80);
    QTest::newRow("left and right") << (Qt::LeftButton | Qt::RightButton) << QPoint(110, 90);
}

void tst_DraggableQuickView::only_a_held_left_button_drags()
{
    QFETCH(Qt::MouseButtons, held);
    Window window;
    window.document.arms = true;
    window.press({40, 30}, Qt::RightButton);
    window.move({50, 40}, held);
    QTEST(window.position(), "position");
}

void tst_DraggableQuickView::any_release_disarms_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
}

void tst_DraggableQuickView::any_release_disarms()
{
    QFETCH(Qt::MouseButton, button);
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.release({40, 30}, button);
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(100, 80));

    window.document.arms = false;
    window.press({40, 30});
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(100, 80));

    window.document.arms = true;
    window.press({40, 30});
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(120, 100));
}

void tst_DraggableQuickView::window_disarmed_by_the_slot_stays()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    QVERIFY(QMetaObject::invokeMethod(&window, "disableDragging", Qt::DirectConnection));
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(100, 80));
    QCOMPARE(window.document.events.last(), QString("move 60,50"));
}

void tst_DraggableQuickView::a_press_alone_does_not_arm()
{
    Window window;
    for (int i = 0; i < 3; ++i) {
        window.press({40, 30});
        window.move({41, 30});
        window.release({41, 30});
    }
    QCOMPARE(window.position(), QPoint(100, 80));
}

void tst_DraggableQuickView::press_position_is_the_corner_before_any_press()
{
    Window window;
    window.enableDragging();
    window.move({3, 4});
    QCOMPARE(window.position(), QPoint(103, 84));
}

void tst_DraggableQuickView::window_can_leave_the_screen_on_the_left()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.pointTo({-60, -70});
    QCOMPARE(window.position(), QPoint(-100, -100));
}

void tst_DraggableQuickView::drag_gives_the_window_the_size_of_its_document_back()
{
    Window window;
    window.setContent({}, nullptr, new QQuickItem);
    window.rootObject()->setSize({275, 174});
    window.resize(137, 87);
    window.document.arms = true;
    window.press({40, 30});
    window.move({45, 30});
    QCOMPARE(window.geometry(), QRect(105, 80, 275, 174));
}

void tst_DraggableQuickView::another_screen_gives_the_window_the_size_of_its_document_back()
{
    Window window;
    window.setContent({}, nullptr, new QQuickItem);
    window.rootObject()->setSize({275, 174});
    QCoreApplication::processEvents(); // which ends the sizing to a new document
    window.resize(274, 174);
    emit window.screenChanged(window.screen());
    QTRY_COMPARE(window.size(), QSize(275, 174));
}

void tst_DraggableQuickView::show_brings_the_window_to_the_front()
{
    Window window;
    window.setFlag(Qt::WindowDoesNotAcceptFocus);
    QVERIFY(windowCalls.isEmpty());
    window.show();
    QVERIFY(window.isVisible());
    QCOMPARE(windowCalls, (QStringList{"requestActivate", "raise"}));
}

void tst_DraggableQuickView::showing_the_window_again_raises_it_again()
{
    Window window;
    window.setFlag(Qt::WindowDoesNotAcceptFocus);
    window.show();
    window.show();
    QCOMPARE(windowCalls, (QStringList{"requestActivate", "raise", "requestActivate", "raise"}));
}

void tst_DraggableQuickView::the_focuser_shows_and_raises_twice()
{
    Window window;
    window.setFlag(Qt::WindowDoesNotAcceptFocus);
    Focuser(&window).show();
    QVERIFY(window.isVisible());
    QCOMPARE(windowCalls, (QStringList{"requestActivate", "raise", "requestActivate", "raise"}));
}

void tst_DraggableQuickView::shown_window_becomes_the_active_one()
{
    Window first;
    Window second;
    first.show();
    second.show();
    QTRY_COMPARE(QGuiApplication::focusWindow(), &second);
    first.show();
    QTRY_COMPARE(QGuiApplication::focusWindow(), &first);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QGuiApplication application(argc, argv);
    tst_DraggableQuickView test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_DraggableQuickView.moc"
