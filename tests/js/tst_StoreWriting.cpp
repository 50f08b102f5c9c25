#include "practice.h"
#include "testhome.h"

#include <QtTest>

namespace {

const char *const noonOfTwelfthMay = "2014-05-12 12:00:00";

/// A complete patient, with a reminder that insert replaces and update keeps.
const QJsonObject marie{{"genderMale", false},
                        {"name", "DUPONT Marie"},
                        {"phone", "01 02 03 04 05"},
                        {"created", "2014-04-10"},
                        {"test", true},
                        {"test_date", "2014-04-11"},
                        {"rdv1", false},
                        {"date1", "2014-04-12"},
                        {"confirmation", true},
                        {"confirmation_date", "2014-04-13"},
                        {"rdv2", 0},
                        {"date2", "2014-04-14"},
                        {"rdv3", 1},
                        {"date3", "2014-04-15"},
                        {"notification_date", "2014-09-15"}};

QJsonObject with(QJsonObject data, const QString &key, const QJsonValue &value)
{
    data[key] = value;
    return data;
}

QJsonArray stored(const Practice &practice, int id)
{
    return practice.file.rows(QString("SELECT * FROM Patients WHERE id = %1").arg(id)).at(0).toArray();
}

QJsonValue count(int number)
{
    return QJsonObject{{"count", number}};
}

/// Patients 1 to \a last.
void fill(Practice &practice, int last)
{
    practice.file.run({QString("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                               "INSERT INTO Patients (name) SELECT 'Patient ' || i FROM n")
                           .arg(last)});
}

QString ids(const Practice &practice)
{
    QStringList numbers;
    for (const QJsonValue &row : practice.file.rows("SELECT id FROM Patients ORDER BY id"))
        numbers << QString::number(row.toArray().at(0).toInt());
    return numbers.join(' ');
}

} // namespace

class tst_StoreWriting : public QObject
{
    Q_OBJECT

private slots:
    void insert_passes_the_id_of_the_new_row();
    void insert_makes_the_patient_wait_at_once();
    void insert_of_an_empty_object_stores_the_defaults();
    void insert_works_without_a_callback();
    void insert_and_update_log_their_call();

    void known_keys_have_their_defaults_data();
    void known_keys_have_their_defaults();
    void unknown_keys_are_dropped();
    void passed_data_are_not_changed();
    void flags_are_stored_as_integers();

    void update_of_an_unknown_id_calls_back_and_stores_nothing();
    void update_works_without_a_callback();
    void reading_inside_a_callback_sees_the_stored_data();
    void counting_in_another_document_inside_a_callback_sees_the_stored_data();

    void names_are_stored_as_typed_data();
    void names_are_stored_as_typed();
};

void tst_StoreWriting::insert_passes_the_id_of_the_new_row()
{
    Practice practice;
    practice.file.run({"INSERT INTO Patients (id, name) VALUES (41, 'Adu')"});
    QCOMPARE(practice.store.insertNamed("Dupont"), 42);
    QCOMPARE(practice.store.evaluate("var name; Bdd.insert({name: 'Durand'}, function (id) {"
                                     "    Bdd.get(id, function (record) { name = record.name; });"
                                     "}); name"),
             QJsonValue("Durand"));
}

void tst_StoreWriting::insert_makes_the_patient_wait_at_once()
{
    PracticeAt practice(noonOfTwelfthMay);
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), count(0));
    practice.store.insert({{"name", "Dupont"}, {"notification_date", "2050-01-01"}});
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), count(1));
}

void tst_StoreWriting::insert_of_an_empty_object_stores_the_defaults()
{
    PracticeAt practice(noonOfTwelfthMay);
    practice.store.insert({});
    QCOMPARE(stored(practice, 1), (QJsonArray{1, 1, "", "", "", 0, "", 0, "", 0, "", 0, "", 0, "", "2014-05-12"}));
    QCOMPARE(practice.store.get(1)["created_format"], QJsonValue(""));
}

void tst_StoreWriting::insert_works_without_a_callback()
{
    Practice practice;
    QCOMPARE(practice.store.performWithoutCallback("insert", {marie}).thrown, QString());
    QCOMPARE(ids(practice), QString("1"));
}

