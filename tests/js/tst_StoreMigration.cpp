#include "installation.h"
#include "practice.h"
#include "testhome.h"

#include <QtTest>

class tst_StoreMigration : public QObject
{
    Q_OBJECT

private slots:
    void patients_of_older_versions_are_dropped_and_others_stay_data();
    void patients_of_older_versions_are_dropped_and_others_stay();
    void table_of_an_older_schema_is_replaced();
    void second_document_keeps_what_the_first_one_migrated();
    void dropping_patients_is_logged_before_it_happens();
    void interrupted_migration_is_completed_by_the_next_start_data();
    void interrupted_migration_is_completed_by_the_next_start();
    void simultaneously_started_copy_can_migrate_first_data();
    void simultaneously_started_copy_can_migrate_first();
};

void tst_StoreMigration::patients_of_older_versions_are_dropped_and_others_stay_data()
{
    QTest::addColumn<QString>("versionBefore");
    QTest::addColumn<QString>("versionAfter");
    QTest::addColumn<int>("patientsAfter");

    QTest::newRow("1.0") << "1.0"
                         << "1.3" << 0;
    QTest::newRow("1.1") << "1.1"
                         << "1.3" << 0;
    QTest::newRow("1.2") << "1.2"
                         << "1.3" << 0;
    QTest::newRow("current") << "1.3"
                             << "1.3" << 1;
    QTest::newRow("unknown, newer") << "9.9"
                                    << "9.9" << 1;
    QTest::newRow("unknown, older") << "0.9"
                                    << "0.9" << 1;
    QTest::newRow("empty") << ""
                           << "1.3" << 0;
    QTest::newRow("not recorded") << "none"
                                  << "1.3" << 0;
}

void tst_StoreMigration::patients_of_older_versions_are_dropped_and_others_stay()
{
    QFETCH(QString, versionBefore);
    QFETCH(QString, versionAfter);
    QFETCH(int, patientsAfter);
    const PatientFile file;
    leaveInstallation(file, versionBefore);
    PatientEngine engine(file);
    StoreDocument store(&engine);

    const StoreCall call = store.perform("init");
    QCOMPARE(call.thrown, QString());
    QCOMPARE(file.recorded("Version"), versionAfter);
    QCOMPARE(file.value("SELECT COUNT(*) FROM Patients").toInt(), patientsAfter);
    QCOMPARE(store.perform("getNumber").answer(), QJsonValue(QJsonObject{{"count", patientsAfter}}));
}

void tst_StoreMigration::table_of_an_older_schema_is_replaced()
{
    const PatientFile file;
    leaveInstallation(file, "1.2", "CREATE TABLE `Patients`(`id` INTEGER PRIMARY KEY, `genderMale`, `name`)");
    PatientEngine engine(file);
    StoreDocument(&engine).perform("init");
    QCOMPARE(file.value("SELECT sql FROM sqlite_master WHERE name = 'Patients'").toString(), QString(createStatement));
}

void tst_StoreMigration::second_document_keeps_what_the_first_one_migrated()
{
    const PatientFile file;
    leaveInstallation(file, "1.2");
    PatientEngine engine(file);
    StoreDocument first(&engine);
    first.perform("init");
    first.insertNamed("Durand");
    StoreDocument second(&engine);
    second.perform("init");
    QCOMPARE(listed(second.perform("select", {""}).answer()), QString("Durand"));
}

void tst_StoreMigration::dropping_patients_is_logged_before_it_happens()
{
    const PatientFile file;
    leaveInstallation(file, "1.2");
    PatientEngine engine(file);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression("version \"1.2\": its patients are dropped, in number 1\\.$"));
    StoreDocument(&engine).perform("init");
}

void tst_StoreMigration::interrupted_migration_is_completed_by_the_next_start_data()
{
    QTest::addColumn<QString>("version");
    for (const char *version : {"1.0", "1.1", "1.2", "", "1.3"})
        QTest::newRow(version) << version;
}

void tst_StoreMigration::interrupted_migration_is_completed_by_the_next_start()
{
    QFETCH(QString, version);
    const PatientFile file;
    leaveInstallation(file, version);
    file.run({"DROP TABLE Patients"});
    PatientEngine engine(file);
    StoreDocument store(&engine);
    QCOMPARE(store.perform("init").thrown, QString());
    QCOMPARE(file.recorded("Version"), QString("1.3"));
    QCOMPARE(store.insertNamed("Durand"), 1);
}

void tst_StoreMigration::simultaneously_started_copy_can_migrate_first_data()
{
    QTest::addColumn<QString>("version");

    for (const char *version : {"1.0", "1.2", ""})
        QTest::newRow(*version ? version : "no version") << version;
}

void tst_StoreMigration::simultaneously_started_copy_can_migrate_first()
{
    QFETCH(QString, version);
    static const PatientFile *migratedByAnother = nullptr;
    static int warnings;
    const PatientFile file;
    leaveInstallation(file, version);
    migratedByAnother = &file;
    warnings = 0;
    PatientEngine engine(file);
    StoreDocument store(&engine);
    // This line is logged right before the version changes.
    const QtMessageHandler testLog = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &, const QString &text) {
            warnings += type == QtWarningMsg;
            if (text.contains("its patients are dropped"))
                migratedByAnother->record("1.3");
        });
    const StoreCall opening = store.perform("init");
    qInstallMessageHandler(testLog);
    QCOMPARE(warnings, 1);
    QCOMPARE(opening.thrown, QString());
    QCOMPARE(file.recorded("Version"), QString("1.3"));
    QCOMPARE(listed(store.perform("select", {""}).answer()), QString("Dupont"));
    QCOMPARE(store.insertNamed("Durand"), 2);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreMigration test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreMigration.moc"
