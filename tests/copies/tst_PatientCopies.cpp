#include "exchange.h"
#include "generation.h"
#include "patientcopies.h"
#include "testclock.h"

#include <QtTest>

class tst_PatientCopies : public QObject
{
    Q_OBJECT

private slots:
    void a_first_start_has_nothing_to_copy_and_nothing_to_say();
    void a_start_and_each_new_day_make_a_copy();
    void patients_of_an_old_version_are_kept_at_the_start();
    void a_missing_database_is_said_once_there_are_copies();
    void a_failure_is_said_and_the_program_runs_on();
    void a_half_exchange_is_finished_before_the_copy();
    void an_exchange_decided_for_replaces_all_files();
    void an_exchange_not_decided_for_changes_nothing();
    void the_store_is_in_use_as_long_as_the_program_runs();
    void an_empty_lock_of_the_record_does_not_hold_the_start_up();
};

void tst_PatientCopies::a_first_start_has_nothing_to_copy_and_nothing_to_say()
{
    const DataFolder data;
    QTest::ignoreMessage(QtDebugMsg, "started");
    PatientCopies copies(data.store);
    copies.begin();
    qDebug("started");
    QVERIFY(!QFileInfo::exists(data.store.copiesFolder()));
}

void tst_PatientCopies::a_start_and_each_new_day_make_a_copy()
{
    TestClock clock("2026-11-21 23:30:00");
    const DataFolder data;
    data.write(1);
    PatientCopies copies(data.store);
    copies.begin();
    QCOMPARE(data.copied("2026-11-21"), 1);
    data.write(2);
    copies.look();
    QCOMPARE(data.copied("2026-11-21"), 1);
    clock.moveTo("2026-11-22 00:30:00");
    copies.look();
    QCOMPARE(data.copied("2026-11-22"), 2);
    data.write(3);
    copies.look();
    QCOMPARE(data.copied("2026-11-22"), 2);
}

void tst_PatientCopies::patients_of_an_old_version_are_kept_at_the_start()
{
    TestClock clock("2026-11-21 10:00:00");
    const DataFolder data;
    data.write(4);
    generation::writeFile(data.store.record(), "[General]\nVersion=1.2\nGeneration=4");
    PatientCopies copies(data.store);
    copies.begin();
    QCOMPARE(data.copied("2026-11-21-before-upgrade"), 4);
    QCOMPARE(QDir(data.store.copiesFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

void tst_PatientCopies::a_missing_database_is_said_once_there_are_copies()
{
    const DataFolder data;
    generation::write(data.store.copiesFolder() + "/2026-11-01", 2);
    QTest::ignoreMessage(QtWarningMsg, "The patients are not copied today: the database is missing or empty");
    PatientCopies copies(data.store);
    copies.begin();
}

void tst_PatientCopies::an_empty_lock_of_the_record_does_not_hold_the_start_up()
{
    const DataFolder data;
    data.write(1);
    const QString lock = data.store.record() + ".lock";
    for (const QByteArray &content : {QByteArray(), QByteArray("4711\ntandry\nhost\n")}) {
        generation::writeFile(lock, content);
        PatientCopies(data.store).begin();
        QCOMPARE(QFileInfo::exists(lock), !content.isEmpty());
    }
}

void tst_PatientCopies::a_failure_is_said_and_the_program_runs_on()
{
    const DataFolder data;
    data.write(2);
    generation::writeFile(data.store.copiesFolder(), "a file where the folder should be");
    QTest::ignoreMessage(QtWarningMsg, "The patients are not copied today: File exists");
    PatientCopies copies(data.store);
    copies.begin();
}

void tst_PatientCopies::a_half_exchange_is_finished_before_the_copy()
{
    TestClock clock("2026-11-21 10:00:00");
    const DataFolder data;
    data.write(1);
    // As a process leaves it that dies once it has put the new database in place.
    generation::write(data.store.folder() + "/.return", 2);
    QVERIFY(QFile::remove(data.store.database()));
    QVERIFY(QFile::rename(data.store.folder() + "/.return/" + StoreFiles::databaseName(), data.store.database()));
    QVERIFY(QFile::remove(data.store.folder() + '/' + StoreFiles::companionNames().first()));
    PatientCopies copies(data.store);
    copies.begin();
    QCOMPARE(generation::in(data.store.folder()), 2);
    QCOMPARE(data.copied("2026-11-21"), 2);
}

void tst_PatientCopies::an_exchange_decided_for_replaces_all_files()
{
    const DataFolder data;
    data.write(1); // with a journal that must not be played back into the next
    Exchange exchange(data.store);
    generation::write(exchange.begin(), 2);
    QCOMPARE(exchange.commit(), QString());
    QCOMPARE(generation::in(data.store.folder()), 2);
    QCOMPARE(QDir(data.store.folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
}

void tst_PatientCopies::an_exchange_not_decided_for_changes_nothing()
{
    const DataFolder data;
    data.write(1);
    Exchange exchange(data.store);
    generation::write(exchange.begin(), 2);
    QCOMPARE(exchange.finish(), QString());
    QCOMPARE(generation::in(data.store.folder()), 1);
    QCOMPARE(QDir(data.store.folder()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void tst_PatientCopies::the_store_is_in_use_as_long_as_the_program_runs()
{
    const DataFolder data;
    StoreLock other(data.store);
    {
        PatientCopies copies(data.store);
        copies.begin();
        QCOMPARE(other.take(), StoreLock::HeldElsewhere);
    }
    QCOMPARE(other.take(), StoreLock::Taken);
}

QTEST_GUILESS_MAIN(tst_PatientCopies)

#include "tst_PatientCopies.moc"
