#include "practice.h"
#include "testhome.h"

#include <QtTest>

namespace {

const char *const noonOfTwelfthMay = "2014-05-12 12:00:00";

void addNamed(const Practice &practice, const QStringList &names)
{
    QStringList statements;
    for (QString name : names)
        statements << "INSERT INTO Patients (name) VALUES ('" + name.replace('\'', "''") + "')";
    practice.file.run(statements);
}

QStringList nameList(const QJsonValue &records)
{
    QStringList names;
    for (const QJsonValue &record : records.toArray())
        names << record.toObject()["name"].toString();
    return names;
}

QJsonValue startsWith(Practice &practice, const QString &filter)
{
    return practice.store.perform("select", {filter}).answer().toObject()["startsWith"];
}

QJsonValue contains(Practice &practice, const QString &filter)
{
    return practice.store.perform("select", {filter}).answer().toObject()["contains"];
}

/// Patient 1 with a value in every column; waits on 12 May 2014.
void addComplete(const Practice &practice)
{
    practice.file.run({"INSERT INTO Patients VALUES (1, 1, 'DUPONT Marie', '01 02 03 04 05', '2014-04-10', 1, "
                       "'2014-04-11', 0, '2014-04-12', 1, '2014-04-13', 0, '2014-04-14', 1, '2014-04-15', "
                       "'2014-05-12')"});
}

const QJsonObject completeRow{{"id", 1},
                              {"genderMale", 1},
                              {"name", "DUPONT Marie"},
                              {"phone", "01 02 03 04 05"},
                              {"created", "2014-04-10"},
                              {"test", 1},
                              {"test_date", "2014-04-11"},
                              {"rdv1", 0},
                              {"date1", "2014-04-12"},
                              {"confirmation", 1},
                              {"confirmation_date", "2014-04-13"},
                              {"rdv2", 0},
                              {"date2", "2014-04-14"},
                              {"rdv3", 1},
                              {"date3", "2014-04-15"},
                              {"notification_date", "2014-05-12"},
                              {"created_format", "10/04/2014"}};

/// Patient 1 with a name and a reminder; all other columns are NULL.
void addBare(const Practice &practice)
{
    practice.file.run({"INSERT INTO Patients VALUES (1, 0, 'DUPONT Marie', NULL, NULL, NULL, NULL, NULL, NULL, NULL, "
                       "NULL, NULL, NULL, NULL, NULL, '2014-05-12')"});
}

QJsonObject bareRow(const QJsonValue &nothing)
{
    return {{"id", 1},
            {"genderMale", 0},
            {"name", "DUPONT Marie"},
            {"phone", nothing},
            {"created", nothing},
            {"test", nothing},
            {"test_date", nothing},
            {"rdv1", nothing},
            {"date1", nothing},
            {"confirmation", nothing},
            {"confirmation_date", nothing},
            {"rdv2", nothing},
            {"date2", nothing},
            {"rdv3", nothing},
            {"date3", nothing},
            {"notification_date", "2014-05-12"},
            {"created_format", nothing}};
}

QJsonObject with(QJsonObject record, const QString &key, const QJsonValue &value)
{
    record[key] = value;
    return record;
}

} // namespace

class tst_StoreReading : public QObject
{
    Q_OBJECT

private slots:
    void search_returns_names_that_start_with_the_text_then_names_that_contain_it();
    void search_sorts_both_lists_without_regard_to_case();
    void search_ignores_ascii_case_and_knows_wildcards_data();
    void search_ignores_ascii_case_and_knows_wildcards();
    void search_without_a_match_still_calls_back();
    void search_without_a_filter_returns_all_patients_data();
    void search_without_a_filter_returns_all_patients();

    void record_has_every_column_and_the_two_computed_ones();
    void record_has_empty_texts_for_nulls();
    void every_read_returns_the_same_record();
    void one_null_is_an_empty_text_data();
    void one_null_is_an_empty_text();
    void removeNullValues_copies_and_replaces_only_nulls();
    void get_accepts_the_id_as_text_too();
    void get_of_an_unknown_id_does_not_call_back();
    void created_is_formatted_in_french_data();
    void created_is_formatted_in_french();

