#include "installation.h"
#include "practice.h"
#include "testhome.h"

#include <QtTest>

class tst_StoreOpening : public QObject
{
    Q_OBJECT

private slots:
    void first_start_makes_an_empty_database_at_the_current_version();
    void database_is_recorded_under_its_name_version_and_size();
    void table_is_created_by_exactly_this_statement();
    void columns_have_their_types_constraints_and_defaults_data();
    void columns_have_their_types_constraints_and_defaults();
    void columns_left_out_take_their_defaults();
    void ids_are_never_used_again();

    void second_start_keeps_the_patients();
    void record_lost_while_running_costs_no_patient_data();
    void record_lost_while_running_costs_no_patient();
    void folder_moved_away_is_not_made_anew_by_a_later_document();

    void callback_of_init_comes_each_time_after_the_table_exists();
    void init_does_without_a_callback();
    void second_init_does_not_open_again();

    void nothing_happens_before_init_data();
    void nothing_happens_before_init();
    void insert_before_init_still_logs();
    void each_document_opens_for_itself();
    void documents_see_each_others_patients();
    void engines_see_each_others_patients();
};

void tst_StoreOpening::first_start_makes_an_empty_database_at_the_current_version()
{
    Practice practice;
    QCOMPARE(practice.file.recorded("Version"), QString("1.3"));
    QCOMPARE(practice.file.rows("SELECT * FROM Patients"), QJsonArray());
    QCOMPARE(practice.store.perform("getNumber").answer(), QJsonValue(QJsonObject{{"count", 0}}));
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), QJsonValue(QJsonObject{{"count", 0}}));
}

void tst_StoreOpening::database_is_recorded_under_its_name_version_and_size()
{
    const Practice practice;
    QCOMPARE(practice.file.recorded("Name"), QString("Tandry"));
    QCOMPARE(practice.file.recorded("Version"), QString("1.3"));
    QCOMPARE(practice.file.recorded("Description"), QString("Tandry widget storage"));
    QCOMPARE(practice.file.recorded("EstimatedSize"), QString("500000"));
}

void tst_StoreOpening::table_is_created_by_exactly_this_statement()
{
    const Practice practice;
    // SQLite keeps the statement as it was given, only without IF NOT EXISTS.
    QCOMPARE(practice.file.rows("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = 'Patients'"),
             only(QJsonArray{createStatement}));
}

void tst_StoreOpening::columns_have_their_types_constraints_and_defaults_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QJsonArray>("column");

    // name, type, not null, default, part of the primary key
    const QJsonValue none(QJsonValue::Null);
    QTest::newRow("id") << 0 << QJsonArray{"id", "INTEGER", 0, none, 1};
    QTest::newRow("genderMale") << 1 << QJsonArray{"genderMale", "tinyint(1)", 1, "\"0\"", 0};
    QTest::newRow("name") << 2 << QJsonArray{"name", "TEXT", 1, none, 0};
    QTest::newRow("phone") << 3 << QJsonArray{"phone", "TEXT", 0, "\"\"", 0};
    QTest::newRow("created") << 4 << QJsonArray{"created", "date", 0, none, 0};
    QTest::newRow("test") << 5 << QJsonArray{"test", "tinyint(1)", 0, "0", 0};
    QTest::newRow("test_date") << 6 << QJsonArray{"test_date", "date", 0, "\"\"", 0};
    QTest::newRow("rdv1") << 7 << QJsonArray{"rdv1", "tinyint(1)", 0, "0", 0};
    QTest::newRow("date1") << 8 << QJsonArray{"date1", "date", 0, "\"\"", 0};
    QTest::newRow("confirmation") << 9 << QJsonArray{"confirmation", "tinyint(1)", 0, "0", 0};
    QTest::newRow("confirmation_date") << 10 << QJsonArray{"confirmation_date", "date", 0, "\"\"", 0};
    QTest::newRow("rdv2") << 11 << QJsonArray{"rdv2", "tinyint(1)", 0, "0", 0};
    QTest::newRow("date2") << 12 << QJsonArray{"date2", "date", 0, "\"\"", 0};
    QTest::newRow("rdv3") << 13 << QJsonArray{"rdv3", "tinyint(1)", 0, "0", 0};
    QTest::newRow("date3") << 14 << QJsonArray{"date3", "date", 0, "\"\"", 0};
    QTest::newRow("notification_date") << 15 << QJsonArray{"notification_date", "date", 0, "\"\"", 0};
}

void tst_StoreOpening::columns_have_their_types_constraints_and_defaults()
{
    QFETCH(int, place);
    QFETCH(QJsonArray, column);
    const Practice practice;
    const QJsonArray columns = practice.file.rows(
        "SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info('Patients') ORDER BY cid");
    QCOMPARE(columns.count(), 16);
    QCOMPARE(columns.at(place).toArray(), column);
}

void tst_StoreOpening::columns_left_out_take_their_defaults()
{
    const Practice practice;
    practice.file.run({"INSERT INTO `Patients` (`name`) VALUES ('Dupont')"});
    QCOMPARE(practice.file.rows("SELECT * FROM Patients"),
             only(QJsonArray{1, 0, "Dupont", "", QJsonValue::Null, 0, "", 0, "", 0, "", 0, "", 0, "", ""}));
}

void tst_StoreOpening::ids_are_never_used_again()
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

void tst_StoreOpening::record_lost_while_running_costs_no_patient_data()
{
    QTest::addColumn<bool>("emptied");
    QTest::newRow("removed") << false;
    QTest::newRow("emptied") << true;
}

void tst_StoreOpening::record_lost_while_running_costs_no_patient()
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

void tst_StoreOpening::folder_moved_away_is_not_made_anew_by_a_later_document()
{
    Practice practice;
    const QString folder = practice.file.folder();
    QVERIFY(QDir().rename(folder, folder + ".away"));
    StoreDocument later(&practice.engine);
    later.perform("init");
    QVERIFY(!QFileInfo::exists(folder));
    QVERIFY(QDir().rename(folder + ".away", folder));
}

void tst_StoreOpening::callback_of_init_comes_each_time_after_the_table_exists()
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

void tst_StoreOpening::init_does_without_a_callback()
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

void tst_StoreOpening::each_document_opens_for_itself()
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
