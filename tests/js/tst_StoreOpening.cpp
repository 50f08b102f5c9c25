#include "installation.h"
#include "practice.h"
#include "testhome.h"

#include <QtTest>

class tst_StoreOpening : public QObject
{
    Q_OBJECT

private slots:
    void first_start_creates_an_empty_database_of_the_current_version();
    void ids_are_never_reused();

    void second_start_keeps_the_patients();
    void record_lost_while_running_drops_no_patient_data();
    void record_lost_while_running_drops_no_patient();
    void folder_moved_away_is_not_created_again_by_a_later_document();

    void init_calls_back_each_time_after_the_table_exists();
    void init_works_without_a_callback();
    void second_init_does_not_open_again();

    void nothing_happens_before_init_data();
    void nothing_happens_before_init();
    void insert_before_init_still_logs();
    void each_document_opens_its_own_store();
    void documents_see_each_others_patients();
    void engines_see_each_others_patients();
};

void tst_StoreOpening::first_start_creates_an_empty_database_of_the_current_version()
{
    Practice practice;
    QCOMPARE(practice.file.recorded("Version"), QString("1.3"));
    QCOMPARE(practice.file.rows("SELECT * FROM Patients"), QJsonArray());
    QCOMPARE(practice.store.perform("getNumber").answer(), QJsonValue(QJsonObject{{"count", 0}}));
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), QJsonValue(QJsonObject{{"count", 0}}));
}

void tst_StoreOpening::ids_are_never_reused()
{
    Practice practice;
    QCOMPARE(practice.store.insertNamed("Adu"), 1);
    QCOMPARE(practice.store.insertNamed("Dupont"), 2);
    practice.store.performWithoutCallback("remove", {2});
    QCOMPARE(practice.store.insertNamed("Durand"), 3);
}

void tst_StoreOpening::second_start_keeps_the_patients()
{
    const PatientFile file;
    {
        PatientEngine engine(file);
        StoreDocument store(&engine);
        store.perform("init");
        store.insertNamed("Dupont");
    }
    file.closeStores();
    PatientEngine engine(file);
    StoreDocument store(&engine);
    store.perform("init");
    QCOMPARE(listed(store.perform("select", {""}).answer()), QString("Dupont"));
}

void tst_StoreOpening::record_lost_while_running_drops_no_patient_data()
{
    QTest::addColumn<bool>("emptied");
    QTest::newRow("removed") << false;
    QTest::newRow("emptied") << true;
}

void tst_StoreOpening::record_lost_while_running_drops_no_patient()
{
    QFETCH(bool, emptied);
    Practice practice;
    practice.store.insertNamed("Dupont");
    QVERIFY(QFile::remove(practice.file.recordPath()));
    if (emptied)
        QVERIFY(QFile(practice.file.recordPath()).open(QIODevice::WriteOnly));
    PatientEngine secondWindow(practice.file);
    StoreDocument laterDocument(&practice.engine);
    StoreDocument laterWindow(&secondWindow);
    for (StoreDocument *later : {&laterDocument, &laterWindow}) {
        QCOMPARE(later->perform("init").thrown, QString());
        QCOMPARE(listed(later->perform("select", {""}).answer()), QString("Dupont"));
    }
}

void tst_StoreOpening::folder_moved_away_is_not_created_again_by_a_later_document()
{
    Practice practice;
    const QString folder = practice.file.folder();
    QVERIFY(QDir().rename(folder, folder + ".away"));
    StoreDocument later(&practice.engine);
    later.perform("init");
    QVERIFY(!QFileInfo::exists(folder));
    QVERIFY(QDir().rename(folder + ".away", folder));
}

void tst_StoreOpening::init_calls_back_each_time_after_the_table_exists()
{
    const PatientFile file;
    PatientEngine engine(file);
    StoreDocument store(&engine);
    const QString opening = "var order = [];"
                            "Bdd.init(function () {"
                            "    order.push('called with ' + arguments.length);"
                            "    Bdd.getNumber(function (row) { order.push('counted ' + row.count); });"
                            "});"
                            "order.push('returned');"
                            "order";
    const QJsonArray expected{"called with 0", "counted 0", "returned"};
    QCOMPARE(store.evaluate(opening), QJsonValue(expected));
    QCOMPARE(store.evaluate(opening), QJsonValue(expected));
}

