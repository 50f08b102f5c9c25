#include "qtlockedfile.h"

#include "logcapture.h"
#include "support/probe.h"
#include "testhome.h"

#include <QtTest>

#include <csignal>

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

using QtLP_Private::QtLockedFile;

class tst_QtLockedFile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write("kept"), qint64(4));
    }

    void modes_have_their_numbers();
    void starts_closed_and_without_a_lock();
    void truncate_is_refused_data();
    void truncate_is_refused();
    void opens_in_modes_without_truncate();
    void closed_file_cannot_be_locked_data();
    void closed_file_cannot_be_locked();
    void closed_file_cannot_be_unlocked();
    void unlocking_without_a_lock_succeeds();
    void locking_with_none_unlocks();
    void same_mode_is_granted_again();
    void readers_share_the_lock_and_a_writer_excludes_all_others_data();
    void readers_share_the_lock_and_a_writer_excludes_all_others();
    void refused_lock_is_not_held();
    void write_lock_can_change_to_a_read_lock();
    void changing_the_mode_releases_the_old_lock_even_when_the_new_one_is_refused();
    void waiting_lock_is_granted_once_the_holder_ends();
    void waiting_lock_is_not_granted_before_the_holder_unlocks();
    void killed_holder_leaves_no_lock();
    void lock_ends_with_the_object();
    void lock_ends_with_the_object_even_if_the_file_stays_open();
    void lock_covers_the_whole_file_and_beyond();
    void failing_lock_logs_its_reason_data();
    void failing_lock_logs_its_reason();
    void failing_unlock_logs_its_reason_with_the_text_of_locking();
    void interrupted_wait_logs_nothing();

private:
    static QString path() { return QDir::tempPath() + "/locked"; }
    static QStringList locking(const char *mode, const char *wait) { return {"--lock", path(), mode, wait}; }
};

void tst_QtLockedFile::modes_have_their_numbers()
{
    QCOMPARE(int(QtLockedFile::LockNone), 0);
    QCOMPARE(int(QtLockedFile::LockRead), 1);
    QCOMPARE(int(QtLockedFile::LockWrite), 2);
}

void tst_QtLockedFile::starts_closed_and_without_a_lock()
{
    const QtLockedFile unnamed;
    QVERIFY(unnamed.fileName().isEmpty());
    const QtLockedFile named("/some/where");
    QCOMPARE(named.fileName(), QString("/some/where"));
    QVERIFY(!named.isOpen());
    QVERIFY(!named.isLocked());
    QCOMPARE(named.lockMode(), QtLockedFile::LockNone);

    const LogCapture log;
    {
        const QtLockedFile neverOpened(path());
    }
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::truncate_is_refused_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("read and write") << int(QIODevice::ReadWrite | QIODevice::Truncate);
    QTest::newRow("write") << int(QIODevice::WriteOnly | QIODevice::Truncate);
    QTest::newRow("text") << int(QIODevice::ReadWrite | QIODevice::Text | QIODevice::Truncate);
}

void tst_QtLockedFile::truncate_is_refused()
{
    QFETCH(int, mode);
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(!file.open(QIODevice::OpenMode(mode)));
    QVERIFY(!file.isOpen());
    QCOMPARE(QFileInfo(path()).size(), qint64(4));
    QCOMPARE(LogCapture::lines(), QStringList("warning: QtLockedFile::open(): Truncate mode not allowed."));
}

void tst_QtLockedFile::opens_in_modes_without_truncate()
{
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.readAll(), QByteArray("kept"));
    QtLockedFile absent(path() + ".absent");
    QVERIFY(!absent.open(QIODevice::ReadOnly));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::closed_file_cannot_be_locked_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << int(QtLockedFile::LockNone);
    QTest::newRow("read") << int(QtLockedFile::LockRead);
    QTest::newRow("write") << int(QtLockedFile::LockWrite);
}

void tst_QtLockedFile::closed_file_cannot_be_locked()
{
    QFETCH(int, mode);
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(!file.lock(QtLockedFile::LockMode(mode)));
    QCOMPARE(LogCapture::lines(), QStringList("warning: QtLockedFile::lock(): file is not opened"));
}

void tst_QtLockedFile::closed_file_cannot_be_unlocked()
{
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(!file.unlock());
    QCOMPARE(LogCapture::lines(), QStringList("warning: QtLockedFile::unlock(): file is not opened"));
}

