#include "lockholder.h"
#include "practice.h"
#include "testhome.h"

#include <QtTest>

namespace {

QString names(const Practice &practice)
{
    QStringList all;
    for (const QJsonValue &row : practice.file.rows("SELECT name FROM Patients ORDER BY id"))
        all << row.toArray().at(0).toString();
    return all.join(", ");
}

/// Every operation, with values that make it read or change patient 1.
void addOperations()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");

    const QJsonObject changed{{"id", 1}, {"name", "Durand"}, {"last", "rdv3"}};
    QTest::newRow("select all") << "select" << QJsonArray{""};
    QTest::newRow("select by filter") << "select" << QJsonArray{"du"};
    QTest::newRow("get") << "get" << QJsonArray{1};
    QTest::newRow("getNumber") << "getNumber" << QJsonArray();
    QTest::newRow("getWaitingNumber") << "getWaitingNumber" << QJsonArray();
    QTest::newRow("selectWaiting") << "selectWaiting" << QJsonArray();
    QTest::newRow("insert") << "insert" << QJsonArray{changed};
    QTest::newRow("update") << "update" << QJsonArray{changed};
    QTest::newRow("remove") << "remove" << QJsonArray{1};
    QTest::newRow("removeList") << "removeList" << only(QJsonArray{1});
}

} // namespace

class tst_StoreErrors : public QObject
{
    Q_OBJECT

private slots:
    void failing_statement_throws_and_calls_nothing_data() { addOperations(); }
    void failing_statement_throws_and_calls_nothing();
    void failing_write_undoes_its_changes_data();
    void failing_write_undoes_its_changes();
    void list_too_long_for_one_statement_deletes_nothing();

    void error_in_a_callback_reaches_the_caller_and_undoes_nothing_data();
    void error_in_a_callback_reaches_the_caller_and_undoes_nothing();

    void blocked_write_throws_unlike_a_stored_one_data();
    void blocked_write_throws_unlike_a_stored_one();
    void exclusively_locked_database_throws_from_every_operation_data() { addOperations(); }
    void exclusively_locked_database_throws_from_every_operation();
    void database_locked_at_the_start_is_used_once_it_is_free();
    void blocked_migration_is_done_at_the_next_start_data();
    void blocked_migration_is_done_at_the_next_start();
};

void tst_StoreErrors::failing_statement_throws_and_calls_nothing()
{
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    Practice practice;
    practice.file.run({"ALTER TABLE Patients RENAME TO Elsewhere"});
    const StoreCall call = practice.store.perform(operation, values);
    QVERIFY2(call.thrown.contains("no such table: Patients"), qPrintable(call.thrown));
    QCOMPARE(call.answers, QJsonArray());

    practice.file.run({"ALTER TABLE Elsewhere RENAME TO Patients"});
    QCOMPARE(practice.store.insertNamed("Dupont"), 1);
    QCOMPARE(names(practice), QString("Dupont"));
}

void tst_StoreErrors::failing_write_undoes_its_changes_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");
    QTest::newRow("insert") << "INSERT"
                            << "insert" << QJsonArray{QJsonObject{{"name", "Dupont"}}};
    QTest::newRow("update") << "UPDATE"
                            << "update" << QJsonArray{QJsonObject{{"id", 2}, {"name", "Dupont"}}};
    QTest::newRow("remove") << "DELETE"
                            << "remove" << QJsonArray{2};
    QTest::newRow("removeList") << "DELETE"
                                << "removeList" << only(QJsonArray{1, 2, 3});
}

void tst_StoreErrors::failing_write_undoes_its_changes()
{
    QFETCH(QString, event);
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    Practice practice;
    practice.file.run({"INSERT INTO Patients (name) VALUES ('A'), ('B'), ('C')",
                       // FAIL stops half-way and keeps the changes that the statement has made.
                       "CREATE TRIGGER Refusal AFTER " + event
                           + " ON Patients "
                             "BEGIN SELECT RAISE(FAIL, 'refused'); END"});
    const StoreCall call = practice.store.perform(operation, values);
    QVERIFY2(call.thrown.contains("refused"), qPrintable(call.thrown));
    QCOMPARE(call.answers, QJsonArray());
    QCOMPARE(names(practice), QString("A, B, C"));

    practice.file.run({"DROP TRIGGER Refusal"});
    practice.store.insertNamed("D");
    QCOMPARE(names(practice), QString("A, B, C, D"));
}

void tst_StoreErrors::list_too_long_for_one_statement_deletes_nothing()
{
    Practice practice;
    practice.file.run({"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40000) "
                       "INSERT INTO Patients (name) SELECT 'Patient ' || i FROM n"});
    QJsonArray ids;
    for (int id = 1; id <= 40000; ++id)
        ids << id;
    QVERIFY(!practice.store.perform("removeList", only(ids)).thrown.isEmpty());
    QCOMPARE(practice.file.value("SELECT COUNT(*) FROM Patients").toInt(), 40000);

    while (ids.count() > 900)
        ids.removeLast();
    QCOMPARE(practice.store.perform("removeList", only(ids)).thrown, QString());
    QCOMPARE(practice.file.value("SELECT COUNT(*) FROM Patients").toInt(), 39100);
}

void tst_StoreErrors::error_in_a_callback_reaches_the_caller_and_undoes_nothing_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("namesAfter");
    QTest::newRow("insert") << "Bdd.insert({name: 'Durand'}, CALLBACK)"
                            << "Dupont, Durand, last";
    QTest::newRow("update") << "Bdd.update({id: 1, name: 'Durand'}, CALLBACK)"
                            << "Durand, last";
    QTest::newRow("get") << "Bdd.get(1, CALLBACK)"
                         << "Dupont, last";
    QTest::newRow("select") << "Bdd.select('', CALLBACK)"
                            << "Dupont, last";
    QTest::newRow("getNumber") << "Bdd.getNumber(CALLBACK)"
                               << "Dupont, last";
    QTest::newRow("init") << "Bdd.init(CALLBACK)"
                          << "Dupont, last";
}

