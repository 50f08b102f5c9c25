#include "logcapture.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QSignalSpy>

/// The three windows after construction.
class ServiceViews : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void window_has_its_document_title_flags_and_colour_data();
    void window_has_its_document_title_flags_and_colour();
    void there_are_three_windows();
    void each_window_has_an_engine_of_its_own();
    void no_window_is_shown();
    void default_alpha_buffer_is_on();
    void service_returns_the_main_window();
    void quit_of_the_main_engine_quits_the_service();
    void quit_of_another_engine_is_ignored_data();
    void quit_of_another_engine_is_ignored();
};

void ServiceViews::init()
{
    SettingsFile::forgetEverything();
}

void ServiceViews::window_has_its_document_title_flags_and_colour_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("onTop");

    QTest::newRow("main.qml") << "qrc:///qml/main.qml"
                              << "Vesk Tandry" << true;
    QTest::newRow("ContactPopup.qml") << "qrc:///qml/ContactPopup.qml"
                                      << "Vesk Tandry – contacts" << false;
    QTest::newRow("ListPopup.qml") << "qrc:///qml/ListPopup.qml"
                                   << "Vesk Tandry – liste des patients" << false;
}

void ServiceViews::window_has_its_document_title_flags_and_colour()
{
    QFETCH(QString, source);
    QFETCH(bool, onTop);
    const RunningService running;
    const DraggableQuickView *window = windowOf(QTest::currentDataTag());
    QVERIFY(window);

    QCOMPARE(window->source(), QUrl(source));
    QTEST(window->title(), "title");
    QCOMPARE(window->icon().cacheKey(), running.service->dialogParent->windowIcon().cacheKey());
    QCOMPARE(window->status(), QQuickView::Ready);
    QVERIFY(window->flags().testFlag(Qt::FramelessWindowHint));
    QCOMPARE(window->flags().testFlag(Qt::WindowStaysOnTopHint), onTop);
    QCOMPARE(window->color(), QColor(0, 0, 0, 0));
    QVERIFY(window->requestedFormat().alphaBufferSize() > 0);
    QCOMPARE(window->resizeMode(), QQuickView::SizeViewToRootObject);
    QCOMPARE(window->parent(), nullptr);
    QCOMPARE(window->transientParent(), nullptr);
    const QVariant factor = window->rootContext()->contextProperty("point_factor");
    QCOMPARE(factor.userType(), int(QMetaType::Double));
    QCOMPARE(factor.toDouble(), 1.3);
}

void ServiceViews::there_are_three_windows()
{
    const RunningService running;
    QCOMPARE(QGuiApplication::allWindows().size(), 3);
}

void ServiceViews::each_window_has_an_engine_of_its_own()
{
    const RunningService running;
    QVERIFY(running.main->engine() != running.contact->engine());
    QVERIFY(running.main->engine() != running.list->engine());
    QVERIFY(running.contact->engine() != running.list->engine());
}

void ServiceViews::no_window_is_shown()
{
    const RunningService running;
    QCoreApplication::processEvents();
    QVERIFY(!running.main->isVisible());
    QVERIFY(!running.contact->isVisible());
    QVERIFY(!running.list->isVisible());
    QVERIFY(!running.service->dialogParent->isVisible());
}

void ServiceViews::default_alpha_buffer_is_on()
{
    QQuickWindow::setDefaultAlphaBuffer(false);
    const RunningService running;
    QVERIFY(QQuickWindow::hasDefaultAlphaBuffer());
}

void ServiceViews::service_returns_the_main_window()
{
    const RunningService running;
    QCOMPARE(running.service->getView(), running.main);
    QCOMPARE(running.service->parent(), nullptr);
}

void ServiceViews::quit_of_the_main_engine_quits_the_service()
{
    const RunningService running;
    QSignalSpy quit(running.service, SIGNAL(quit()));
    emit running.main->engine()->quit();
    QCOMPARE(quit.size(), 1);
}

void ServiceViews::quit_of_another_engine_is_ignored_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("contact") << QByteArray("ContactPopup.qml");
    QTest::newRow("list") << QByteArray("ListPopup.qml");
}

void ServiceViews::quit_of_another_engine_is_ignored()
{
    QFETCH(QByteArray, document);
    const RunningService running;
    QSignalSpy quit(running.service, SIGNAL(quit()));
    emit windowOf(document)->engine()->quit();
    QCOMPARE(quit.size(), 0);
}

SERVICE_TEST_MAIN(ServiceViews)

#include "tst_ServiceViews.moc"
