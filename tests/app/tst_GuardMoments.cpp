// Moments that no test can hit by waiting. Two system calls are replaced to run code exactly within them: the pause
// between two attempts to connect, and the removal of a file.

#include "qtlocalpeer.h"

#include "logcapture.h"
#include "support/guardnames.h"
#include "support/probe.h"
#include "support/rawpeer.h"
#include "testhome.h"

#include <QtTest>

#include <cerrno>
#include <functional>

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

static QList<qint64> pausesNs;
static bool interrupting = false;
static std::function<void()> duringPause;
static std::function<void(const QByteArray &)> beforeRemoval;

extern "C" int nanosleep(const timespec *length, timespec *left)
{
    pausesNs << qint64(length->tv_sec) * 1000000000 + length->tv_nsec;
    if (interrupting) {
        interrupting = false;
        *left = {0, 100000001};
        errno = EINTR;
        return -1;
    }
    if (duringPause)
        duringPause();
    return 0;
}

extern "C" int unlink(const char *path) noexcept
{
    if (beforeRemoval)
        beforeRemoval(path);
    return ::unlinkat(AT_FDCWD, path, 0);
}

class tst_GuardMoments : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        pausesNs.clear();
        interrupting = false;
        duringPause = nullptr;
        beforeRemoval = nullptr;
        QFile::remove(socket());
    }

    void second_attempt_finds_an_instance_that_began_to_listen_during_the_pause();
    void pause_continues_after_a_signal();
    void there_is_no_third_attempt();
    void there_is_no_pause_when_the_first_attempt_connects();
    void ending_instance_removes_its_socket_while_it_holds_the_lock();

private:
    static QString id() { return QString("com.olmeric.vesktandry"); }
    static QString socket() { return socketPath("comolm-ba14"); }
    static QStringList holdingTheLock() { return {"--lock", socket() + "-lockfile", "write", "try"}; }
};

void tst_GuardMoments::second_attempt_finds_an_instance_that_began_to_listen_during_the_pause()
{
    Probe holder(holdingTheLock());
    QVERIFY(holder.says("locked"));
    RawListener listener;
    duringPause = [&] { listener.listen(socket()); };
    QtLocalPeer second(nullptr, id());
    QVERIFY(!second.sendMessage("activate", 100));
    QCOMPARE(pausesNs, QList<qint64>{250000000});
    RawPeer connection = listener.accept(0);
    QCOMPARE(connection.receive(100), QByteArray::fromHex("000000086163746976617465"));
}

void tst_GuardMoments::pause_continues_after_a_signal()
{
    Probe holder(holdingTheLock());
    QVERIFY(holder.says("locked"));
    interrupting = true;
    QtLocalPeer second(nullptr, id());
    QVERIFY(!second.sendMessage("activate", 100));
    QCOMPARE(pausesNs, (QList<qint64>{250000000, 100000001}));
}

void tst_GuardMoments::there_is_no_third_attempt()
{
    Probe holder(holdingTheLock());
    QVERIFY(holder.says("locked"));
    const LogCapture log;
    QtLocalPeer second(nullptr, id());
    QVERIFY(!second.sendMessage("activate", 100));
    QCOMPARE(pausesNs, QList<qint64>{250000000});
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_GuardMoments::there_is_no_pause_when_the_first_attempt_connects()
{
    Probe first({"--core", "--id", id()});
    QVERIFY(first.says("first"));
    QtLocalPeer second(nullptr, id());
    QVERIFY(second.sendMessage("activate", 5000));
    QCOMPARE(pausesNs, QList<qint64>());
}

// After releasing the lock it could remove the socket of the next instance.
void tst_GuardMoments::ending_instance_removes_its_socket_while_it_holds_the_lock()
{
    bool removed = false;
    bool held = false;
    {
        QtLocalPeer first(nullptr, id());
        QVERIFY(!first.isClient());
        beforeRemoval = [&](const QByteArray &path) {
            if (path != QFile::encodeName(socket()))
                return;
            removed = true;
            Probe other(holdingTheLock());
            held = other.says("refused");
        };
    }
    beforeRemoval = nullptr;
    QVERIFY(removed);
    QVERIFY(held);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_GuardMoments test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GuardMoments.moc"
