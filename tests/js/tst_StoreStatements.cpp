#include "storedocument.h"
#include "testclock.h"
#include "testhome.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QtTest>

namespace {

/// A store with a storage that only records its calls.
class Recorded
{
public:
    Recorded()
    {
        m_engine.addImportPath("qrc:/tests/storage");
        QQmlComponent component(&m_engine, QUrl("qrc:/tests/FakeStorageDocument.qml"));
        m_standIn.reset(component.create());
        if (!m_standIn)
            qFatal("%s", qPrintable(component.errorString()));
        store.reset(new StoreDocument(&m_engine));
    }

    void set(const char *property, const QVariant &value) { m_standIn->setProperty(property, value); }

    QStringList takeJournal()
    {
        QVariant journal;
        QMetaObject::invokeMethod(m_standIn.data(), "takeJournal", Q_RETURN_ARG(QVariant, journal));
        return journal.toStringList();
    }

    /// The calls of an operation of an open store.
    QStringList journalOf(const QString &operation, const QJsonArray &values)
    {
        store->perform("init");
        takeJournal();
        store->perform(operation, values);
        return takeJournal();
    }

private:
    QQmlEngine m_engine;
    QScopedPointer<QObject> m_standIn;

public:
    QScopedPointer<StoreDocument> store;
};

const QString head = "SELECT *, strftime(\"%d/%m/%Y\", created) AS created_format, "
                     "(notification_date <= date(\"now\") AND notification_date != \"\") AS waiting FROM `Patients`";

const QString waitingCondition = " WHERE notification_date <= date(\"now\") AND notification_date != \"\"";

const QJsonObject marie{{"id", 4},
                        {"genderMale", false},
                        {"name", "DUPONT Marie"},
                        {"phone", "01"},
                        {"created", "2014-04-10"},
                        {"test", 1},
                        {"test_date", "2014-04-11"},
                        {"rdv1", 2},
                        {"date1", "2014-04-12"},
                        {"confirmation", 3},
                        {"confirmation_date", "2014-04-13"},
                        {"rdv2", 4},
                        {"date2", "2014-04-14"},
                        {"rdv3", 5},
                        {"date3", "2014-04-15"},
                        {"notification_date", "2014-09-15"}};

} // namespace

class tst_StoreStatements : public QObject
{
    Q_OBJECT

private slots:
    void database_is_opened_with_the_expected_values();
    void database_that_did_not_open_is_opened_at_the_next_use();
    void each_process_waits_once_for_a_file_locked_by_another_data();
    void each_process_waits_once_for_a_file_locked_by_another();
    void version_upgraded_meanwhile_by_another_process_drops_nothing();
    void table_is_created_if_it_does_not_exist();
    void version_is_changed_with_the_expected_statement_data();
    void version_is_changed_with_the_expected_statement();

    void reads_run_the_expected_statements_in_one_transaction_data();
    void reads_run_the_expected_statements_in_one_transaction();
    void writes_run_the_expected_statement_in_one_transaction_data();
    void writes_run_the_expected_statement_in_one_transaction();
    void empty_list_runs_no_statement();

    void write_is_committed_before_its_callback_and_inside_its_transaction();
    void failing_write_is_rolled_back_and_rethrown();
    void count_is_reported_only_when_there_is_exactly_one_row_data();
    void count_is_reported_only_when_there_is_exactly_one_row();
};

void tst_StoreStatements::database_is_opened_with_the_expected_values()
{
    Recorded recorded;
    recorded.store->perform("init");
    recorded.store->perform("init");
    QCOMPARE(recorded.takeJournal().filter("open "),
             QStringList{"open [\"Tandry\",\"\",\"Tandry widget storage\",500000]"});
}

void tst_StoreStatements::database_that_did_not_open_is_opened_at_the_next_use()
{
    Recorded recorded;
    recorded.set("failing", "open");
    for (const char *operation : {"init", "getNumber"}) {
        const StoreCall refused = recorded.store->perform(operation);
        QCOMPARE(refused.thrown, QString("refused"));
        QCOMPARE(refused.answers, QJsonArray());
    }
    recorded.takeJournal();
    recorded.set("failing", "");
    QVERIFY(recorded.store->perform("getNumber").thrown.isEmpty());
    QCOMPARE(recorded.takeJournal().filter(QRegularExpression("^(open|SELECT COUNT)")).count(), 2);
}

void tst_StoreStatements::each_process_waits_once_for_a_file_locked_by_another_data()
{
    QTest::addColumn<int>("timeoutBefore");
    QTest::addColumn<QString>("wait");
    QTest::newRow("first window") << 5000 << "PRAGMA busy_timeout = 1000";
    QTest::newRow("later window") << 1000 << "PRAGMA busy_timeout = 0";
}

