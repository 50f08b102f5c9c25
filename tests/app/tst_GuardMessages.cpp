// The bytes on the guard's socket, from both ends.

#include "qtlocalpeer.h"

#include "logcapture.h"
#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "support/reception.h"
#include "testhome.h"

#include <QtTest>

class tst_GuardMessages : public QObject
{
    Q_OBJECT

private slots:
    void first_acknowledges_data();
    void first_acknowledges();
    void signal_comes_after_the_connection_is_closed();
    void early_disconnect_delivers_what_has_arrived();
    void silence_inside_a_message_ends_it_after_two_seconds();
    void sender_that_stays_connected_is_dropped_after_a_second();
    void bytes_after_a_message_are_not_read();
    void excessive_length_is_a_failed_reception_data();
    void excessive_length_is_a_failed_reception();
    void message_counts_when_its_sender_hangs_up_before_the_acknowledgement();
    void queued_senders_are_served_in_order();

    void second_sends_exactly_data();
    void second_sends_exactly();
    void any_other_answer_is_no_acknowledgement_data();
    void any_other_answer_is_no_acknowledgement();
    void sender_gives_up_without_an_answer();
    void sender_gives_up_after_a_pause_when_no_instance_listens();

private:
    static QString id() { return QString("com.olmeric.vesktandry"); }
    static QString socket() { return socketPath("comolm-ba14"); }
};

void tst_GuardMessages::first_acknowledges_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QString>("text");
    QTest::newRow("activate") << QByteArray::fromHex("000000086163746976617465") << "activate";
    QTest::newRow("empty") << QByteArray::fromHex("00000000") << "";
    QTest::newRow("any other text") << QByteArray::fromHex("0000000968656c6c6f20796f75") << "hello you";
    QTest::newRow("accents") << QByteArray::fromHex("0000000ac3a9c3a820c3a7c3bc21") << QString::fromUtf8("éè çü!");
    QTest::newRow("not Latin") << QByteArray::fromHex("00000006e697a5e69cac") << QString::fromUtf8("日本");
    QTest::newRow("beyond 16 bits") << QByteArray::fromHex("00000004f09f9880") << QString::fromUtf8("😀");
    QTest::newRow("not UTF-8") << QByteArray::fromHex("0000000361ff62") << QString("a") + QChar(0xfffd) + "b";
    QTest::newRow("zero byte") << QByteArray::fromHex("00000003610062") << QString("a") + QChar(0) + "b";
    QTest::newRow("100 KB") << QByteArray::fromHex("000186a0") + QByteArray(100000, 'x') << QString(100000, 'x');
}

void tst_GuardMessages::first_acknowledges()
{
    QFETCH(QByteArray, sent);
    QFETCH(QString, text);
    const LogCapture log;
    QtLocalPeer first(nullptr, id());
    QVERIFY(!first.isClient());
    QSignalSpy spy(&first, SIGNAL(messageReceived(QString)));

    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    QVERIFY(sender.send(sent));
    sender.endSending();
    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), text);
    QCOMPARE(sender.receive(100), QByteArray("ack"));
    QVERIFY(sender.isHungUp());
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_GuardMessages::signal_comes_after_the_connection_is_closed()
{
    QtLocalPeer first(nullptr, id());
    QVERIFY(!first.isClient());
    RawPeer sender;
    bool closedBefore = false;
    connect(&first, &QtLocalPeer::messageReceived, this,
            [&] { closedBefore = sender.receive(3, 0) == "ack" && sender.isHungUp(0); });
    QSignalSpy spy(&first, SIGNAL(messageReceived(QString)));

    QVERIFY(sender.connectTo(socket()));
    // The peer stays connected: only the guard can close the connection.
    QVERIFY(sender.send(lengthBytes(1) + 'a'));
    QVERIFY(spy.wait());
    QVERIFY(closedBefore);
}

