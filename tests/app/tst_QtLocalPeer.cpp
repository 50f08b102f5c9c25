#include "qtlocalpeer.h"

#include "logcapture.h"
#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QtTest>

#include <sys/stat.h>

class tst_QtLocalPeer : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile::remove(socket());
        QFile::remove(lockFile());
    }

    void names_come_from_the_id_data();
    void names_come_from_the_id();
    void checksum_in_the_tests_is_right();
    void empty_id_stands_for_the_executable();
    void meta_methods_are_in_order();
    void constructing_a_peer_opens_the_lock_file_without_locking_it();
    void files_are_accessible_to_their_owner_only();
    void first_instance_stays_the_first_at_every_call();
    void second_process_is_a_client();
    void client_creates_no_socket();
    void first_sends_nothing();
    void nothing_is_received_without_a_connection();
    void stale_socket_is_replaced();
    void socket_that_cannot_be_replaced_is_only_logged();
    void name_too_long_for_a_socket_is_only_logged();
    void unusable_lock_file_makes_a_client();
    void destructor_removes_the_socket_and_leaves_the_lock_file();

private:
    static QString id() { return QString("com.olmeric.vesktandry"); }
    static QString socket() { return socketPath("comolm-ba14"); }
    static QString lockFile() { return socket() + "-lockfile"; }
};

void tst_QtLocalPeer::names_come_from_the_id_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("middle");
    QTest::newRow("a path") << "/Applications/Vesk Tandry.app/Contents/MacOS/tandry"
                            << "Applic-c206";
    QTest::newRow("a domain") << "com.olmeric.vesktandry"
                              << "comolm-ba14";
    QTest::newRow("capitals stay") << "Tandry"
                                   << "Tandry-710d";
    QTest::newRow("capitals count") << "com.olmeric.VeskTandry"
                                    << "comolm-93c1";
    QTest::newRow("no letters") << "1234-5678"
                                << "-935e";
    QTest::newRow("letters that are not a to z") << QString::fromUtf8("/home/zoé/tandry") << "homezo-7439";
    QTest::newRow("first letter not a to z") << QString::fromUtf8("Zoé Ünlü") << "Zonl-f869";
    QTest::newRow("one letter") << "a"
                                << "a-82f7";
    QTest::newRow("spaces and punctuation before the cut") << "Tan-dry 2 go"
                                                           << "Tandry-7d08";
    QTest::newRow("checksum without leading zeros") << "tandry116"
                                                    << "tandry-2b";
}

void tst_QtLocalPeer::names_come_from_the_id()
{
    QFETCH(QString, id);
    QFETCH(QString, middle);
    QtLocalPeer peer(nullptr, id);
    QCOMPARE(peer.applicationId(), id);
    QVERIFY(!peer.isClient());
    const QString name = socketPath(middle);
    QVERIFY(QFileInfo::exists(name));
    QVERIFY(QFileInfo::exists(name + "-lockfile"));
    RawPeer other;
    QVERIFY(other.connectTo(name));
}

void tst_QtLocalPeer::checksum_in_the_tests_is_right()
{
    QCOMPARE(checksumBitByBit("123456789"), quint16(0x906e));
    QCOMPARE(checksumBitByBit("/usr/bin/tandry"), quint16(0x6662));
    QCOMPARE(checksumBitByBit("/opt/copy/tandry"), quint16(0x4aa8));
}

void tst_QtLocalPeer::empty_id_stands_for_the_executable()
{
    QtLocalPeer peer(nullptr, QString());
    const QString executable = QCoreApplication::applicationFilePath();
    QCOMPARE(peer.applicationId(), executable);
    QVERIFY(!peer.isClient());
    QVERIFY(QFileInfo::exists(socketPathFor(executable, "tstQtL")));
}

void tst_QtLocalPeer::meta_methods_are_in_order()
{
    const QMetaObject &meta = QtLocalPeer::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod signal = meta.method(meta.methodOffset());
    QCOMPARE(signal.methodSignature(), QByteArray("messageReceived(QString)"));
    QCOMPARE(signal.methodType(), QMetaMethod::Signal);
    const QMetaMethod slot = meta.method(meta.methodOffset() + 1);
    QCOMPARE(slot.methodSignature(), QByteArray("receiveConnection()"));
    QCOMPARE(slot.methodType(), QMetaMethod::Slot);
    QCOMPARE(slot.access(), QMetaMethod::Private);
}

void tst_QtLocalPeer::constructing_a_peer_opens_the_lock_file_without_locking_it()
{
    const QtLocalPeer peer(nullptr, id());
    QVERIFY(QFileInfo::exists(lockFile()));
    QVERIFY(!QFileInfo::exists(socket()));
    Probe other({"--lock", lockFile(), "write", "try"});
    QVERIFY(other.says("locked"));
}

