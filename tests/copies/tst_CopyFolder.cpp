#include "copyfolder.h"
#include "files.h"
#include "support/copynames.h"
#include "support/generation.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QDate today(2026, 11, 21);
constexpr off_t sqliteReservedByte = 0x40000001;

mode_t modeOf(const QString &path)
{
    struct stat found = {};
    return ::stat(QFile::encodeName(path).constData(), &found) == 0 ? found.st_mode & 07777 : 0;
}

/// Whether another process sees SQLite's write lock on the file.
bool isLockedForOthers(const QString &path)
{
    const pid_t child = ::fork();
    if (child == 0) {
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = sqliteReservedByte;
        lock.l_len = 1;
        const int file = ::open(QFile::encodeName(path).constData(), O_RDWR);
        ::_exit(::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

} // namespace

class tst_CopyFolder : public QObject
{
    Q_OBJECT

private slots:
    void a_copy_holds_every_file_and_is_accessible_to_its_owner_only();
    void an_unchanged_store_is_not_copied_again();
    void a_later_start_replaces_the_copy_of_the_day_and_a_new_day_does_not();
    void a_copy_is_not_replaced_after_an_upgrade_dropped_patients();
    void a_copy_is_not_replaced_when_the_clock_was_set_back();
    void files_about_to_be_emptied_are_copied_once_for_each_content();
    void a_file_is_copied_without_a_standard_input();
    void a_store_that_cannot_be_copied_leaves_no_trace_data();
    void a_store_that_cannot_be_copied_leaves_no_trace();
    void interrupted_work_is_completed_or_undone();
    void copying_does_not_release_the_locks_of_sqlite();
};

void tst_CopyFolder::a_copy_holds_every_file_and_is_accessible_to_its_owner_only()
{
    const DataFolder data;
    data.write(7);
    CopyFolder copyFolder(data.store);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 7);
    QCOMPARE(copyFolder.copies().first().changes, 7u);
    const QString folder = data.store.copiesFolder() + "/2026-11-21";
    QCOMPARE(int(modeOf(data.store.copiesFolder())), 0700);
    QCOMPARE(int(modeOf(folder)), 0700);
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        QCOMPARE(int(modeOf(folder + '/' + name)), 0600);
}

void tst_CopyFolder::an_unchanged_store_is_not_copied_again()
{
    const DataFolder data;
    data.write(2);
    CopyFolder copyFolder(data.store);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QCOMPARE(copyFolder.copyDay(today.addDays(1), true), QString());
    QCOMPARE(namesOf(copyFolder.copies()), QStringList{"2026-11-21"});
    // A change that keeps size and name.
    data.write(4);
    QCOMPARE(copyFolder.copyDay(today.addDays(1), true), QString());
    QCOMPARE(namesOf(copyFolder.copies()), QStringList({"2026-11-22", "2026-11-21"}));
}

void tst_CopyFolder::a_later_start_replaces_the_copy_of_the_day_and_a_new_day_does_not()
{
    const DataFolder data;
    CopyFolder copyFolder(data.store);
    data.write(1);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    data.write(2);
    QCOMPARE(copyFolder.copyDay(today, false), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 2);
    QCOMPARE(QDir(data.store.copiesFolder()).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"2026-11-21"});
}

void tst_CopyFolder::a_copy_is_not_replaced_after_an_upgrade_dropped_patients()
{
    const DataFolder data;
    CopyFolder copyFolder(data.store);
    data.write(1);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    data.write(2);
    QCOMPARE(copyFolder.copyBefore(Copy::BeforeUpgrade, today), QString());
    data.write(3);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(data.copied("2026-11-21-before-upgrade"), 2);
}

void tst_CopyFolder::a_copy_is_not_replaced_when_the_clock_was_set_back()
{
    const DataFolder data;
    CopyFolder copyFolder(data.store);
    for (int day = 0; day < 3; ++day) {
        data.write(day + 1);
        QCOMPARE(copyFolder.copyDay(today.addDays(day), true), QString());
    }
    data.write(9);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(copyFolder.copies().size(), 3);
}

