#include "copyshelf.h"
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

QStringList namesOf(const QVector<Copy> &copies)
{
    QStringList names;
    for (const Copy &copy : copies)
        names << copy.name();
    return names;
}

QVector<Copy> daily(const QVector<QDate> &days)
{
    QVector<Copy> copies;
    for (const QDate &day : days) {
        Copy copy;
        copy.day = day;
        copy.changes = quint32(day.toJulianDay());
        copies << copy;
    }
    return copies;
}

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

class tst_CopyShelf : public QObject
{
    Q_OBJECT

private slots:
    void a_copy_holds_every_file_and_is_accessible_to_its_owner_only();
    void an_unchanged_store_is_not_copied_again();
    void a_later_start_replaces_the_copy_of_the_day_and_a_new_day_does_not();
    void a_copy_is_not_replaced_after_an_upgrade_dropped_patients();
    void a_copy_is_not_replaced_when_the_clock_was_set_back();
    void files_about_to_be_emptied_are_copied_once_for_each_content();
    void a_store_that_cannot_be_copied_leaves_no_trace_data();
    void a_store_that_cannot_be_copied_leaves_no_trace();
    void interrupted_work_is_completed_or_undone();
    void copying_does_not_release_the_locks_of_sqlite();
    void seven_days_five_weeks_and_twelve_months_are_kept();
    void a_wrong_clock_deletes_no_required_copy_data();
    void a_wrong_clock_deletes_no_required_copy();
    void copies_before_an_upgrade_or_return_stay_for_twelve_months();
};

void tst_CopyShelf::a_copy_holds_every_file_and_is_accessible_to_its_owner_only()
{
    const DataFolder data;
    data.write(7);
    CopyShelf shelf(data.store);
    QCOMPARE(shelf.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 7);
    const QString folder = data.store.copiesFolder() + "/2026-11-21";
    QCOMPARE(int(modeOf(data.store.copiesFolder())), 0700);
    QCOMPARE(int(modeOf(folder)), 0700);
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        QCOMPARE(int(modeOf(folder + '/' + name)), 0600);
}

void tst_CopyShelf::an_unchanged_store_is_not_copied_again()
{
    const DataFolder data;
    data.write(2);
    CopyShelf shelf(data.store);
    QCOMPARE(shelf.copyDay(today, true), QString());
    QCOMPARE(shelf.copyDay(today.addDays(1), true), QString());
    QCOMPARE(namesOf(shelf.copies()), QStringList{"2026-11-21"});
    // A change that keeps size and name.
    data.write(4);
    QCOMPARE(shelf.copyDay(today.addDays(1), true), QString());
    QCOMPARE(namesOf(shelf.copies()), QStringList({"2026-11-22", "2026-11-21"}));
}

void tst_CopyShelf::a_later_start_replaces_the_copy_of_the_day_and_a_new_day_does_not()
{
    const DataFolder data;
    CopyShelf shelf(data.store);
    data.write(1);
    QCOMPARE(shelf.copyDay(today, true), QString());
    data.write(2);
    QCOMPARE(shelf.copyDay(today, false), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(shelf.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 2);
    QCOMPARE(QDir(data.store.copiesFolder()).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"2026-11-21"});
}

void tst_CopyShelf::a_copy_is_not_replaced_after_an_upgrade_dropped_patients()
{
    const DataFolder data;
    CopyShelf shelf(data.store);
    data.write(1);
    QCOMPARE(shelf.copyDay(today, true), QString());
    data.write(2);
    QCOMPARE(shelf.keep(Copy::BeforeUpgrade, today), QString());
    data.write(3);
    QCOMPARE(shelf.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(data.copied("2026-11-21-before-upgrade"), 2);
}

void tst_CopyShelf::a_copy_is_not_replaced_when_the_clock_was_set_back()
{
    const DataFolder data;
    CopyShelf shelf(data.store);
    for (int day = 0; day < 3; ++day) {
        data.write(day + 1);
        QCOMPARE(shelf.copyDay(today.addDays(day), true), QString());
    }
    data.write(9);
    QCOMPARE(shelf.copyDay(today, true), QString());
    QCOMPARE(data.copied("2026-11-21"), 1);
    QCOMPARE(shelf.copies().size(), 3);
}

void tst_CopyShelf::files_about_to_be_emptied_are_copied_once_for_each_content()
{
    const DataFolder data;
    CopyShelf shelf(data.store);
    for (const int number : {1, 1, 2, 1}) {
        data.write(number);
        QCOMPARE(shelf.keep(Copy::BeforeUpgrade, today), QString());
    }
    QCOMPARE(data.copied("2026-11-21-before-upgrade"), 1);
    QCOMPARE(data.copied("2026-11-21-before-upgrade-2"), 2);
    QCOMPARE(shelf.copies().size(), 2);
}

void tst_CopyShelf::a_store_that_cannot_be_copied_leaves_no_trace_data()
{
    QTest::addColumn<QByteArray>("database");
    QTest::addColumn<QString>("reason");
    QTest::newRow("not a database") << QByteArray("something else") << "the file is not a database";
    QTest::newRow("too large for the disk") << generation::bytesOf(4) << QString(strerror(EFBIG));
    QTest::newRow("huge") << QByteArray() << "the database is larger than 256 MiB";
}

void tst_CopyShelf::a_store_that_cannot_be_copied_leaves_no_trace()
{
    QFETCH(QByteArray, database);
    const DataFolder data;
    CopyShelf shelf(data.store);
    data.write(2);
    QCOMPARE(shelf.copyDay(today, true), QString());
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
    const QString reason = shelf.copyDay(today.addDays(1), true);
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);

    QTEST(reason, "reason");
    QCOMPARE(QDir(data.store.copiesFolder()).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"2026-11-21"});
    QCOMPARE(data.copied("2026-11-21"), 2);
}