void tst_StoreStatements::each_process_waits_once_for_a_file_locked_by_another()
{
    QFETCH(int, timeoutBefore);
    QFETCH(QString, wait);
    Recorded recorded;
    recorded.set("rows", QVariantList{QVariantMap{{"timeout", timeoutBefore}}});
    recorded.set("failing", "CREATE");
    QCOMPARE(recorded.store->perform("init").thrown, QString("refused"));
    QCOMPARE(recorded.takeJournal().filter("busy_timeout ="), (QStringList{wait, "PRAGMA busy_timeout = 1000"}));
}

void tst_StoreStatements::version_upgraded_meanwhile_by_another_process_drops_nothing()
{
    Recorded recorded;
    recorded.set("version", "");
    recorded.set("nextVersion", "1.3");
    recorded.store->perform("init");
    QCOMPARE(recorded.takeJournal().filter(QRegularExpression("^(DROP|ROLLBACK)")),
             (QStringList{"DROP TABLE IF EXISTS `Patients`", "ROLLBACK"}));
}

void tst_StoreStatements::table_is_created_if_it_does_not_exist()
{
    Recorded recorded;
    recorded.store->perform("init");
    QCOMPARE(recorded.takeJournal().filter("CREATE"),
             QStringList{"CREATE TABLE IF NOT EXISTS `Patients`(`id` INTEGER PRIMARY KEY AUTOINCREMENT,"
                         "`genderMale` tinyint(1) NOT NULL DEFAULT \"0\",`name` TEXT COLLATE NOCASE NOT NULL,"
                         "`phone` TEXT DEFAULT \"\",`created` date,"
                         "`test` tinyint(1) DEFAULT 0,`test_date` date DEFAULT \"\","
                         "`rdv1` tinyint(1) DEFAULT 0,`date1` date DEFAULT \"\","
                         "`confirmation` tinyint(1) DEFAULT 0,`confirmation_date` date DEFAULT \"\","
                         "`rdv2` tinyint(1) DEFAULT 0,`date2` date DEFAULT \"\","
                         "`rdv3` tinyint(1) DEFAULT 0,`date3` date DEFAULT \"\","
                         "`notification_date` date DEFAULT \"\")"});
}

void tst_StoreStatements::version_is_changed_with_the_expected_statement_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QStringList>("change");
    const QString drop = "DROP TABLE `Patients`";
    QTest::newRow("1.0") << "1.0" << QStringList{"change from 1.0 to 1.3", drop};
    QTest::newRow("1.1") << "1.1" << QStringList{"change from 1.1 to 1.3", drop};
    QTest::newRow("1.2") << "1.2" << QStringList{"change from 1.2 to 1.3", drop};
    QTest::newRow("new") << "" << QStringList{"change from  to 1.3", "DROP TABLE IF EXISTS `Patients`"};
    QTest::newRow("current") << "1.3" << QStringList();
    QTest::newRow("unknown") << "9.9" << QStringList();
}

void tst_StoreStatements::version_is_changed_with_the_expected_statement()
{
    QFETCH(QString, version);
    Recorded recorded;
    recorded.set("version", version);
    recorded.store->perform("init");
    QTEST(recorded.takeJournal().filter(QRegularExpression("^(change|DROP)")), "change");
}

void tst_StoreStatements::reads_run_the_expected_statements_in_one_transaction_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");
    QTest::addColumn<QStringList>("statements");
    QTest::newRow("select by filter")
        << "select" << QJsonArray{"du"}
        << QStringList{head + " WHERE `name` LIKE ? ORDER BY name [\"du%\"]",
                       head + " WHERE `name` LIKE ? AND `name` NOT LIKE ? ORDER BY name [\"%du%\",\"du%\"]"};
    QTest::newRow("select all") << "select" << QJsonArray{""} << QStringList{head + " ORDER BY name"};
    QTest::newRow("get") << "get" << QJsonArray{3} << QStringList{head + " WHERE `id` = ? [3]"};
    QTest::newRow("getWaitingNumber") << "getWaitingNumber" << QJsonArray()
                                      << QStringList{"SELECT COUNT(*) AS count FROM `Patients`" + waitingCondition};
    QTest::newRow("getNumber") << "getNumber" << QJsonArray()
                               << QStringList{"SELECT COUNT(*) AS count FROM `Patients`"};
    QTest::newRow("selectWaiting") << "selectWaiting" << QJsonArray()
                                   << QStringList{
                                          "SELECT *, strftime(\"%d/%m/%Y\", created) AS created_format FROM `Patients`"
                                          + waitingCondition + " ORDER BY name"};
}

void tst_StoreStatements::reads_run_the_expected_statements_in_one_transaction()
{
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    QFETCH(QStringList, statements);
    const QStringList begin{"transaction", "SELECT 1 FROM sqlite_master LIMIT 0"};
    QCOMPARE(Recorded().journalOf(operation, values), begin + statements + QStringList{"end"});
}