void tst_StoreWriting::insert_and_update_log_their_call()
{
    Practice practice;
    QTest::ignoreMessage(QtDebugMsg, "Insert called");
    practice.store.insert(marie);
    QTest::ignoreMessage(QtDebugMsg, "Update called");
    practice.store.perform("update", {with(marie, "id", 1)});
}

void tst_StoreWriting::known_keys_have_their_defaults_data()
{
    QTest::addColumn<QJsonValue>("fallback");
    QTest::newRow("id") << QJsonValue("");
    QTest::newRow("genderMale") << QJsonValue(true);
    QTest::newRow("name") << QJsonValue("");
    QTest::newRow("created") << QJsonValue("");
    QTest::newRow("phone") << QJsonValue("");
    QTest::newRow("test") << QJsonValue(0);
    QTest::newRow("test_date") << QJsonValue("");
    QTest::newRow("rdv1") << QJsonValue(0);
    QTest::newRow("date1") << QJsonValue("");
    QTest::newRow("confirmation") << QJsonValue(0);
    QTest::newRow("confirmation_date") << QJsonValue("");
    QTest::newRow("rdv2") << QJsonValue(0);
    QTest::newRow("date2") << QJsonValue("");
    QTest::newRow("rdv3") << QJsonValue(0);
    QTest::newRow("date3") << QJsonValue("");
    QTest::newRow("notification_date") << QJsonValue("");
    QTest::newRow("last") << QJsonValue("");
}

void tst_StoreWriting::known_keys_have_their_defaults()
{
    QFETCH(QJsonValue, fallback);
    const QString key = QTest::currentDataTag();
    const PatientFile file;
    PatientEngine engine(file);
    StoreDocument store(&engine);
    const auto secured = [&store, &key](const char *data) -> QJsonValue {
        return store.evaluate(QString("Bdd.securiseData(%1)").arg(QString(data).replace("KEY", key))).toObject()[key];
    };
    QCOMPARE(secured("{}"), fallback);
    QCOMPARE(secured("{KEY: null}"), fallback);
    QCOMPARE(secured("{KEY: undefined}"), fallback);
    QCOMPARE(secured("{KEY: 'given'}"), QJsonValue("given"));
    // Falsy values that are present stay.
    QCOMPARE(secured("{KEY: 0}"), QJsonValue(0));
    QCOMPARE(secured("{KEY: false}"), QJsonValue(false));
    QCOMPARE(secured("{KEY: ''}"), QJsonValue(""));
}

void tst_StoreWriting::unknown_keys_are_dropped()
{
    Practice practice;
    const QJsonObject secured =
        practice.store
            .evaluate("Bdd.securiseData({waiting: 1, created_format: '10/04/2014', checked: true, constructor: 'x'})")
            .toObject();
    QCOMPARE(secured.keys(),
             (QStringList{"confirmation", "confirmation_date", "created", "date1", "date2", "date3", "genderMale", "id",
                          "last", "name", "notification_date", "phone", "rdv1", "rdv2", "rdv3", "test", "test_date"}));
    QCOMPARE(practice.store.insert(with(marie, "waiting", 1)), 1);
}

void tst_StoreWriting::passed_data_are_not_changed()
{
    Practice practice;
    QCOMPARE(practice.store.evaluate("var data = {id: 1, last: 'rdv3', other: null};"
                                     "Bdd.insert(data); Bdd.update(data); data"),
             QJsonValue(QJsonObject{{"id", 1}, {"last", "rdv3"}, {"other", QJsonValue::Null}}));
}

void tst_StoreWriting::flags_are_stored_as_integers()
{
    Practice practice;
    const QString types = "SELECT typeof(genderMale), genderMale, typeof(test), test, typeof(rdv1), rdv1, "
                          "typeof(rdv2), rdv2 FROM Patients";
    const QJsonArray expected = only(QJsonArray{"integer", 0, "integer", 1, "integer", 0, "integer", 0});
    practice.store.insert(marie);
    QCOMPARE(practice.file.rows(types), expected);
    practice.store.perform("update", {with(marie, "id", 1)});
    QCOMPARE(practice.file.rows(types), expected);
}