void tst_QtLocalPeer::files_are_accessible_to_their_owner_only()
{
    const mode_t before = ::umask(077);
    QtLocalPeer peer(nullptr, id());
    QVERIFY(!peer.isClient());
    ::umask(before);

    struct stat facts;
    QCOMPARE(::stat(QFile::encodeName(socket()).constData(), &facts), 0);
    QCOMPARE(uint(facts.st_mode & 07777), 0700u);
    QCOMPARE(::stat(QFile::encodeName(lockFile()).constData(), &facts), 0);
    QCOMPARE(uint(facts.st_mode & 07777), 0600u);
}

void tst_QtLocalPeer::first_instance_stays_the_first_at_every_call()
{
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.isClient());
    QCOMPARE(LogCapture::lines(), QStringList());

    // After three calls it still receives each message once.
    QSignalSpy spy(&peer, SIGNAL(messageReceived(QString)));
    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    QVERIFY(sender.send(lengthBytes(1) + 'a'));
    sender.endSending();
    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
}

void tst_QtLocalPeer::second_process_is_a_client()
{
    Probe first({"--core", "--id", id()});
    QVERIFY(first.says("first"));
    QtLocalPeer peer(nullptr, id());
    QVERIFY(peer.isClient());
    QVERIFY(peer.isClient());
    QVERIFY(peer.sendMessage("activate", 5000));
    QVERIFY(first.says("message 6163746976617465"));
}

void tst_QtLocalPeer::client_creates_no_socket()
{
    Probe holder({"--lock", lockFile(), "write", "try"});
    QVERIFY(holder.says("locked"));
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(peer.isClient());
    QVERIFY(!QFileInfo::exists(socket()));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLocalPeer::first_sends_nothing()
{
    QtLocalPeer peer(nullptr, id());
    QSignalSpy spy(&peer, SIGNAL(messageReceived(QString)));
    // sendMessage() calls isClient(), which makes this instance the first.
    QVERIFY(!peer.sendMessage("activate", 5000));
    QVERIFY(QFileInfo::exists(socket()));
    QVERIFY(!peer.sendMessage("activate", 5000));
    QCoreApplication::processEvents();
    QCOMPARE(spy.count(), 0);
}

void tst_QtLocalPeer::nothing_is_received_without_a_connection()
{
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(!peer.isClient());
    QSignalSpy spy(&peer, SIGNAL(messageReceived(QString)));
    QVERIFY(QMetaObject::invokeMethod(&peer, "receiveConnection"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLocalPeer::stale_socket_is_replaced()
{
    {
        RawListener crashed;
        QVERIFY(crashed.listen(socket()));
    }
    RawPeer early;
    QVERIFY(!early.connectTo(socket()));

    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(!peer.isClient());
    RawPeer sender;
    QVERIFY(sender.connectTo(socket()));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLocalPeer::socket_that_cannot_be_replaced_is_only_logged()
{
    QVERIFY(QDir().mkpath(socket() + "/kept"));
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.isClient());
    QCOMPARE(LogCapture::lines(),
             QStringList("warning: QtSingleCoreApplication: listen on local socket failed, "
                         "QLocalServer::listen: Address in use"));
    Probe other({"--lock", lockFile(), "write", "try"});
    QVERIFY(other.says("refused"));
    QVERIFY(QDir(socket()).removeRecursively());
}

void tst_QtLocalPeer::name_too_long_for_a_socket_is_only_logged()
{
    const QByteArray before = qgetenv("TMPDIR");
    const QString deep = QDir::tempPath() + '/' + QString(100, 'd');
    QVERIFY(QDir().mkpath(deep));
    qputenv("TMPDIR", QFile::encodeName(deep));
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    const bool client = peer.isClient();
    qputenv("TMPDIR", before);
    QVERIFY(!client);
    QCOMPARE(LogCapture::lines().size(), 1);
    QVERIFY(LogCapture::lines().at(0).startsWith(
        "warning: QtSingleCoreApplication: listen on local socket failed, QLocalServer::listen: "));
    QVERIFY(LogCapture::lines().at(0).contains("a socket's at most 107: " + deep));
}

void tst_QtLocalPeer::unusable_lock_file_makes_a_client()
{
    QVERIFY(QDir().mkpath(lockFile()));
    const LogCapture log;
    QtLocalPeer peer(nullptr, id());
    QVERIFY(peer.isClient());
    QVERIFY(LogCapture::lines().contains("warning: QtLockedFile::lock(): file is not opened"));
    QCOMPARE(LogCapture::lines().filter(lockFile() + " cannot be opened, ").size(), 1);
    QVERIFY(QDir().rmdir(lockFile()));
}

void tst_QtLocalPeer::destructor_removes_the_socket_and_leaves_the_lock_file()
{
    {
        QtLocalPeer peer(nullptr, id());
        QVERIFY(!peer.isClient());
        QVERIFY(QFileInfo::exists(socket()));
    }
    QVERIFY(!QFileInfo::exists(socket()));
    QVERIFY(QFileInfo::exists(lockFile()));
    QCOMPARE(QFileInfo(lockFile()).size(), qint64(0));
    Probe other({"--lock", lockFile(), "write", "try"});
    QVERIFY(other.says("locked"));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_QtLocalPeer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_QtLocalPeer.moc"