void tst_StoreStatements::writes_run_the_expected_statement_in_one_transaction_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QJsonArray>("values");
    QTest::addColumn<QString>("statement");
    QTest::newRow("update")
        << "update" << QJsonArray{marie}
        << "UPDATE `Patients` SET `genderMale` = ?, `name` = ?, `phone` = ?, `test` = ?, `test_date` = ?, `rdv1` = ?, "
           "`date1` = ?, `confirmation` = ?, `confirmation_date` = ?, `rdv2` = ?, `date2` = ?, `rdv3` = ?, "
           "`date3` = ?, `notification_date` = ? WHERE id = ? "
           "[false,\"DUPONT Marie\",\"01\",1,\"2014-04-11\",2,\"2014-04-12\",3,\"2014-04-13\",4,\"2014-04-14\",5,"
           "\"2014-04-15\",\"2014-09-15\",4]";
    QTest::newRow("insert")
        << "insert" << QJsonArray{marie}
        << "INSERT INTO `Patients` (`genderMale`, `name`, `phone`, `created`, `test`, `test_date`, `rdv1`, `date1`, "
           "`confirmation`, `confirmation_date`, `rdv2`, `date2`, `rdv3`, `date3`, `notification_date`) "
           "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) "
           "[false,\"DUPONT Marie\",\"01\",\"2014-04-10\",1,\"2014-04-11\",2,\"2014-04-12\",3,\"2014-04-13\",4,"
           "\"2014-04-14\",5,\"2014-04-15\",\"2014-05-12\"]";
    QTest::newRow("remove") << "remove" << QJsonArray{3} << "DELETE FROM `Patients` WHERE id = ? [3]";
    QTest::newRow("removeList of one") << "removeList" << QJsonArray{QJsonValue(QJsonArray{3})}
                                       << "DELETE FROM `Patients` WHERE id = ? [3]";
    QTest::newRow("removeList of two") << "removeList" << QJsonArray{QJsonValue(QJsonArray{3, 5})}
                                       << "DELETE FROM `Patients` WHERE id = ? OR id = ? [3,5]";
    QTest::newRow("removeList of four")
        << "removeList" << QJsonArray{QJsonValue(QJsonArray{9, 3, 5, 1})}
        << "DELETE FROM `Patients` WHERE id = ? OR id = ? OR id = ? OR id = ? [9,3,5,1]";
}

void tst_StoreStatements::writes_run_the_expected_statement_in_one_transaction()
{
    QFETCH(QString, operation);
    QFETCH(QJsonArray, values);
    QFETCH(QString, statement);
    const TestClock clock("2014-05-12 12:00:00");
    QCOMPARE(Recorded().journalOf(operation, values), (QStringList{"transaction", statement, "COMMIT", "end"}));
}

void tst_StoreStatements::empty_list_runs_no_statement()
{
    QCOMPARE(Recorded().journalOf("removeList", {QJsonValue(QJsonArray())}), QStringList());
}

void tst_StoreStatements::write_is_committed_before_its_callback_and_inside_its_transaction()
{
    Recorded recorded;
    recorded.store->perform("init");
    recorded.takeJournal();
    recorded.store->evaluate("Bdd.update({id: 4}, function () { Bdd.get(4, function () {}); })");
    QStringList steps = recorded.takeJournal();
    steps.replaceInStrings(QRegularExpression("^(UPDATE|SELECT [1*]).*"), "\\1");
    QCOMPARE(steps,
             (QStringList{"transaction", "UPDATE", "COMMIT", "transaction", "SELECT 1", "SELECT *", "end", "end"}));
}

void tst_StoreStatements::failing_write_is_rolled_back_and_rethrown()
{
    for (const char *failing : {"DELETE", "COMMIT"}) {
        Recorded recorded;
        recorded.store->perform("init");
        recorded.takeJournal();
        recorded.set("failing", failing);
        QCOMPARE(recorded.store->performWithoutCallback("remove", {3}).thrown, QString("refused"));
        QCOMPARE(recorded.takeJournal().mid(2).filter(QRegularExpression("^(ROLLBACK|end)")),
                 (QStringList{"ROLLBACK", "end"}));
    }
}

void tst_StoreStatements::count_is_reported_only_when_there_is_exactly_one_row_data()
{
    QTest::addColumn<QVariantList>("rows");
    QTest::addColumn<int>("calls");
    const QVariantMap row{{"count", 4}};
    QTest::newRow("none") << QVariantList() << 0;
    QTest::newRow("one") << QVariantList{row} << 1;
    QTest::newRow("two") << QVariantList{row, row} << 0;
}

void tst_StoreStatements::count_is_reported_only_when_there_is_exactly_one_row()
{
    QFETCH(QVariantList, rows);
    QFETCH(int, calls);
    Recorded recorded;
    recorded.store->perform("init");
    recorded.set("rows", rows);
    for (const char *operation : {"getNumber", "getWaitingNumber"})
        QCOMPARE(recorded.store->perform(operation).answers.count(), calls);
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreStatements test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreStatements.moc"