void tst_StoreOpening::init_works_without_a_callback()
{
    const PatientFile file;
    PatientEngine engine(file);
    StoreDocument store(&engine);
    QVERIFY(store.performWithoutCallback("init").isSilent());
    QVERIFY(store.performWithoutCallback("init").isSilent());
    QCOMPARE(store.perform("getNumber").answer(), QJsonValue(QJsonObject{{"count", 0}}));
}

void tst_StoreOpening::second_init_does_not_open_again()
{
    Practice practice;
    practice.store.insertNamed("Dupont");
    practice.file.run({"DROP TABLE Patients"});
    QCOMPARE(practice.store.perform("init").answers.count(), 1);
    QCOMPARE(practice.file.rows("SELECT name FROM sqlite_master WHERE name = 'Patients'"), QJsonArray());
}

void tst_StoreOpening::nothing_happens_before_init_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");

    const QJsonObject patient{{"id", 1}, {"name", "Durand"}, {"last", "test"}};
    QTest::newRow("select all") << "select" << QJsonArray{""};
    QTest::newRow("select by filter") << "select" << QJsonArray{"du"};
    QTest::newRow("get") << "get" << QJsonArray{1};
    QTest::newRow("insert") << "insert" << QJsonArray{patient};
    QTest::newRow("update") << "update" << QJsonArray{patient};
    QTest::newRow("remove") << "remove" << QJsonArray{1};
    QTest::newRow("removeList") << "removeList" << only(QJsonArray{1});
    QTest::newRow("removeList of nothing") << "removeList" << only(QJsonArray());
    QTest::newRow("getWaitingNumber") << "getWaitingNumber" << QJsonArray();
    QTest::newRow("getNumber") << "getNumber" << QJsonArray();
    QTest::newRow("selectWaiting") << "selectWaiting" << QJsonArray();
}

void tst_StoreOpening::nothing_happens_before_init()
{
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    const PatientFile file;
    leaveInstallation(file, "1.3");
    PatientEngine engine(file);
    StoreDocument store(&engine);
    QVERIFY(store.perform(operation, values).isSilent());
    QCOMPARE(file.rows("SELECT id, name FROM Patients"), only(QJsonArray{1, "Dupont"}));
}

void tst_StoreOpening::insert_before_init_still_logs()
{
    const PatientFile file;
    PatientEngine engine(file);
    StoreDocument store(&engine);
    QTest::ignoreMessage(QtDebugMsg, "Insert called");
    QVERIFY(store.perform("insert", {QJsonObject{{"name", "Durand"}}}).isSilent());
}

void tst_StoreOpening::each_document_opens_its_own_store()
{
    Practice practice;
    StoreDocument other(&practice.engine);
    QVERIFY(other.perform("getNumber").isSilent());
    other.perform("init");
    QCOMPARE(other.perform("getNumber").answers.count(), 1);
}

void tst_StoreOpening::documents_see_each_others_patients()
{
    Practice practice;
    StoreDocument other(&practice.engine);
    other.perform("init");
    const int id = practice.store.insertNamed("Dupont");
    QCOMPARE(other.get(id)["name"].toString(), QString("Dupont"));
    other.performWithoutCallback("remove", {id});
    QVERIFY(practice.store.perform("get", {id}).isSilent());
}

void tst_StoreOpening::engines_see_each_others_patients()
{
    Practice practice;
    PatientEngine secondWindow(practice.file);
    StoreDocument other(&secondWindow);
    other.perform("init");
    other.insertNamed("Dupont");
    QCOMPARE(listed(practice.store.perform("select", {"du"}).answer().toObject()["startsWith"]), QString("Dupont"));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreOpening test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreOpening.moc"