    void patient_waits_from_the_day_of_the_reminder_data();
    void patient_waits_from_the_day_of_the_reminder();
    void counts_are_rows_with_a_count();
    void waiting_rows_are_raw_and_in_name_order();
    void columns_of_a_later_version_have_empty_texts_for_nulls();
    void waiting_rows_keep_their_nulls();
};

void tst_StoreReading::search_returns_names_that_start_with_the_text_then_names_that_contain_it()
{
    Practice practice;
    addNamed(practice, {"Dupont", "Adu", "DURAND"});
    QCOMPARE(nameList(startsWith(practice, "du")), (QStringList{"Dupont", "DURAND"}));
    QCOMPARE(nameList(contains(practice, "du")), QStringList{"Adu"});
    QCOMPARE(practice.store.perform("select", {"du"}).answer().toObject().keys(),
             (QStringList{"contains", "startsWith"}));
}

void tst_StoreReading::search_sorts_both_lists_without_regard_to_case()
{
    Practice practice;
    addNamed(practice, {"mb", "MA", "xmb", "XMA", "Mc", "AM"});
    QCOMPARE(nameList(startsWith(practice, "m")), (QStringList{"MA", "mb", "Mc"}));
    QCOMPARE(nameList(contains(practice, "m")), (QStringList{"AM", "XMA", "xmb"}));
}

void tst_StoreReading::search_ignores_ascii_case_and_knows_wildcards_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("starting");
    QTest::addColumn<QStringList>("containing");

    const QStringList nobody;
    QTest::newRow("a single % matches everybody")
        << QStringList{"Adu", "", "Dupont"} << "%" << QStringList{"", "Adu", "Dupont"} << nobody;
    QTest::newRow("% within") << QStringList{"Dupont", "Adupont", "Dult"} << "d%t" << QStringList{"Dult", "Dupont"}
                              << QStringList{"Adupont"};
    QTest::newRow("% before hides what contains")
        << QStringList{"Adu", "Dupont"} << "%u" << QStringList{"Adu", "Dupont"} << nobody;
    QTest::newRow("_ is one character") << QStringList{"Dupont", "Dpont", "Adupont"} << "d_p" << QStringList{"Dupont"}
                                        << QStringList{"Adupont"};
    QTest::newRow("a single _ matches everybody with a name")
        << QStringList{"", "A", "B"} << "_" << QStringList{"A", "B"} << nobody;
    QTest::newRow("accents match themselves")
        << QStringList{"École", "Ecole", "école", "Bérénice"} << "é" << QStringList{"école"} << QStringList{"Bérénice"};
    QTest::newRow("capital accents match themselves")
        << QStringList{"École", "école"} << "É" << QStringList{"École"} << nobody;
    QTest::newRow("plain letters match no accents")
        << QStringList{"Éric", "Eric"} << "e" << QStringList{"Eric"} << nobody;
    QTest::newRow("a quote is ordinary text")
        << QStringList{"d'Artagnan", "l'or d'or"} << "d'" << QStringList{"d'Artagnan"} << QStringList{"l'or d'or"};
    QTest::newRow("a space is ordinary text") << QStringList{"DU PONT", "DUPONT", "Le DU PONT"} << "du "
                                              << QStringList{"DU PONT"} << QStringList{"Le DU PONT"};
    QTest::newRow("no escaping") << QStringList{"100%", "100x"} << "0\\%" << nobody << nobody;
    QTest::newRow("whole name") << QStringList{"Dupont"} << "DUPONT" << QStringList{"Dupont"} << nobody;
}

void tst_StoreReading::search_ignores_ascii_case_and_knows_wildcards()
{
    QFETCH(QStringList, names);
    QFETCH(QString, filter);
    Practice practice;
    addNamed(practice, names);
    QTEST(nameList(startsWith(practice, filter)), "starting");
    QTEST(nameList(contains(practice, filter)), "containing");
}

void tst_StoreReading::search_without_a_match_still_calls_back()
{
    Practice practice;
    addNamed(practice, {"Dupont"});
    QCOMPARE(practice.store.perform("select", {"x"}).answer(),
             QJsonValue(QJsonObject{{"startsWith", QJsonArray()}, {"contains", QJsonArray()}}));
}