void tst_StoreWriting::update_of_an_unknown_id_calls_back_and_stores_nothing()
{
    Practice practice;
    fill(practice, 1);
    const StoreCall call = practice.store.perform("update", {with(marie, "id", 2)});
    QCOMPARE(call.answers, only(QJsonArray()));
    QCOMPARE(practice.file.rows("SELECT id, name FROM Patients"), only(QJsonArray{1, "Patient 1"}));
}

void tst_StoreWriting::update_works_without_a_callback()
{
    Practice practice;
    fill(practice, 1);
    QCOMPARE(practice.store.performWithoutCallback("update", {with(marie, "id", 1)}).thrown, QString());
    QCOMPARE(practice.file.value("SELECT name FROM Patients"), QJsonValue("DUPONT Marie"));
}

void tst_StoreWriting::reading_inside_a_callback_sees_the_stored_data()
{
    Practice practice;
    practice.store.insertNamed("Adu");
    QCOMPARE(practice.store.evaluate("var name; Bdd.update({id: 1, name: 'Dupont'}, function () {"
                                     "    Bdd.get(1, function (record) { name = record.name; });"
                                     "}); name"),
             QJsonValue("Dupont"));
    QCOMPARE(practice.file.value("SELECT name FROM Patients"), QJsonValue("Dupont"));
    // The nested read ended the outer transaction: the next operations begin a new one.
    QCOMPARE(practice.store.insertNamed("Durand"), 2);
}

void tst_StoreWriting::counting_in_another_document_inside_a_callback_sees_the_stored_data()
{
    Practice practice;
    StoreDocument other(&practice.engine);
    other.perform("init");
    practice.store.setNeighbour(other);
    QCOMPARE(practice.store.evaluate("var seen; Bdd.insert({name: 'Dupont'}, function () {"
                                     "    seen = JSON.parse(root.neighbour.perform('getNumber', '[]', true)).answers;"
                                     "}); seen"),
             QJsonValue(only(QJsonArray{count(1)})));
    QCOMPARE(ids(practice), QString("1"));
}

void tst_StoreWriting::names_are_stored_as_typed_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("spaces around") << "  Dupont ";
    QTest::newRow("single quotes") << "O'Neil d'Arc''";
    QTest::newRow("double quotes and back ticks") << "\"Dupont\" `Marie`";
    QTest::newRow("a statement") << "x'); DROP TABLE Patients; --";
    QTest::newRow("wildcards") << "100% _sûr_";
    QTest::newRow("placeholders") << "? :name @name $1";
    QTest::newRow("markup") << "<b>Dupont</b> &amp; <br/>";
    QTest::newRow("backslashes") << "C:\\new\\table \\u00e9";
    QTest::newRow("accents, composed and not") << QString::fromUtf8("Zoe\u0301 \u00c9l\u00e9onore");
    QTest::newRow("emoji") << QString::fromUtf8("Dupont \U0001F600\U0001F468\u200D\u2695\uFE0F");
    QTest::newRow("right to left") << QString::fromUtf8("\u05d3\u05d5\u05e4\u05d5\u05df \u0645\u0627\u0631\u064a");
    QTest::newRow("direction marks") << QString::fromUtf8("\u202eDupont\u202c");
    QTest::newRow("line end and tabulator") << "Dupont\nMarie\t\r\n";
    QTest::newRow("digits") << "007";
    QTest::newRow("10000 characters") << QString("Dupont-Éli").repeated(1000);
}

void tst_StoreWriting::names_are_stored_as_typed()
{
    QFETCH(QString, name);
    Practice practice;
    practice.store.insertNamed("before");
    practice.store.insert({{"name", name}, {"phone", name}});
    practice.store.perform("update", {QJsonObject{{"id", 1}, {"name", name}}});
    QCOMPARE(practice.store.get(1)["name"].toString(), name);
    QCOMPARE(practice.store.get(2)["name"].toString(), name);
    QCOMPARE(practice.store.get(2)["phone"].toString(), name);
    QCOMPARE(practice.file.rows("SELECT name FROM Patients"), (QJsonArray{QJsonArray{name}, QJsonArray{name}}));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreWriting test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreWriting.moc"
