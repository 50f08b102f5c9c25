// Hostile peers on the socket of a real first instance. TANDRY_HOSTILE_CONNECTIONS sets a higher number of connections.

#include "support/guardnames.h"
#include "support/probe.h"
#include "support/processfacts.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QtTest>

#include <atomic>
#include <csignal>
#include <memory>
#include <thread>
#include <vector>

#include <sys/resource.h>

class tst_HostilePeers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { first.reset(); }

    void announced_lengths_allocate_no_memory_data();
    void announced_lengths_allocate_no_memory();
    void message_can_arrive_byte_by_byte();
    void a_thousand_simultaneous_connections_are_all_served();
    void hang_ups_after_the_length_do_not_harm_the_first_instance_data();
    void hang_ups_after_the_length_do_not_harm_the_first_instance();
    void hang_up_before_the_length_blocks_the_first_instance_data();
    void hang_up_before_the_length_blocks_the_first_instance();
    void memory_does_not_grow();

private:
    static QString socket() { return socketPath("comolm-ba14"); }

    /// True when a normal second start is still acknowledged and activates the first.
    bool firstIsWell()
    {
        Probe second({"--core", "--id", "com.olmeric.vesktandry", "--send", "well?"});
        return second.says("second acknowledged") && second.leaves() && first->says("message 77656c6c3f");
    }

    std::unique_ptr<Probe> first;
};

void tst_HostilePeers::init()
{
    first = std::make_unique<Probe>(QStringList{"--core", "--id", "com.olmeric.vesktandry"});
    QVERIFY(first->says("first"));
}

void tst_HostilePeers::announced_lengths_allocate_no_memory_data()
{
    QTest::addColumn<quint32>("length");
    QTest::addColumn<bool>("honoured");
    QTest::newRow("nearly a gigabyte") << 0x3fffffc0u << true;
    QTest::newRow("half a gigabyte") << 0x20000000u << true;
    QTest::newRow("2^30") << 0x40000000u << false;
    QTest::newRow("2^31 - 1") << 0x7fffffffu << false;
    QTest::newRow("2^31") << 0x80000000u << false;
    QTest::newRow("2^32 - 1") << 0xffffffffu << false;
}

void tst_HostilePeers::announced_lengths_allocate_no_memory()
{
    QFETCH(quint32, length);
    QFETCH(bool, honoured);
    QVERIFY(firstIsWell());
    const qint64 before = ProcessFacts::statusKb(first->processId(), "VmPeak");
    QVERIFY(before > 0);

    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    QVERIFY(sender.send(lengthBytes(length) + "abc"));
    sender.endSending();
    QVERIFY(sender.isHungUp());
    const qint64 grown = ProcessFacts::statusKb(first->processId(), "VmPeak") - before;
    QVERIFY2(grown <= 1024, qPrintable(QString("grew by %1 KB").arg(grown)));

    Probe second({"--core", "--id", "com.olmeric.vesktandry", "--send", "well?"});
    QVERIFY(second.says("second acknowledged"));
    if (honoured)
        QCOMPARE(first->nextLine(), QByteArray("message 616263"));
    QCOMPARE(first->nextLine(), QByteArray("message 77656c6c3f"));
}

void tst_HostilePeers::message_can_arrive_byte_by_byte()
{
    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    const QByteArray message = lengthBytes(8) + "activate";
    for (const char byte : message) {
        QVERIFY(sender.send(QByteArray(1, byte)));
        // Sends the next byte once this one has been read: each byte is a separate wait.
        while (!sender.isTaken())
            std::this_thread::yield();
    }
    QCOMPARE(sender.receive(3), QByteArray("ack"));
    sender.hangUp();
    QVERIFY(first->says("message 6163746976617465"));
}

void tst_HostilePeers::a_thousand_simultaneous_connections_are_all_served()
{
    constexpr int count = 1000;
    rlimit files;
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &files), 0);
    files.rlim_cur = files.rlim_max;
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &files), 0);

    // All connect before the first of them is served.
    QCOMPARE(::kill(pid_t(first->processId()), SIGSTOP), 0);
    std::atomic<int> begun = 0;
    std::atomic<int> acknowledged = 0;
    std::vector<std::thread> senders;
    for (int i = 0; i < count; ++i) {
        senders.emplace_back([&] {
            RawPeer sender;
            ++begun;
            if (sender.connectTo(socket()) && sender.send(lengthBytes(1) + 'a') && sender.receive(3, 60000) == "ack")
                ++acknowledged;
        });
    }
    QTRY_COMPARE(int(begun), count);
    QCOMPARE(::kill(pid_t(first->processId()), SIGCONT), 0);
    for (std::thread &sender : senders)
        sender.join();
    QCOMPARE(int(acknowledged), count);
    QVERIFY(first->saysTimes("message 61", count));
    QVERIFY(firstIsWell());
}