void tst_StoreReading::search_without_a_filter_returns_all_patients_data()
{
    QTest::addColumn<QJsonValue>("filter");
    QTest::newRow("null") << QJsonValue(QJsonValue::Null);
    QTest::newRow("empty") << QJsonValue("");
}

void tst_StoreReading::search_without_a_filter_returns_all_patients()
{
    QFETCH(QJsonValue, filter);
    Practice practice;
    QCOMPARE(practice.store.perform("select", {filter}).answer(), QJsonValue(QJsonArray()));
    addNamed(practice, {"Dupont", "Adu"});
    QCOMPARE(nameList(practice.store.perform("select", {filter}).answer()), (QStringList{"Adu", "Dupont"}));
}

void tst_StoreReading::record_has_every_column_and_the_two_computed_ones()
{
    PracticeAt practice(noonOfTwelfthMay);
    addComplete(practice);
    QCOMPARE(practice.store.get(1), with(completeRow, "waiting", 1));
}

void tst_StoreReading::record_has_empty_texts_for_nulls()
{
    PracticeAt practice(noonOfTwelfthMay);
    addBare(practice);
    QCOMPARE(practice.store.get(1), with(bareRow(""), "waiting", 1));
}

void tst_StoreReading::every_read_returns_the_same_record()
{
    PracticeAt practice(noonOfTwelfthMay);
    addBare(practice);
    const QJsonArray expected{with(bareRow(""), "waiting", 1)};
    QCOMPARE(practice.store.perform("select", {""}).answer(), QJsonValue(expected));
    QCOMPARE(startsWith(practice, "dupont"), QJsonValue(expected));
    QCOMPARE(contains(practice, "marie"), QJsonValue(expected));
}

void tst_StoreReading::one_null_is_an_empty_text_data()
{
    QTest::addColumn<QString>("column");
    for (const char *column : {"phone", "created", "test", "test_date", "rdv1", "date1", "confirmation",
                               "confirmation_date", "rdv2", "date2", "rdv3", "date3", "notification_date"})
        QTest::newRow(column) << column;
}

void tst_StoreReading::one_null_is_an_empty_text()
{
    QFETCH(QString, column);
    Practice practice;
    practice.file.run({"INSERT INTO Patients (id, name, created, notification_date) "
                       "VALUES (1, 'Dupont', '2014-04-10', '2014-05-12')",
                       "UPDATE Patients SET " + column + " = NULL"});
    const QJsonObject record = practice.store.get(1);
    QCOMPARE(record[column], QJsonValue(""));
    QCOMPARE(record["created_format"], QJsonValue(column == "created" ? "" : "10/04/2014"));
    QCOMPARE(record["waiting"], column == "notification_date" ? QJsonValue("") : QJsonValue(1));
}

void tst_StoreReading::removeNullValues_copies_and_replaces_only_nulls()
{
    Practice practice;
    QCOMPARE(practice.store.evaluate("Bdd.removeNullValues({a: null, b: 0, c: '', d: false, e: 'x', f: 7})"),
             QJsonValue(QJsonObject{{"a", ""}, {"b", 0}, {"c", ""}, {"d", false}, {"e", "x"}, {"f", 7}}));
    QCOMPARE(practice.store.evaluate("var row = {a: null}; Bdd.removeNullValues(row); row"),
             QJsonValue(QJsonObject{{"a", QJsonValue::Null}}));
}

void tst_StoreReading::get_accepts_the_id_as_text_too()
{
    Practice practice;
    addNamed(practice, {"Dupont"});
    QCOMPARE(practice.store.perform("get", {"1"}).answer().toObject()["name"].toString(), QString("Dupont"));
}

void tst_StoreReading::get_of_an_unknown_id_does_not_call_back()
{
    Practice practice;
    addNamed(practice, {"Dupont"});
    QVERIFY(practice.store.perform("get", {2}).isSilent());
}

void tst_StoreReading::created_is_formatted_in_french_data()
{
    QTest::addColumn<QString>("created");
    QTest::addColumn<QString>("shown");
    QTest::newRow("a day") << "'2014-04-10'"
                           << "10/04/2014";
    QTest::newRow("leap day") << "'2016-02-29'"
                              << "29/02/2016";
    QTest::newRow("empty") << "''"
                           << "";
    QTest::newRow("null") << "NULL"
                          << "";
    QTest::newRow("not padded") << "'2014-4-10'"
                                << "";
    QTest::newRow("already French") << "'10/04/2014'"
                                    << "";
    QTest::newRow("a word") << "'hier'"
                            << "";
}