void tst_GuardMessages::early_disconnect_delivers_what_has_arrived()
{
    const LogCapture log;
    Reception reception(id(), socket(), lengthBytes(1000000) + "abc");
    reception.sender.endSending();
    QVERIFY(reception.spy.wait());
    QCOMPARE(reception.spy.at(0).at(0).toString(), QString("abc"));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_GuardMessages::silence_inside_a_message_ends_it_after_two_seconds()
{
    Reception reception(id(), socket(), lengthBytes(10) + "abc");
    QElapsedTimer clock;
    clock.start();
    QVERIFY(reception.spy.wait(20000));
    QVERIFY2(clock.elapsed() >= 2900, "2000 ms for the next piece, then 1000 ms for the sender to disconnect");
    QCOMPARE(reception.spy.at(0).at(0).toString(), QString("abc"));
    QCOMPARE(reception.sender.receive(3), QByteArray("ack"));
}

void tst_GuardMessages::sender_that_stays_connected_is_dropped_after_a_second()
{
    Reception reception(id(), socket(), lengthBytes(1) + 'a');
    QElapsedTimer clock;
    clock.start();
    QVERIFY(reception.spy.wait(20000));
    QVERIFY(clock.elapsed() >= 950);
    QCOMPARE(reception.sender.receive(3), QByteArray("ack"));
    QVERIFY(reception.sender.isHungUp());
}

void tst_GuardMessages::bytes_after_a_message_are_not_read()
{
    Reception reception(id(), socket(), lengthBytes(2) + "abcd" + lengthBytes(1) + 'e');
    reception.sender.endSending();
    QVERIFY(reception.spy.wait());
    QCoreApplication::processEvents();
    QCOMPARE(reception.spy.count(), 1);
    QCOMPARE(reception.spy.at(0).at(0).toString(), QString("ab"));
    QCOMPARE(reception.sender.receive(100), QByteArray("ack"));
}

void tst_GuardMessages::excessive_length_is_a_failed_reception_data()
{
    QTest::addColumn<quint32>("length");
    QTest::newRow("2^30") << 0x40000000u;
    QTest::newRow("2^31 - 1") << 0x7fffffffu;
    QTest::newRow("2^31") << 0x80000000u;
    QTest::newRow("2^31 + 1") << 0x80000001u;
    QTest::newRow("2^32 - 2") << 0xfffffffeu;
    QTest::newRow("2^32 - 1") << 0xffffffffu;
}

void tst_GuardMessages::excessive_length_is_a_failed_reception()
{
    QFETCH(quint32, length);
    const LogCapture log;
    Reception reception(id(), socket(), lengthBytes(length) + "activate");
    QTRY_COMPARE(LogCapture::lines(), QStringList("warning: QtLocalPeer: Message reception failed Unknown error"));
    QVERIFY(reception.sender.isHungUp());
    QCOMPARE(reception.spy.count(), 0);
}

void tst_GuardMessages::message_counts_when_its_sender_hangs_up_before_the_acknowledgement()
{
    const LogCapture log;
    Reception reception(id(), socket(), lengthBytes(8) + "activate");
    reception.sender.hangUp();
    QVERIFY(reception.spy.wait());
    QCOMPARE(LogCapture::lines(), QStringList());
    QCOMPARE(reception.spy.at(0).at(0).toString(), QString("activate"));
}

void tst_GuardMessages::queued_senders_are_served_in_order()
{
    QtLocalPeer first(nullptr, id());
    QVERIFY(!first.isClient());
    QSignalSpy spy(&first, SIGNAL(messageReceived(QString)));
    for (const char letter : {'a', 'b', 'c'}) {
        RawPeer sender;
        QVERIFY(sender.connectTo(socket()));
        QVERIFY(sender.send(lengthBytes(1) + letter));
    }
    QTRY_COMPARE(spy.count(), 3);
    QCOMPARE(spy.at(0).at(0).toString() + spy.at(1).at(0).toString() + spy.at(2).at(0).toString(), QString("abc"));
}

void tst_GuardMessages::second_sends_exactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("activate") << "activate" << QByteArray::fromHex("000000086163746976617465");
    QTest::newRow("empty") << "" << QByteArray::fromHex("00000000");
    QTest::newRow("accents") << QString::fromUtf8("éè çü!") << QByteArray::fromHex("0000000ac3a9c3a820c3a7c3bc21");
    QTest::newRow("not Latin") << QString::fromUtf8("日本") << QByteArray::fromHex("00000006e697a5e69cac");
    QTest::newRow("256 long") << QString(256, 'x') << QByteArray::fromHex("00000100") + QByteArray(256, 'x');
}

/// A fake first instance: a held lock and a listening socket.
#define STAND_IN_FOR_THE_FIRST(listener)                                                                               \
    RawListener listener;                                                                                              \
    QFile::remove(socket());                                                                                           \
    QVERIFY(listener.listen(socket()));                                                                                \
    QtLP_Private::QtLockedFile lock(socket() + "-lockfile");                                                           \
    QVERIFY(lock.open(QIODevice::ReadWrite));                                                                          \
    QVERIFY(lock.lock(QtLP_Private::QtLockedFile::LockWrite))

void tst_GuardMessages::second_sends_exactly()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, sent);
    STAND_IN_FOR_THE_FIRST(listener);
    Probe second({"--core", "--id", id(), "--send=" + text});
    RawPeer connection = listener.accept();
    QCOMPARE(connection.receive(sent.size()), sent);
    QVERIFY2(!connection.hasSomethingToRead(0), "the sender sent more than the message");
    QVERIFY(connection.send("ack"));
    QVERIFY(second.says("second acknowledged"));
    QVERIFY(second.leaves());
    QVERIFY(connection.isHungUp());
}

void tst_GuardMessages::any_other_answer_is_no_acknowledgement_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("other letters") << QByteArray("nak");
    QTest::newRow("capitals") << QByteArray("ACK");
    QTest::newRow("too short") << QByteArray("ac");
    QTest::newRow("zero byte") << QByteArray("ac\0", 3);
    QTest::newRow("none at all") << QByteArray();
}

void tst_GuardMessages::any_other_answer_is_no_acknowledgement()
{
    QFETCH(QByteArray, answer);
    STAND_IN_FOR_THE_FIRST(listener);
    Probe second({"--core", "--id", id()});
    RawPeer connection = listener.accept();
    QCOMPARE(connection.receive(12).size(), 12);
    QVERIFY(connection.send(answer));
    connection.hangUp();
    QVERIFY(second.says("second unacknowledged"));
    QVERIFY(second.leaves());
}

void tst_GuardMessages::sender_gives_up_without_an_answer()
{
    STAND_IN_FOR_THE_FIRST(listener);
    QElapsedTimer clock;
    clock.start();
    Probe second({"--core", "--id", id(), "--timeout", "300"});
    RawPeer connection = listener.accept();
    QVERIFY(second.says("second unacknowledged"));
    QVERIFY(clock.elapsed() >= 300);
    QVERIFY(second.leaves());
}

void tst_GuardMessages::sender_gives_up_after_a_pause_when_no_instance_listens()
{
    QtLP_Private::QtLockedFile lock(socket() + "-lockfile");
    QVERIFY(lock.open(QIODevice::ReadWrite));
    QVERIFY(lock.lock(QtLP_Private::QtLockedFile::LockWrite));
    QFile::remove(socket());
    QElapsedTimer clock;
    clock.start();
    Probe second({"--core", "--id", id()});
    QVERIFY(second.says("second unacknowledged"));
    QVERIFY(clock.elapsed() >= 250);
    QVERIFY(second.leaves());
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_GuardMessages test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GuardMessages.moc"