void tst_HostilePeers::hang_ups_after_the_length_do_not_harm_the_first_instance_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("right after the length") << lengthBytes(8);
    QTest::newRow("inside the message") << lengthBytes(8) + "acti";
    QTest::newRow("before the acknowledgement") << lengthBytes(8) + "activate";
    QTest::newRow("after an empty message") << lengthBytes(0);
    QTest::newRow("after an excessive length") << lengthBytes(0xffffffff);
    QTest::newRow("after too many bytes") << lengthBytes(1) + QByteArray(50000, 'x');
    QTest::newRow("after bytes that are not UTF-8") << lengthBytes(4) + QByteArray::fromHex("fffec080");
}

void tst_HostilePeers::hang_ups_after_the_length_do_not_harm_the_first_instance()
{
    QFETCH(QByteArray, sent);
    for (int i = 0; i < 20; ++i) {
        RawPeer sender;
        QVERIFY(sender.connectTo(socket()));
        QVERIFY(sender.send(sent));
        sender.hangUp();
    }
    QVERIFY(firstIsWell());
}

void tst_HostilePeers::hang_up_before_the_length_blocks_the_first_instance_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("nothing sent") << QByteArray();
    QTest::newRow("one byte") << QByteArray(1, '\0');
    QTest::newRow("three bytes") << QByteArray(3, '\0');
}

// The reasons are in docs/decisions/guard-waits.md.
void tst_HostilePeers::hang_up_before_the_length_blocks_the_first_instance()
{
    QFETCH(QByteArray, sent);
    QVERIFY(firstIsWell());
    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    QVERIFY(sender.send(sent));
    sender.hangUp();

    // The wait on a closed connection returns at once: the loop uses all CPU time and serves no other peer.
    const qint64 before = ProcessFacts::processorMs(first->processId());
    QTRY_VERIFY_WITH_TIMEOUT(ProcessFacts::processorMs(first->processId()) >= before + 300, 20000);
    Probe second({"--core", "--id", "com.olmeric.vesktandry", "--timeout", "300"});
    QVERIFY(second.says("second unacknowledged"));
    QVERIFY(second.leaves());
    QCOMPARE(first->state(), QProcess::Running);
    QVERIFY(!first->canReadLine() && !first->waitForReadyRead(0));
}

static QByteArray hostileBytes(int kind)
{
    switch (kind) {
    case 0: return lengthBytes(0);
    case 1: return lengthBytes(8) + "acti";
    case 2: return lengthBytes(0x7fffffff) + "activate";
    case 3: return lengthBytes(0xffffffff);
    case 4: return lengthBytes(0x3fffffc0) + "a";
    case 5: return lengthBytes(4) + QByteArray::fromHex("fffec080");
    case 6: return lengthBytes(2000) + QByteArray(2000, '\xc3');
    default: return lengthBytes(1) + QByteArray(2000, 'x');
    }
}

void tst_HostilePeers::memory_does_not_grow()
{
    constexpr int kinds = 8;
    const int asked = qEnvironmentVariableIntValue("TANDRY_HOSTILE_CONNECTIONS");
    const int count = asked > 0 ? asked : 500;
    // --quiet: the test does not read the output for a hundred thousand peers.
    first = std::make_unique<Probe>(QStringList{"--core", "--id", "com.olmeric.vesktandry", "--quiet"});
    QVERIFY(first->says("first"));

    qint64 before = -1;
    const int warmUp = 200;
    for (int i = 0; i < warmUp + count; ++i) {
        if (i == warmUp)
            before = ProcessFacts::statusKb(first->processId(), "VmRSS");
        RawPeer sender;
        QVERIFY(sender.connectTo(socket()));
        QVERIFY(sender.send(hostileBytes(i % kinds)));
        sender.endSending();
        QVERIFY(sender.hasSomethingToRead(20000));
    }
    const qint64 grown = ProcessFacts::statusKb(first->processId(), "VmRSS") - before;
    qInfo("%d connections, memory grew by %lld KB", count, grown);
    QVERIFY(before > 0);
    QVERIFY2(grown <= 1024, qPrintable(QString("grew by %1 KB").arg(grown)));
}

int main(int argc, char **argv)
{
    const TestHome home;
    // AddressSanitizer delays the release of memory, which would look like growth.
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":quarantine_size_mb=0:thread_local_quarantine_size_kb=0");
    QCoreApplication application(argc, argv);
    tst_HostilePeers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_HostilePeers.moc"