void tst_CopyShelf::interrupted_work_is_completed_or_undone()
{
    const DataFolder data;
    const QString folder = data.store.copiesFolder() + '/';
    generation::write(folder + ".new-17", 1);
    generation::write(folder + ".gone", 2);
    generation::write(folder + ".old-2026-11-20", 3); // not replaced by a new copy
    generation::write(folder + ".old-2026-11-21", 4);
    generation::write(folder + "2026-11-21", 5);
    CopyShelf shelf(data.store);
    QCOMPARE(namesOf(shelf.copies()), QStringList{"2026-11-21"});
    shelf.tidy();
    QCOMPARE(QDir(folder).entryList(QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({"2026-11-20", "2026-11-21"}));
    QCOMPARE(data.copied("2026-11-20"), 3);
    QCOMPARE(data.copied("2026-11-21"), 5);
}

void tst_CopyShelf::copying_does_not_release_the_locks_of_sqlite()
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
        CopyShelf shelf(data.store);
        QCOMPARE(shelf.copyDay(today, true), QString());
        QCOMPARE(shelf.copyDay(today.addDays(1), true), QString());
    }
    QVERIFY(isLockedForOthers(data.store.database()));
    QVERIFY(query.exec("COMMIT"));
    QVERIFY(!isLockedForOthers(data.store.database()));
}

void tst_CopyShelf::seven_days_five_weeks_and_twelve_months_are_kept()
{
    // A copy on every day of two years, with rotation after each.
    QVector<Copy> left;
    for (QDate day(2024, 11, 22); day <= today; day = day.addDays(1)) {
        left = daily({day}) + left;
        for (const Copy &copy : CopyShelf::superfluous(left, day)) {
            left.erase(std::remove_if(left.begin(), left.end(),
                                      [&](const Copy &other) { return other.name() == copy.name(); }),
                       left.end());
        }
    }
    QCOMPARE(namesOf(left),
             QStringList({"2026-11-21", "2026-11-20", "2026-11-19", "2026-11-18", "2026-11-17", "2026-11-16",
                          "2026-11-15", "2026-11-14", "2026-11-08", "2026-11-01", "2026-10-31", "2026-10-25",
                          "2026-09-30", "2026-08-31", "2026-07-31", "2026-06-30", "2026-05-31", "2026-04-30",
                          "2026-03-31", "2026-02-28", "2026-01-31", "2025-12-31"}));
}

void tst_CopyShelf::a_wrong_clock_deletes_no_required_copy_data()
{
    QTest::addColumn<QDate>("wrong");
    QTest::newRow("years ahead") << QDate(2035, 1, 1);
    QTest::newRow("on a later day of a past week") << QDate(2026, 10, 25);
    QTest::newRow("a week ahead") << today.addDays(7);
    QTest::newRow("a week back") << today.addDays(-7);
    QTest::newRow("years back") << QDate(2011, 1, 1);
}

void tst_CopyShelf::a_wrong_clock_deletes_no_required_copy()
{
    QFETCH(QDate, wrong);
    // All copies that must exist on `today`.
    QVector<Copy> copies;
    for (int day = 0; day < 7; ++day)
        copies += daily({today.addDays(-day)});
    copies += daily({{2026, 11, 8},
                     {2026, 11, 1},
                     {2026, 10, 31},
                     {2026, 10, 23},
                     {2026, 9, 30},
                     {2026, 8, 31},
                     {2026, 7, 31},
                     {2026, 6, 30},
                     {2026, 5, 31},
                     {2026, 4, 30},
                     {2026, 3, 31},
                     {2026, 2, 28},
                     {2026, 1, 31},
                     {2025, 12, 31}});
    QCOMPARE(namesOf(CopyShelf::superfluous(copies, today)), QStringList());

    // Two starts with the wrong clock: the first one is followed by the copies of today and of the day before.
    for (const int changes : {int(today.toJulianDay()) - 2, int(today.toJulianDay()) + 1}) {
        copies += daily({changes > today.toJulianDay() ? wrong : wrong.addDays(-1)});
        copies.last().changes = quint32(changes);
    }
    std::sort(copies.begin(), copies.end(), [](const Copy &one, const Copy &other) { return one.day > other.day; });
    QCOMPARE(namesOf(CopyShelf::superfluous(copies, wrong)), QStringList());
    // Once the clock is right again, only the copies made with the wrong clock may be deleted.
    for (const Copy &copy : CopyShelf::superfluous(copies, today))
        QVERIFY2(copy.day == wrong || copy.day == wrong.addDays(-1), qPrintable(copy.name()));
}

void tst_CopyShelf::copies_before_an_upgrade_or_return_stay_for_twelve_months()
{
    Copy kept;
    kept.day = QDate(2025, 11, 15);
    kept.kind = Copy::BeforeUpgrade;
    QVector<Copy> copies;
    for (int month = 0; month < 12; ++month)
        copies += daily({today.addMonths(-month)});
    QCOMPARE(namesOf(CopyShelf::superfluous(copies + QVector<Copy>{kept}, today)), QStringList());
    copies = daily({today.addMonths(1)}) + copies;
    QCOMPARE(namesOf(CopyShelf::superfluous(copies + QVector<Copy>{kept}, today.addMonths(1))),
             QStringList{"2025-11-15-before-upgrade"});
}

QTEST_GUILESS_MAIN(tst_CopyShelf)

#include "tst_CopyShelf.moc"
