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

/// Qt says in the log that a window which takes no focus is to be activated, and that this platform raises no window.
void keepWindowCalls(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith("requestActivate() called"))
        windowCalls.append("requestActivate");
    else if (text.startsWith("This plugin does not support raise()"))
        windowCalls.append("raise");
    else
        previousHandler(type, context, text);
}

/// The document: keeps what reaches it, and arms its window during a press when told so.
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

/// A window at a known place, with a document connected as the program connects its own.
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

    /// Moves the pointer to a place of the screen; the event says where that is in the window as it now stands.
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

    void the_flags_are_exactly_these();
    void it_has_no_parent_window();
    void it_shows_two_slots_in_this_order();
    void the_document_gets_the_press();
    void unarmed_the_window_stays_and_the_document_gets_the_move();
    void armed_by_its_press_the_window_follows_and_the_document_gets_no_move();
    void armed_before_the_press_the_window_follows();
    void the_window_does_not_drift();
    void the_place_of_the_press_is_kept_during_a_drag();
    void held_buttons_other_than_the_left_one_do_not_drag_data();
    void held_buttons_other_than_the_left_one_do_not_drag();
    void any_release_disarms_data();
    void any_release_disarms();
    void disarmed_by_the_slot_the_window_stays();
    void a_press_alone_does_not_arm();
    void before_any_press_the_place_is_the_corner();
    void it_can_leave_the_screen_to_the_left();
    void show_brings_it_to_the_front();
    void shown_again_it_is_raised_again();
    void the_focuser_shows_and_raises_twice();
    void it_becomes_the_active_window();
};

void tst_DraggableQuickView::the_flags_are_exactly_these()
{
    const DraggableQuickView widget(true);
    QCOMPARE(widget.flags(), Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    const DraggableQuickView popup(false);
    QCOMPARE(popup.flags(), Qt::WindowFlags(Qt::FramelessWindowHint));
}

void tst_DraggableQuickView::it_has_no_parent_window()
{
    const DraggableQuickView view(false);
    QVERIFY(!static_cast<const QWindow &>(view).parent());
    QVERIFY(!static_cast<const QObject &>(view).parent());
    QVERIFY(!view.transientParent());
}

void tst_DraggableQuickView::it_shows_two_slots_in_this_order()
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

void tst_DraggableQuickView::the_document_gets_the_press()
{
    Window window;
    window.press({40, 30});
    QCOMPARE(window.document.events, QStringList{"press 40,30"});
}

void tst_DraggableQuickView::unarmed_the_window_stays_and_the_document_gets_the_move()
{
    Window window;
    window.press({40, 30});
    window.move({60, 50});
    QCOMPARE(window.position(), QPoint(100, 80));
    window.release({60, 50});
    QCOMPARE(window.document.events, (QStringList{"press 40,30", "move 60,50", "release 60,50"}));
}

void tst_DraggableQuickView::armed_by_its_press_the_window_follows_and_the_document_gets_no_move()
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

void tst_DraggableQuickView::armed_before_the_press_the_window_follows()
{
    Window window;
    QVERIFY(QMetaObject::invokeMethod(&window, "enableDragging", Qt::DirectConnection));
    window.press({10, 10});
    window.move({13, 14});
    QCOMPARE(window.position(), QPoint(103, 84));
}

void tst_DraggableQuickView::the_window_does_not_drift()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30}); // on the screen 140,110
    for (int step = 1; step <= 50; ++step)
        window.pointTo({140 + 7 * step, 110 - 3 * step});
    QCOMPARE(window.position(), QPoint(100 + 350, 80 - 150));
    for (int step = 49; step >= 0; --step)
        window.pointTo({140 + 7 * step, 110 - 3 * step});
    QCOMPARE(window.position(), QPoint(100, 80));
}

void tst_DraggableQuickView::the_place_of_the_press_is_kept_during_a_drag()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.move({45, 30});
    // The window has followed, so the pointer is back at the place of the press and asks for no move.
    window.move({40, 30});
    QCOMPARE(window.position(), QPoint(105, 80));
    window.move({45, 30});
    QCOMPARE(window.position(), QPoint(110, 80));
}

void tst_DraggableQuickView::held_buttons_other_than_the_left_one_do_not_drag_data()
{
    QTest::addColumn<Qt::MouseButtons>("held");
    QTest::addColumn<QPoint>("position");
    QTest::newRow("right") << Qt::MouseButtons(Qt::RightButton) << QPoint(100, 80);
    QTest::newRow("middle") << Qt::MouseButtons(Qt::MiddleButton) << QPoint(100, 80);
    QTest::newRow("none") << Qt::MouseButtons(Qt::NoButton) << QPoint(100, 80);
    QTest::newRow("left and right") << (Qt::LeftButton | Qt::RightButton) << QPoint(110, 90);
}

void tst_DraggableQuickView::held_buttons_other_than_the_left_one_do_not_drag()
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

void tst_DraggableQuickView::disarmed_by_the_slot_the_window_stays()
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

void tst_DraggableQuickView::before_any_press_the_place_is_the_corner()
{
    Window window;
    window.enableDragging();
    window.move({3, 4});
    QCOMPARE(window.position(), QPoint(103, 84));
}

void tst_DraggableQuickView::it_can_leave_the_screen_to_the_left()
{
    Window window;
    window.document.arms = true;
    window.press({40, 30});
    window.pointTo({-60, -70});
    QCOMPARE(window.position(), QPoint(-100, -100));
}

void tst_DraggableQuickView::show_brings_it_to_the_front()
{
    Window window;
    window.setFlag(Qt::WindowDoesNotAcceptFocus);
    QVERIFY(windowCalls.isEmpty());
    window.show();
    QVERIFY(window.isVisible());
    QCOMPARE(windowCalls, (QStringList{"requestActivate", "raise"}));
}

void tst_DraggableQuickView::shown_again_it_is_raised_again()
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

void tst_DraggableQuickView::it_becomes_the_active_window()
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