void tst_QtLockedFile::unlocking_without_a_lock_succeeds()
{
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.unlock());
    QVERIFY(file.lock(QtLockedFile::LockNone));
    QCOMPARE(::close(file.handle()), 0); // unlock() must make no system call
    QVERIFY(file.unlock());
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::locking_with_none_unlocks()
{
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockWrite));
    QVERIFY(file.lock(QtLockedFile::LockNone));
    QVERIFY(!file.isLocked());
    Probe other(locking("write", "try"));
    QVERIFY(other.says("locked"));
}

void tst_QtLockedFile::same_mode_is_granted_again()
{
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    for (const auto mode : {QtLockedFile::LockRead, QtLockedFile::LockWrite}) {
        QVERIFY(file.lock(mode, false));
        QVERIFY(file.lock(mode, false));
        QVERIFY(file.isLocked());
        QCOMPARE(file.lockMode(), mode);
    }
    // lock() must make no system call: for the system, the file is closed by now.
    QCOMPARE(::close(file.handle()), 0);
    QVERIFY(file.lock(QtLockedFile::LockWrite, false));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::readers_share_the_lock_and_a_writer_excludes_all_others_data()
{
    QTest::addColumn<int>("ours");
    QTest::addColumn<QByteArray>("theirs");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("two readers") << int(QtLockedFile::LockRead) << QByteArray("read") << QByteArray("locked");
    QTest::newRow("reader, writer") << int(QtLockedFile::LockRead) << QByteArray("write") << QByteArray("refused");
    QTest::newRow("writer, reader") << int(QtLockedFile::LockWrite) << QByteArray("read") << QByteArray("refused");
    QTest::newRow("two writers") << int(QtLockedFile::LockWrite) << QByteArray("write") << QByteArray("refused");
}

void tst_QtLockedFile::readers_share_the_lock_and_a_writer_excludes_all_others()
{
    QFETCH(int, ours);
    QFETCH(QByteArray, theirs);
    QFETCH(QByteArray, answer);
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockMode(ours)));
    Probe other(locking(theirs.constData(), "try"));
    QVERIFY(other.says(answer));
}

void tst_QtLockedFile::refused_lock_is_not_held()
{
    Probe holder(locking("write", "try"));
    QVERIFY(holder.says("locked"));

    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(!file.lock(QtLockedFile::LockWrite, false));
    QVERIFY(!file.lock(QtLockedFile::LockRead, false));
    QVERIFY(!file.isLocked());
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::write_lock_can_change_to_a_read_lock()
{
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockWrite));
    QVERIFY(file.lock(QtLockedFile::LockRead));
    QCOMPARE(file.lockMode(), QtLockedFile::LockRead);
    Probe other(locking("read", "try"));
    QVERIFY(other.says("locked"));
}

void tst_QtLockedFile::changing_the_mode_releases_the_old_lock_even_when_the_new_one_is_refused()
{
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockRead));
    Probe reader(locking("read", "try"));
    QVERIFY(reader.says("locked"));

    const LogCapture log;
    QVERIFY(!file.lock(QtLockedFile::LockWrite, false));
    QCOMPARE(file.lockMode(), QtLockedFile::LockNone);
    QCOMPARE(LogCapture::lines(), QStringList());

    reader.closeWriteChannel();
    QVERIFY(reader.leaves());
    Probe writer(locking("write", "try"));
    QVERIFY(writer.says("locked"));
}

void tst_QtLockedFile::waiting_lock_is_granted_once_the_holder_ends()
{
    Probe holder(locking("write", "try"));
    QVERIFY(holder.says("locked"));
    holder.closeWriteChannel();

    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockWrite, true));
    QVERIFY(file.isLocked());
}

void tst_QtLockedFile::waiting_lock_is_not_granted_before_the_holder_unlocks()
{
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockRead));
    Probe waiting(locking("write", "wait"));
    QVERIFY(waiting.says("asking"));
    QVERIFY2(!waiting.waitForReadyRead(200), "granted while this process held the lock");
    QVERIFY(file.unlock());
    QVERIFY(waiting.says("locked"));
}

