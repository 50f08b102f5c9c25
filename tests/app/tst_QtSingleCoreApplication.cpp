#include "qtsinglecoreapplication.h"

#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QtTest>

class tst_QtSingleCoreApplication : public QObject
{
    Q_OBJECT

private slots:
    void meta_methods_are_in_order();
    void id_is_the_given_one_or_the_executable();
    // In this order: once this application is the first instance, it stays the first.
    void second_sends_with_and_without_a_limit();
    void first_receives_and_second_is_acknowledged();

private:
    static QtSingleCoreApplication *app()
    {
        return qobject_cast<QtSingleCoreApplication *>(QCoreApplication::instance());
    }
};

void tst_QtSingleCoreApplication::meta_methods_are_in_order()
{
    const QMetaObject &meta = QtSingleCoreApplication::staticMetaObject;
    QByteArrayList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        methods << (method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") + method.methodSignature();
    }
    QCOMPARE(methods,
             (QByteArrayList{"signal messageReceived(QString)", "slot sendMessage(QString,int)",
                             "slot sendMessage(QString)"}));
    QCOMPARE(meta.superClass()->className(), "QCoreApplication");
}

void tst_QtSingleCoreApplication::id_is_the_given_one_or_the_executable()
{
    QCOMPARE(app()->id(), QString("com.olmeric.vesktandry"));
    Probe unnamed({"--core"});
    QVERIFY(unnamed.says("first"));
    RawPeer sender;
    QVERIFY(sender.connectTo(socketPathFor(Probe::defaultProgram(), "guardp")));
}

void tst_QtSingleCoreApplication::second_sends_with_and_without_a_limit()
{
    Probe first({"--core", "--id", "com.olmeric.vesktandry"});
    QVERIFY(first.says("first"));
    QVERIFY(app()->isRunning());
    QVERIFY(app()->sendMessage("one", 5000));
    QVERIFY(first.says("message 6f6e65"));
    QVERIFY(app()->sendMessage("two"));
    QVERIFY(first.says("message 74776f"));
    first.killAtOnce();
}

void tst_QtSingleCoreApplication::first_receives_and_second_is_acknowledged()
{
    QVERIFY(!app()->isRunning());
    QSignalSpy spy(app(), SIGNAL(messageReceived(QString)));
    Probe second({"--core", "--id", "com.olmeric.vesktandry", "--send", "hello"});
    QVERIFY(spy.wait());
    QCOMPARE(spy.at(0).at(0).toString(), QString("hello"));
    QVERIFY(second.says("second acknowledged"));
    QVERIFY(second.leaves());
}

int main(int argc, char **argv)
{
    const TestHome home;
    QtSingleCoreApplication application("com.olmeric.vesktandry", argc, argv);
    tst_QtSingleCoreApplication test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_QtSingleCoreApplication.moc"
