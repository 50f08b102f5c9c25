// The longest waits of the guard. The tests check the arguments of Qt's waiting functions, because measured times only
// give lower bounds.

#include "qtlocalpeer.h"
#include "qtsingleapplication.h"
#include "qtsinglecoreapplication.h"
#include "socketwaits.h"

#include "support/guardnames.h"
#include "support/probe.h"
#include "support/reception.h"
#include "testhome.h"

#include <QLocalSocket>
#include <QtTest>

namespace {

QStringList waits;

QString id()
{
    return "com.olmeric.vesktandry";
}

QString socket()
{
    return socketPath("comolm-ba14");
}

/// The waits while sending a message, with the default time-out, that no instance receives.
template<typename Application>
QStringList waitsOfSending(Application &application)
{
    Probe holder({"--lock", socket() + "-lockfile", "write", "try"});
    if (!holder.says("locked"))
        return {};
    waits.clear();
    application.sendMessage("activate");
    return waits;
}

} // namespace

// In place of the guard's own.
bool SocketWaits::waitForConnected(QLocalSocket &socket, int timeoutMs)
{
    waits << QString("connected %1").arg(timeoutMs);
    return socket.waitForConnected(timeoutMs);
}

bool SocketWaits::waitForDisconnected(QLocalSocket &socket, int timeoutMs)
{
    waits << QString("disconnected %1").arg(timeoutMs);
    return socket.waitForDisconnected(timeoutMs);
}

class tst_GuardWaits : public QObject
{
    Q_OBJECT

public:
    QStringList waitsOfCoreApplication;
    QStringList waitsOfApplication;

private slots:
    void init()
    {
        waits.clear();
        QFile::remove(socket());
    }

    void each_attempt_to_connect_has_half_the_time();
    void message_has_five_seconds_by_default();
    void sender_has_a_second_to_disconnect();
};

void tst_GuardWaits::each_attempt_to_connect_has_half_the_time()
{
    Probe holder({"--lock", socket() + "-lockfile", "write", "try"});
    QVERIFY(holder.says("locked"));
    QtLocalPeer second(nullptr, id());
    QVERIFY(!second.sendMessage("activate", 600));
    QCOMPARE(waits, (QStringList{"connected 300", "connected 300"}));
}

void tst_GuardWaits::message_has_five_seconds_by_default()
{
    QCOMPARE(waitsOfCoreApplication, (QStringList{"connected 2500", "connected 2500"}));
    QCOMPARE(waitsOfApplication, (QStringList{"connected 2500", "connected 2500"}));
}

void tst_GuardWaits::sender_has_a_second_to_disconnect()
{
    Reception reception(id(), socket(), lengthBytes(1) + 'a');
    QVERIFY(reception.spy.wait(20000));
    QCOMPARE(waits, QStringList{"disconnected 1000"});
}

int main(int argc, char **argv)
{
    const TestHome home;
    tst_GuardWaits test;
    {
        QtSingleCoreApplication core(id(), argc, argv);
        test.waitsOfCoreApplication = waitsOfSending(core);
    }
    QtSingleApplication application(id(), argc, argv);
    test.waitsOfApplication = waitsOfSending(application);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GuardWaits.moc"
