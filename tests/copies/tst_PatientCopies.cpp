#include "exchange.h"
#include "patientcopies.h"
#include "support/generation.h"
#include "testclock.h"

#include <QtTest>

namespace {

QStringList logged;

void log(QtMsgType, const QMessageLogContext &, const QString &message)
{
    logged << message;
}

} // namespace

class tst_PatientCopies : public QObject
{
    Q_OBJECT

private slots:
    void a_first_start_copies_and_logs_nothing();
    void a_start_and_each_new_day_make_a_copy();
    void patients_of_an_old_version_are_copied_at_the_start();
    void a_missing_database_is_logged_if_copies_exist();
    void a_failure_is_logged_once_a_day_and_the_program_keeps_running_data();
    void a_failure_is_logged_once_a_day_and_the_program_keeps_running();
    void an_unfinished_exchange_is_completed_before_the_copy();
    void a_committed_exchange_replaces_all_files();
    void an_uncommitted_exchange_changes_nothing();
    void the_store_is_locked_as_long_as_the_program_runs();
    void an_empty_lock_of_the_record_does_not_delay_the_start();
};

void tst_PatientCopies::a_first_start_copies_and_logs_nothing()
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
    copies.copyOnNewDay();
    QCOMPARE(data.copied("2026-11-21"), 1);
    clock.moveTo("2026-11-22 00:30:00");
    copies.copyOnNewDay();
    QCOMPARE(data.copied("2026-11-22"), 2);
    data.write(3);
    copies.copyOnNewDay();
    QCOMPARE(data.copied("2026-11-22"), 2);
}

void tst_PatientCopies::patients_of_an_old_version_are_copied_at_the_start()
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

void tst_PatientCopies::a_missing_database_is_logged_if_copies_exist()
{
    const DataFolder data;
    generation::write(data.store.copiesFolder() + "/2026-11-01", 2);
    QTest::ignoreMessage(QtWarningMsg, "The patients are not copied today: the database is missing or empty");
    PatientCopies copies(data.store);
    copies.begin();
}

void tst_PatientCopies::an_empty_lock_of_the_record_does_not_delay_the_start()
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

void tst_PatientCopies::a_failure_is_logged_once_a_day_and_the_program_keeps_running_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("line");
    QTest::newRow("today's patients") << QByteArray("1.3") << "The patients are not copied today: File exists";
    QTest::newRow("patients of an old version")
        << QByteArray("1.2") << "The patients are not copied before they are thrown away: File exists";
}

void tst_PatientCopies::a_failure_is_logged_once_a_day_and_the_program_keeps_running()
{
    QFETCH(QByteArray, version);
    const TestClock clock("2026-11-21 10:00:00");
    const DataFolder data;
    data.write(2);
    generation::writeFile(data.store.record(), "[General]\nVersion=" + version);
    generation::writeFile(data.store.copiesFolder(), "a file where the folder should be");
    logged.clear();
    const QtMessageHandler original = qInstallMessageHandler(log);
    PatientCopies copies(data.store);
    copies.begin();
    copies.copyOnNewDay();
    qInstallMessageHandler(original);
    QTEST(logged.join('\n'), "line");
}

void tst_PatientCopies::an_unfinished_exchange_is_completed_before_the_copy()
{
    TestClock clock("2026-11-21 10:00:00");
    const DataFolder data;
    data.write(1);
    // The state after a kill right after the new database was renamed into place.
    generation::write(data.store.folder() + "/.return", 2);
    QVERIFY(QFile::remove(data.store.database()));
    QVERIFY(QFile::rename(data.store.folder() + "/.return/" + StoreFiles::databaseName(), data.store.database()));
    QVERIFY(QFile::remove(data.store.folder() + '/' + StoreFiles::companionNames().first()));
    PatientCopies copies(data.store);
    copies.begin();
    QCOMPARE(generation::in(data.store.folder()), 2);
    QCOMPARE(data.copied("2026-11-21"), 2);
}

void tst_PatientCopies::a_committed_exchange_replaces_all_files()
{
    const DataFolder data;
    data.write(1); // with a journal that must not be played back into the new database
    Exchange exchange(data.store);
    generation::write(exchange.begin(), 2);
    QCOMPARE(exchange.commit(), QString());
    QCOMPARE(generation::in(data.store.folder()), 2);
    QCOMPARE(QDir(data.store.folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 2);
}

void tst_PatientCopies::an_uncommitted_exchange_changes_nothing()
{
    const DataFolder data;
    data.write(1);
    Exchange exchange(data.store);
    generation::write(exchange.begin(), 2);
    QCOMPARE(exchange.finish(), QString());
    QCOMPARE(generation::in(data.store.folder()), 1);
    QCOMPARE(QDir(data.store.folder()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

void tst_PatientCopies::the_store_is_locked_as_long_as_the_program_runs()
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