void tst_QtLockedFile::killed_holder_leaves_no_lock()
{
    Probe holder(locking("write", "try"));
    QVERIFY(holder.says("locked"));
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(!file.lock(QtLockedFile::LockWrite, false));
    holder.killAtOnce();
    QVERIFY(file.lock(QtLockedFile::LockWrite, false));
}

void tst_QtLockedFile::lock_ends_with_the_object()
{
    const LogCapture log;
    {
        QtLockedFile file(path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.lock(QtLockedFile::LockWrite));
    }
    Probe other(locking("write", "try"));
    QVERIFY(other.says("locked"));
    QCOMPARE(LogCapture::lines(), QStringList());
}

void tst_QtLockedFile::lock_ends_with_the_object_even_if_the_file_stays_open()
{
    QFile owner(path());
    QVERIFY(owner.open(QIODevice::ReadWrite));
    {
        QtLockedFile file;
        QVERIFY(static_cast<QFile &>(file).open(owner.handle(), QIODevice::ReadWrite));
        QVERIFY(file.lock(QtLockedFile::LockWrite, false));
    }
    Probe other(locking("write", "try"));
    QVERIFY(other.says("locked"));
}

void tst_QtLockedFile::lock_covers_the_whole_file_and_beyond()
{
    Probe holder(locking("write", "try"));
    QVERIFY(holder.says("locked"));
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    struct flock asked = {};
    asked.l_type = F_RDLCK;
    asked.l_whence = SEEK_SET;
    asked.l_start = 1000000;
    asked.l_len = 1;
    QCOMPARE(::fcntl(file.handle(), F_GETLK, &asked), 0);
    QCOMPARE(int(asked.l_type), int(F_WRLCK));
    QCOMPARE(qint64(asked.l_start), qint64(0));
    QCOMPARE(qint64(asked.l_len), qint64(0));
    QCOMPARE(qint64(asked.l_pid), holder.processId());
}

void tst_QtLockedFile::failing_lock_logs_its_reason_data()
{
    QTest::addColumn<bool>("wait");
    QTest::newRow("waiting") << true;
    QTest::newRow("not waiting") << false;
}

void tst_QtLockedFile::failing_lock_logs_its_reason()
{
    QFETCH(bool, wait);
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.lock(QtLockedFile::LockWrite, wait));
    QVERIFY(!file.isLocked());
    QCOMPARE(LogCapture::lines(), QStringList("warning: QtLockedFile::lock(): fcntl: Bad file descriptor"));
}

void tst_QtLockedFile::failing_unlock_logs_its_reason_with_the_text_of_locking()
{
    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.lock(QtLockedFile::LockWrite));
    const int descriptor = file.handle();
    const int aside = ::dup(descriptor);
    QCOMPARE(::close(descriptor), 0);

    QVERIFY(!file.unlock());
    QCOMPARE(file.lockMode(), QtLockedFile::LockWrite);
    QCOMPARE(LogCapture::lines(), QStringList("warning: QtLockedFile::lock(): fcntl: Bad file descriptor"));

    QCOMPARE(::dup2(aside, descriptor), descriptor);
    ::close(aside);
}

void tst_QtLockedFile::interrupted_wait_logs_nothing()
{
    Probe holder(locking("write", "try"));
    QVERIFY(holder.says("locked"));
    static volatile std::sig_atomic_t interruptions;
    interruptions = 0;
    struct sigaction interrupting = {};
    interrupting.sa_handler = [](int) { interruptions = 1; };
    struct sigaction before;
    QCOMPARE(::sigaction(SIGALRM, &interrupting, &before), 0);
    // Repeats, in case the first one comes before the wait.
    const itimerval often = {{0, 50000}, {0, 50000}};
    const itimerval never = {};

    const LogCapture log;
    QtLockedFile file(path());
    QVERIFY(file.open(QIODevice::ReadWrite));
    ::setitimer(ITIMER_REAL, &often, nullptr);
    const bool got = file.lock(QtLockedFile::LockWrite);
    const bool waited = interruptions > 0;
    ::setitimer(ITIMER_REAL, &never, nullptr);
    ::sigaction(SIGALRM, &before, nullptr);

    QVERIFY(!got);
    QVERIFY(waited);
    QVERIFY(!file.isLocked());
    QCOMPARE(LogCapture::lines(), QStringList());
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_QtLockedFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_QtLockedFile.moc"