void tst_CopyFolder::files_about_to_be_emptied_are_copied_once_for_each_content()
{
    const DataFolder data;
    CopyFolder copyFolder(data.store);
    for (const int number : {1, 1, 2, 1}) {
        data.write(number);
        QCOMPARE(copyFolder.copyBefore(Copy::BeforeUpgrade, today), QString());
    }
    QCOMPARE(data.copied("2026-11-21-before-upgrade"), 1);
    QCOMPARE(data.copied("2026-11-21-before-upgrade-2"), 2);
    QCOMPARE(copyFolder.copies().size(), 2);
}

void tst_CopyFolder::a_file_is_copied_without_a_standard_input()
{
    const DataFolder data;
    data.write(1);
    const QString copy = data.store.folder() + "/copy";
    const int kept = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO); // the next file gets its number
    const QString reason = files::copy(data.store.database(), copy);
    ::dup2(kept, STDIN_FILENO);
    ::close(kept);
    QCOMPARE(reason, QString());
    QVERIFY(QFileInfo::exists(copy));
}

void tst_CopyFolder::a_store_that_cannot_be_copied_leaves_no_trace_data()
{
    QTest::addColumn<QByteArray>("database");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not a database") << QByteArray("something else") << "the file is not a database";
    QTest::newRow("too large for the disk") << generation::bytesOf(4) << QString(strerror(EFBIG));
    QTest::newRow("huge") << QByteArray() << "the database is larger than 256 MiB";
}

void tst_CopyFolder::a_store_that_cannot_be_copied_leaves_no_trace()
{
    QFETCH(QByteArray, database);
    const DataFolder data;
    CopyFolder copyFolder(data.store);
    data.write(2);
    QCOMPARE(copyFolder.copyDay(today, true), QString());
    QFile file(data.store.database());
    QVERIFY(file.open(QIODevice::ReadWrite));
    if (database.isEmpty())
        QVERIFY(file.resize(300LL * 1024 * 1024)); // a sparse file, which takes no disk space
    else
        QVERIFY(file.write(database) == database.size() && file.resize(database.size()));
    file.close();

    // The limit simulates a full disk, also for root.
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {10000, before.rlim_max};
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString reason = copyFolder.copyDay(today.addDays(1), true);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);

    QTEST(reason, "reason");
    QCOMPARE(QDir(data.store.copiesFolder()).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"2026-11-21"});
    QCOMPARE(data.copied("2026-11-21"), 2);
}

void tst_CopyFolder::interrupted_work_is_completed_or_undone()
{
    const DataFolder data;
    const QString folder = data.store.copiesFolder() + '/';
    generation::write(folder + ".new-17", 1);
    generation::write(folder + ".gone", 2);
    generation::write(folder + ".old-2026-11-20", 3); // not replaced by a new copy
    generation::write(folder + ".old-2026-11-21", 4);
    generation::write(folder + "2026-11-21", 5);
    CopyFolder copyFolder(data.store);
    QCOMPARE(namesOf(copyFolder.copies()), QStringList{"2026-11-21"});
    copyFolder.recover();
    QCOMPARE(QDir(folder).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({"2026-11-20", "2026-11-21"}));
    QCOMPARE(data.copied("2026-11-20"), 3);
    QCOMPARE(data.copied("2026-11-21"), 5);
}

void tst_CopyFolder::copying_does_not_release_the_locks_of_sqlite()
{
    const DataFolder data;
    QDir().mkpath(data.store.folder());
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE");
    database.setDatabaseName(data.store.database());
    QVERIFY(database.open());
    QSqlQuery query;
    QVERIFY(query.exec("CREATE TABLE Patients (name TEXT)"));
    QVERIFY(query.exec("BEGIN IMMEDIATE"));
    QVERIFY(isLockedForOthers(data.store.database()));
    {
        CopyFolder copyFolder(data.store);
        QCOMPARE(copyFolder.copyDay(today, true), QString());
        QCOMPARE(copyFolder.copyDay(today.addDays(1), true), QString());
    }
    QVERIFY(isLockedForOthers(data.store.database()));
    QVERIFY(query.exec("COMMIT"));
    QVERIFY(!isLockedForOthers(data.store.database()));
}

QTEST_GUILESS_MAIN(tst_CopyFolder)

#include "tst_CopyFolder.moc"