void tst_StoreReading::created_is_formatted_in_french()
{
    QFETCH(QString, created);
    QFETCH(QString, shown);
    Practice practice;
    practice.file.run({"INSERT INTO Patients (name, created) VALUES ('Dupont', " + created + ")"});
    QCOMPARE(practice.store.get(1)["created_format"], QJsonValue(shown));
}

void tst_StoreReading::patient_waits_from_the_day_of_the_reminder_data()
{
    QTest::addColumn<QString>("reminder");
    QTest::addColumn<QJsonValue>("waiting");
    QTest::addColumn<int>("count");
    QTest::newRow("years ago") << "'2010-12-31'" << QJsonValue(1) << 1;
    QTest::newRow("yesterday") << "'2014-05-11'" << QJsonValue(1) << 1;
    QTest::newRow("today") << "'2014-05-12'" << QJsonValue(1) << 1;
    QTest::newRow("tomorrow") << "'2014-05-13'" << QJsonValue(0) << 0;
    QTest::newRow("in effect never") << "'2050-05-12'" << QJsonValue(0) << 0;
    QTest::newRow("none") << "''" << QJsonValue(0) << 0;
    QTest::newRow("null") << "NULL" << QJsonValue("") << 0;
}

void tst_StoreReading::patient_waits_from_the_day_of_the_reminder()
{
    QFETCH(QString, reminder);
    QFETCH(QJsonValue, waiting);
    QFETCH(int, count);
    PracticeAt practice(noonOfTwelfthMay);
    practice.file.run({"INSERT INTO Patients (name, notification_date) VALUES ('Dupont', " + reminder + ")"});
    QCOMPARE(practice.store.get(1)["waiting"], waiting);
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), QJsonValue(QJsonObject{{"count", count}}));
    QCOMPARE(practice.store.perform("selectWaiting").answer().toArray().count(), count);
}

void tst_StoreReading::counts_are_rows_with_a_count()
{
    PracticeAt practice(noonOfTwelfthMay);
    addComplete(practice);
    addNamed(practice, {"Adu", "Durand"});
    QCOMPARE(practice.store.perform("getNumber").answer(), QJsonValue(QJsonObject{{"count", 3}}));
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), QJsonValue(QJsonObject{{"count", 1}}));
}

void tst_StoreReading::waiting_rows_are_raw_and_in_name_order()
{
    PracticeAt practice(noonOfTwelfthMay);
    addComplete(practice);
    practice.file.run({"INSERT INTO Patients (name, notification_date) VALUES ('Zoé', '2014-05-01')",
                       "INSERT INTO Patients (name, notification_date) VALUES ('adu', '2014-05-02')",
                       "INSERT INTO Patients (name, notification_date) VALUES ('Béa', '2014-05-13')",
                       "INSERT INTO Patients (name, notification_date) VALUES ('Cléo', '')"});
    const QJsonArray rows = practice.store.perform("selectWaiting").answer().toArray();
    QCOMPARE(listed(rows), QString("adu, DUPONT Marie, Zoé"));
    QCOMPARE(rows.at(1).toObject(), completeRow);
}

void tst_StoreReading::columns_of_a_later_version_have_empty_texts_for_nulls()
{
    Practice practice;
    practice.store.insertNamed("Dupont");
    // So many that a driver that does not expect them crashes for certain; after a single one it crashes rarely.
    QStringList statements;
    for (int number = 1; number <= 100; ++number)
        statements << QString("ALTER TABLE Patients ADD COLUMN later%1 TEXT").arg(number);
    practice.file.run(statements);
    const QJsonObject patient = practice.store.get(1);
    for (int number = 1; number <= 100; ++number)
        QCOMPARE(patient[QString("later%1").arg(number)], QJsonValue(""));
}

void tst_StoreReading::waiting_rows_keep_their_nulls()
{
    PracticeAt practice(noonOfTwelfthMay);
    addBare(practice);
    QCOMPARE(practice.store.perform("selectWaiting").answer(), QJsonValue(QJsonArray{bareRow(QJsonValue::Null)}));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreReading test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreReading.moc"
