#include "qtsingleapplication.h"

#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QWindow>
#include <QtTest>

#include <memory>

#include <dlfcn.h>

/// The flags that the application object was constructed with. Qt has no public getter: reads its internal variable.
static int applicationFlags()
{
    const auto *flags = static_cast<int *>(::dlsym(RTLD_DEFAULT, "_ZN23QCoreApplicationPrivate19app_compile_versionE"));
    return flags ? *flags : -1;
}

class tst_QtSingleApplication : public QObject
{
    Q_OBJECT

public:
    int flagsWithoutId = -1;
    int flagsByDefault = -1;
    int flagsWithId = -1;
    QString idGiven;

private slots:
    void initTestCase() { QVERIFY(!app()->isRunning()); }
    void cleanup() { app()->setActivationWindow(nullptr, false); }

    void meta_methods_are_in_order();
    void gui_flag_replaces_the_application_flags();
    void given_id_is_used();
    void empty_id_means_the_executable();
    void application_listens_under_its_own_name();
    void first_sends_nothing();
    void message_is_forwarded_without_an_activation_window();
    void message_activates_with_an_activation_window();
    void empty_message_activates();
    void window_can_be_set_without_activation();
    void activation_can_be_switched_off();
    void window_itself_is_not_touched();

private:
    static QtSingleApplication *app() { return qobject_cast<QtSingleApplication *>(qApp); }

    static bool receive(const QByteArray &message)
    {
        QSignalSpy spy(app(), SIGNAL(messageReceived(QString)));
        RawPeer sender;
        if (!sender.connectTo(socketPathFor(QCoreApplication::applicationFilePath(), "tstQtS")))
            return false;
        sender.send(lengthBytes(quint32(message.size())) + message);
        sender.endSending();
        return spy.wait() && spy.count() == 1 && spy.at(0).at(0).toString() == QString::fromUtf8(message);
    }
};

void tst_QtSingleApplication::meta_methods_are_in_order()
{
    const QMetaObject &meta = QtSingleApplication::staticMetaObject;
    QByteArrayList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        methods << (method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") + method.methodSignature();
    }
    QCOMPARE(methods,
             (QByteArrayList{"signal messageReceived(QString)", "signal activateWindow()",
                             "slot sendMessage(QString,int)", "slot sendMessage(QString)"}));
    QCOMPARE(meta.superClass()->className(), "QApplication");
}

void tst_QtSingleApplication::gui_flag_replaces_the_application_flags()
{
    QCOMPARE(flagsWithoutId, 1);
    QCOMPARE(flagsByDefault, 1);
    QCOMPARE(flagsWithId, QT_VERSION);
}

void tst_QtSingleApplication::given_id_is_used()
{
    QCOMPARE(idGiven, QString("com.olmeric.vesktandry"));
}

void tst_QtSingleApplication::empty_id_means_the_executable()
{
    QCOMPARE(app()->id(), QCoreApplication::applicationFilePath());
}

void tst_QtSingleApplication::application_listens_under_its_own_name()
{
    QVERIFY(QFileInfo::exists(socketPathFor(QCoreApplication::applicationFilePath(), "tstQtS")));
}

void tst_QtSingleApplication::first_sends_nothing()
{
    QVERIFY(!app()->sendMessage("activate"));
    bool sent = true;
    QVERIFY(QMetaObject::invokeMethod(app(), "sendMessage", Q_RETURN_ARG(bool, sent), Q_ARG(QString, "activate"),
                                      Q_ARG(int, 100)));
    QVERIFY(!sent);
}

void tst_QtSingleApplication::message_is_forwarded_without_an_activation_window()
{
    QSignalSpy activations(app(), SIGNAL(activateWindow()));
    QVERIFY(receive("activate"));
    QCOMPARE(activations.count(), 0);
    QCOMPARE(app()->activationWindow(), nullptr);
}

void tst_QtSingleApplication::message_activates_with_an_activation_window()
{
    QWindow window;
    app()->setActivationWindow(&window);
    QCOMPARE(app()->activationWindow(), &window);
    QSignalSpy activations(app(), SIGNAL(activateWindow()));
    QVERIFY(receive("any text at all"));
    QCOMPARE(activations.count(), 1);
    QVERIFY(receive("activate"));
    QCOMPARE(activations.count(), 2);
}

void tst_QtSingleApplication::empty_message_activates()
{
    app()->setActivationWindow(nullptr, true);
    QSignalSpy activations(app(), SIGNAL(activateWindow()));
    QVERIFY(receive(""));
    QCOMPARE(activations.count(), 1);
}

void tst_QtSingleApplication::window_can_be_set_without_activation()
{
    QWindow window;
    app()->setActivationWindow(&window, false);
    QCOMPARE(app()->activationWindow(), &window);
    QSignalSpy activations(app(), SIGNAL(activateWindow()));
    QVERIFY(receive("activate"));
    QCOMPARE(activations.count(), 0);
}

void tst_QtSingleApplication::activation_can_be_switched_off()
{
    app()->setActivationWindow(nullptr, true);
    app()->setActivationWindow(nullptr, false);
    QSignalSpy activations(app(), SIGNAL(activateWindow()));
    QVERIFY(receive("activate"));
    QCOMPARE(activations.count(), 0);
}

void tst_QtSingleApplication::window_itself_is_not_touched()
{
    QWindow window;
    app()->setActivationWindow(&window, true);
    QVERIFY(receive("activate"));
    QVERIFY(!window.isVisible());
    QVERIFY(!window.handle());
}

int main(int argc, char **argv)
{
    const TestHome home;
    tst_QtSingleApplication test;
    {
        QtSingleApplication named("com.olmeric.vesktandry", argc, argv);
        test.flagsWithId = applicationFlags();
        test.idGiven = named.id();
    }
    {
        QtSingleApplication unnamed(argc, argv);
        test.flagsByDefault = applicationFlags();
    }
    QtSingleApplication application(argc, argv, true);
    test.flagsWithoutId = applicationFlags();
    return QTest::qExec(&test, argc, argv);
}

#include "tst_QtSingleApplication.moc"
