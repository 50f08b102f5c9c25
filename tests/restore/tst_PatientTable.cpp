#include "support/practicefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace practice;

namespace {

/// The columns of the table in that folder with their declared types: "created date".
QStringList typedColumns(const QString &folder)
{
    QStringList columns;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "columns");
        database.setDatabaseName(folder + '/' + StoreFiles::databaseName());
        if (!database.open())
            qFatal("%s", qPrintable(database.lastError().text()));
        QSqlQuery query("SELECT name, type FROM pragma_table_info('Patients') ORDER BY name", database);
        while (query.next())
            columns << query.value(0).toString() + ' ' + query.value(1).toString();
    }
    QSqlDatabase::removeDatabase("columns");
    return columns;
}

} // namespace

class tst_PatientTable : public QObject
{
    Q_OBJECT

private slots:
    void patients_are_read_in_the_order_of_their_names_with_defaults_for_nulls();
    void a_missing_database_is_an_error_and_is_not_created();
    void an_unreadable_database_reports_its_reason_data();
    void an_unreadable_database_reports_its_reason();
    void a_journal_is_played_back_in_a_copy_of_the_copy();
    void patients_are_restored_with_dates_and_answers_under_new_ids();
    void an_older_table_gets_the_current_columns_and_version();
};

void tst_PatientTable::patients_are_read_in_the_order_of_their_names_with_defaults_for_nulls()
{
    const QTemporaryDir place;
    write(place.path(), {martin, dupont, "UPDATE Patients SET phone = NULL"});
    const PatientTable table = PatientTable::read(place.path());
    QCOMPARE(table.error, QString());
    QCOMPARE(names(table), QStringList({"DUPONT Marie", "MARTIN Paul"}));
    QCOMPARE(table.rows.first().value("phone"), QVariant(QString()));
    QCOMPARE(table.rows.first().value("test_date"), QVariant("2014-05-12"));
    QCOMPARE(table.lastId, 2);
    QCOMPARE(QDir(place.path()).entryList(QDir::Files).size(), 2); // reading created no files
    QCOMPARE(QSqlDatabase::connectionNames(), QStringList());
}

void tst_PatientTable::a_missing_database_is_an_error_and_is_not_created()
{
    const QTemporaryDir place;
    QVERIFY(!PatientTable::read(place.path()).error.isEmpty());
    QVERIFY(QDir(place.path()).isEmpty());
}

void tst_PatientTable::an_unreadable_database_reports_its_reason_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("fails");
    QTest::newRow("no database") << QByteArray("something else, and long enough for a header of any kind") << true;
    QTest::newRow("empty") << QByteArray() << false;
}

void tst_PatientTable::an_unreadable_database_reports_its_reason()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir place;
    QFile file(place.filePath(StoreFiles::databaseName()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    const PatientTable table = PatientTable::read(place.path());
    QTEST(!table.error.isEmpty(), "fails");
    QCOMPARE(table.rows.size(), 0);
}

void tst_PatientTable::a_journal_is_played_back_in_a_copy_of_the_copy()
{
    const QTemporaryDir place;
    const QString before = place.filePath("before");
    const QString cut = place.filePath("cut");
    write(before, {dupont});
    // A process killed during a commit: the new pages are in the file, the old ones in the journal.
    QDir().mkpath(cut);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "cut");
        database.setDatabaseName(before + '/' + StoreFiles::databaseName());
        QVERIFY(database.open());
        QSqlQuery query(database);
        QVERIFY(query.exec("PRAGMA cache_size = 1") && query.exec("BEGIN IMMEDIATE"));
        QVERIFY(query.exec("UPDATE Patients SET name = 'HALF Written'"));
        for (int row = 0; row < 2000; ++row)
            QVERIFY(query.exec("INSERT INTO Patients (name) VALUES ('Filler that makes the cache spill to the file')"));
        for (const QString &name : QDir(before).entryList(QDir::Files))
            QVERIFY(QFile::copy(before + '/' + name, cut + '/' + name));
        QVERIFY(query.exec("ROLLBACK"));
    }
    QSqlDatabase::removeDatabase("cut");
    QVERIFY(QFileInfo(cut + '/' + StoreFiles::companionNames().first()).size() > 0);
    QCOMPARE(names(PatientTable::read(cut)), QStringList{"DUPONT Marie"});
    QVERIFY(QFileInfo(cut + '/' + StoreFiles::companionNames().first()).size() > 0); // unchanged
}

void tst_PatientTable::patients_are_restored_with_dates_and_answers_under_new_ids()
{
    const QTemporaryDir place;
    write(place.filePath("copy"), {dupont, martin});
    write(place.filePath("today"), {martin});
    const PatientTable copy = PatientTable::read(place.filePath("copy"));
    QCOMPARE(patients::add(place.filePath("today"), {copy.rows.first()}), QString());
    const PatientTable today = PatientTable::read(place.filePath("today"));
    QCOMPARE(names(today), QStringList({"DUPONT Marie", "MARTIN Paul"}));
    QVariantMap expected = copy.rows.first();
    expected["id"] = 2;
    QCOMPARE(today.rows.first(), expected);
    QVERIFY(!patients::add(place.path(), copy.rows).isEmpty()); // there is no table
}

void tst_PatientTable::an_older_table_gets_the_current_columns_and_version()
{
    const QTemporaryDir place;
    run(place.path(),
        {"CREATE TABLE `Patients` (`id` INTEGER PRIMARY KEY, `name` TEXT)",
         "INSERT INTO Patients (name) VALUES ('DUPONT Marie')"});
    QCOMPARE(patients::bringUpToDate(place.path()), QString());
    QCOMPARE(StoreFiles::versionIn(place.path()), QString("1.3"));
    run(place.path(), {dupont}); // the statement names the current columns
    write(place.filePath("current"), {});
    QCOMPARE(typedColumns(place.path()), typedColumns(place.filePath("current")));
    QCOMPARE(typedColumns(place.path()).size(), 16);
    QCOMPARE(names(PatientTable::read(place.path())), QStringList({"DUPONT Marie", "DUPONT Marie"}));
}

QTEST_GUILESS_MAIN(tst_PatientTable)

#include "tst_PatientTable.moc"