void tst_StoreErrors::error_in_a_callback_reaches_the_caller_and_undoes_nothing()
{
    QFETCH(QString, call);
    Practice practice;
    practice.store.insertNamed("Dupont");
    call.replace("CALLBACK", "function () { throw new Error('the document failed'); }");
    QCOMPARE(practice.store.evaluate(call), QJsonValue(QJsonObject{{"thrown", "the document failed"}}));
    practice.store.insertNamed("last");
    QTEST(names(practice), "namesAfter");
}

void tst_StoreErrors::blocked_write_throws_unlike_a_stored_one_data()
{
    QTest::addColumn<LockHolder::Lock>("lock");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");
    QTest::addColumn<QString>("namesAfter");

    const QJsonArray insertion{QJsonObject{{"name", "Durand"}}};
    const QJsonArray change{QJsonObject{{"id", 1}, {"name", "Durand"}}};
    QTest::newRow("insert while another reads") << LockHolder::Reading << "insert" << insertion << "Dupont, Durand";
    QTest::newRow("update while another reads") << LockHolder::Reading << "update" << change << "Durand";
    QTest::newRow("remove while another reads") << LockHolder::Reading << "remove" << QJsonArray{1} << "";
    QTest::newRow("removeList while another reads") << LockHolder::Reading << "removeList" << only(QJsonArray{1}) << "";
    QTest::newRow("update while another writes") << LockHolder::Writing << "update" << change << "Durand";
}

void tst_StoreErrors::blocked_write_throws_unlike_a_stored_one()
{
    QFETCH(LockHolder::Lock, lock);
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    Practice practice;
    practice.store.insertNamed("Dupont");
    {
        LockHolder other(practice.file.path(), lock);
        QElapsedTimer waited;
        waited.start();
        const StoreCall blocked = practice.store.perform(operation, values);
        QVERIFY2(blocked.thrown.contains("database is locked"), qPrintable(blocked.thrown));
        QCOMPARE(blocked.answers, QJsonArray());
        // The window is frozen meanwhile.
        QVERIFY2(waited.elapsed() < 3000, qPrintable(QString::number(waited.elapsed())));
        QCOMPARE(practice.store.get(1)["name"].toString(), QString("Dupont"));
    }
    QCOMPARE(names(practice), QString("Dupont"));
    QCOMPARE(practice.store.perform(operation, values).thrown, QString());
    QTEST(names(practice), "namesAfter");
}

void tst_StoreErrors::exclusively_locked_database_throws_from_every_operation()
{
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    Practice practice;
    practice.store.insertNamed("Dupont");
    // Another test measures the wait.
    practice.file.runInStores("PRAGMA busy_timeout = 0");
    {
        const LockHolder other(practice.file.path(), LockHolder::Alone);
        const StoreCall blocked = practice.store.perform(operation, values);
        QVERIFY2(blocked.thrown.contains("database is locked"), qPrintable(blocked.thrown));
        QCOMPARE(blocked.answers, QJsonArray());
    }
    QCOMPARE(names(practice), QString("Dupont"));
    QCOMPARE(practice.store.perform(operation, values).thrown, QString());
}

void tst_StoreErrors::database_locked_at_the_start_is_used_once_it_is_free()
{
    const PatientFile file;
    file.leavePatient("Dupont");
    PatientEngine engine(file);
    StoreDocument later(&engine);
    {
        const LockHolder other(file.path(), LockHolder::Alone);
        const StoreCall call = later.perform("init");
        QVERIFY2(call.thrown.contains("database is locked"), qPrintable(call.thrown));
        QCOMPARE(call.answers, QJsonArray());
    }
    QCOMPARE(later.perform("init").answers.count(), 1);
    QCOMPARE(later.get(1)["name"].toString(), QString("Dupont"));
    QCOMPARE(later.insertNamed("Durand"), 2);
}

void tst_StoreErrors::blocked_migration_is_done_at_the_next_start_data()
{
    QTest::addColumn<LockHolder::Lock>("lock");
    QTest::addColumn<QString>("version");
    QTest::newRow("another reads, older") << LockHolder::Reading << "1.2";
    QTest::newRow("another reads, no version") << LockHolder::Reading << "";
    QTest::newRow("another holds an exclusive lock, older") << LockHolder::Alone << "1.2";
    QTest::newRow("another holds an exclusive lock, no version") << LockHolder::Alone << "";
}

void tst_StoreErrors::blocked_migration_is_done_at_the_next_start()
{
    QFETCH(LockHolder::Lock, lock);
    QFETCH(QString, version);
    const PatientFile file;
    file.run({"CREATE TABLE Patients (id INTEGER PRIMARY KEY, name)"});
    file.record(version);
    PatientEngine engine(file);
    {
        const LockHolder other(file.path(), lock);
        StoreDocument blocked(&engine);
        QElapsedTimer waited;
        waited.start();
        const StoreCall call = blocked.perform("init");
        QVERIFY(!call.thrown.isEmpty());
        QCOMPARE(call.answers, QJsonArray());
        QVERIFY2(waited.elapsed() < 3000, qPrintable(QString::number(waited.elapsed())));
    }
    QCOMPARE(file.recorded("Version"), version);

    StoreDocument next(&engine);
    QCOMPARE(next.perform("init").thrown, QString());
    QCOMPARE(file.recorded("Version"), QString("1.3"));
    QCOMPARE(next.insertNamed("Dupont"), 1);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreErrors test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreErrors.moc"
