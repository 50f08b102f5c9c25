#include "practice.h"
#include "testhome.h"

#include <QtTest>

namespace {

const char *const twelfthMay = "2014-05-12";

/// The data of patient 1 after an answer: `last` is the step, whose date is today for "yes" and "no". "unanswered" is a
/// ticked box without a date.
QJsonObject answered(const QString &last, const QString &answer, const QString &created, const QString &today)
{
    const QMap<QString, QString> dateKeys{{"test", "test_date"},
                                          {"rdv1", "date1"},
                                          {"confirmation", "confirmation_date"},
                                          {"rdv2", "date2"},
                                          {"rdv3", "date3"}};
    QJsonObject data{
        {"id", 1}, {"name", "Dupont"}, {"created", created}, {"last", last}, {"notification_date", "2013-01-01"}};
    data[last] = answer != "no";
    data[dateKeys.value(last)] = answer == "unanswered" ? QString() : today;
    return data;
}

/// The reminder of patient 1 after an update with \a data at that time.
QString reminderAfter(const QJsonObject &data, const QString &day, const QByteArray &zone = "Europe/Paris")
{
    PracticeAt practice(day.contains(' ') ? day.toLatin1() : day.toLatin1() + " 10:20:30", zone);
    practice.store.insertNamed("Dupont");
    // Otherwise a failing update would leave today's reminder.
    practice.file.runInStores("UPDATE Patients SET notification_date = '1999-01-01'");
    practice.store.perform("update", {data});
    return practice.file.value("SELECT notification_date FROM Patients").toString();
}

void addAnswer(const char *today, const char *last, const char *answer, const char *created, const char *reminder)
{
    QTest::addRow("on %s, %s %s, first seen %s", today, last, answer, created)
        << today << last << answer << created << reminder;
}

} // namespace

class tst_ReminderDates : public QObject
{
    Q_OBJECT

private slots:
    void answer_moves_the_reminder_data();
    void answer_moves_the_reminder();
    void reminder_after_the_skin_test_follows_the_stored_work_up_data();
    void reminder_after_the_skin_test_follows_the_stored_work_up();
    void flag_means_yes_when_true_or_one_data();
    void flag_means_yes_when_true_or_one();
    void saving_without_an_answer_keeps_the_reminder_data();
    void saving_without_an_answer_keeps_the_reminder();
    void unknown_step_sets_the_reminder_to_today_data();
    void unknown_step_sets_the_reminder_to_today();
    void reminder_of_a_past_season_waits_at_once();
    void accepted_work_up_ends_the_waiting();
    void cleared_steps_read_back_unanswered();

    void dates_are_written_as_local_days_data();
    void dates_are_written_as_local_days();
    void first_appointment_is_parsed_from_its_text_data();
    void first_appointment_is_parsed_from_its_text();
    void reminder_is_written_as_the_local_day_near_midnight();
};

void tst_ReminderDates::answer_moves_the_reminder_data()
{
    for (const char *column : {"today", "last", "answer", "created", "reminder"})
        QTest::addColumn<QString>(column);

    // Every step and answer.
    addAnswer(twelfthMay, "test", "yes", "2014-04-10", "2014-09-15");
    addAnswer(twelfthMay, "test", "no", "2014-04-10", "2014-09-15");
    addAnswer(twelfthMay, "test", "unanswered", "2014-04-10", "2014-09-15");
    addAnswer(twelfthMay, "rdv1", "yes", "2014-04-10", "2050-05-12");
    addAnswer(twelfthMay, "rdv1", "no", "2014-04-10", "2014-09-15");
    addAnswer(twelfthMay, "rdv1", "unanswered", "2014-04-10", "2014-09-15");
    addAnswer(twelfthMay, "confirmation", "yes", "2014-04-10", "2014-12-16");
    addAnswer(twelfthMay, "confirmation", "no", "2014-04-10", "2050-05-12");
    addAnswer(twelfthMay, "confirmation", "unanswered", "2014-04-10", "2050-05-12");
    addAnswer(twelfthMay, "rdv2", "yes", "2014-04-10", "2015-09-15");
    addAnswer(twelfthMay, "rdv2", "no", "2014-04-10", "2014-12-16");
    addAnswer(twelfthMay, "rdv2", "unanswered", "2014-04-10", "2014-12-16");
    addAnswer(twelfthMay, "rdv3", "yes", "2014-04-10", "2050-05-12");
    addAnswer(twelfthMay, "rdv3", "no", "2014-04-10", "2015-09-15");
    addAnswer(twelfthMay, "rdv3", "unanswered", "2014-04-10", "2015-09-15");

    // The first appointment in every month, after the skin tests and after a refused work-up.
    const char *const seasons[12][2] = {
        {"2014-01-20", "2014-05-12"}, {"2014-02-28", "2014-05-12"}, {"2014-03-01", "2014-09-15"},
        {"2014-04-30", "2014-09-15"}, {"2014-05-01", "2014-09-15"}, {"2014-06-15", "2014-09-15"},
        {"2014-07-31", "2014-09-15"}, {"2014-08-31", "2014-09-15"}, {"2014-09-01", "2014-12-15"},
        {"2014-10-02", "2014-12-15"}, {"2014-11-11", "2014-12-15"}, {"2014-12-31", "2014-12-15"}};
    for (const auto &season : seasons) {
        addAnswer(twelfthMay, "test", "no", season[0], season[1]);
        addAnswer(twelfthMay, "rdv1", "no", season[0], season[1]);
    }
    // The other rules do not depend on the month.
    addAnswer(twelfthMay, "confirmation", "yes", "2014-01-20", "2014-12-16");
    addAnswer(twelfthMay, "confirmation", "yes", "2014-10-02", "2014-12-16");
    addAnswer(twelfthMay, "rdv2", "yes", "2014-01-20", "2015-09-15");
    addAnswer(twelfthMay, "rdv2", "yes", "2014-10-02", "2015-09-15");
    addAnswer(twelfthMay, "rdv2", "yes", "2014-12-31", "2015-09-15");

    // The year is that of the first appointment, not of the answer.
    addAnswer("2016-06-01", "rdv1", "no", "2014-05-20", "2014-09-15");
    addAnswer("2016-06-01", "confirmation", "yes", "2014-05-20", "2014-12-16");
    addAnswer("2016-06-01", "rdv2", "yes", "2014-05-20", "2015-09-15");
    addAnswer("2016-06-01", "rdv2", "no", "2014-05-20", "2014-12-16");
    addAnswer("2016-06-01", "rdv3", "no", "2014-05-20", "2015-09-15");
    addAnswer("2016-06-01", "rdv3", "yes", "2014-05-20", "2050-06-01");
    addAnswer("2016-06-01", "test", "no", "2014-01-20", "2016-06-01");

    // On the 31st, setting the month to September gives October; December has 31 days.
    for (const char *last :
         {"2014-01-31", "2014-03-31", "2014-05-31", "2014-07-31", "2014-08-31", "2014-10-31", "2014-12-31"}) {
        addAnswer(last, "test", "yes", "2014-04-10", "2014-10-15");
        addAnswer(last, "rdv1", "no", "2014-10-02", "2014-12-15");
        addAnswer(last, "confirmation", "yes", "2014-04-10", "2014-12-16");
        addAnswer(last, "rdv2", "yes", "2014-04-10", "2015-10-15");
        addAnswer(last, "rdv2", "no", "2014-04-10", "2014-12-16");
        addAnswer(last, "rdv3", "no", "2014-04-10", "2015-10-15");
    }
    addAnswer("2014-12-31", "rdv1", "yes", "2014-04-10", "2050-12-31");
    addAnswer("2014-05-31", "rdv3", "yes", "2014-04-10", "2050-05-31");
    // On the 31st, January stays January, and February becomes March, the first month of the season.
    addAnswer("2014-05-31", "rdv1", "no", "2014-01-20", "2014-05-31");
    addAnswer("2014-05-31", "rdv1", "no", "2014-02-10", "2014-10-15");
    addAnswer("2014-05-30", "rdv1", "no", "2014-02-10", "2014-09-15");
    addAnswer("2014-05-29", "rdv1", "no", "2014-02-10", "2014-09-15");
    addAnswer("2014-05-28", "rdv1", "no", "2014-02-10", "2014-05-28");
    // September has 30 days.
    addAnswer("2014-04-30", "rdv1", "no", "2014-04-10", "2014-09-15");
    addAnswer("2014-11-30", "rdv2", "yes", "2014-10-02", "2015-09-15");

    // 29 February.
    addAnswer("2016-02-29", "confirmation", "no", "2016-01-20", "2050-03-01");
    addAnswer("2016-02-29", "rdv1", "yes", "2016-01-20", "2050-03-01");
    addAnswer("2016-02-29", "rdv1", "no", "2015-04-10", "2015-09-15");
    addAnswer("2016-02-29", "rdv1", "no", "2015-02-10", "2016-02-29");
    addAnswer("2016-02-29", "rdv1", "no", "2016-02-29", "2016-02-29");
    addAnswer("2016-02-29", "confirmation", "yes", "2015-10-02", "2015-12-16");
    addAnswer("2016-02-29", "rdv3", "no", "2015-10-02", "2016-09-15");

    // When the first appointment is not a date in three parts, the day of the answer counts.
    for (const char *created : {"", "10/04/2012", "2012-04", "2012-04-10-1", "20120410", "hier"}) {
        addAnswer(twelfthMay, "rdv1", "no", created, "2014-09-15");
        addAnswer(twelfthMay, "rdv2", "yes", created, "2015-09-15");
    }
    addAnswer("2014-10-20", "rdv1", "no", "", "2014-12-15");
    addAnswer("2014-01-20", "rdv1", "no", "", "2014-01-20");
}

void tst_ReminderDates::answer_moves_the_reminder()
{
    QFETCH(QString, today);
    QFETCH(QString, last);
    QFETCH(QString, answer);
    QFETCH(QString, created);
    QTEST(reminderAfter(answered(last, answer, created, today), today), "reminder");
}

void tst_ReminderDates::reminder_after_the_skin_test_follows_the_stored_work_up_data()
{
    QTest::addColumn<QJsonObject>("steps");
    QTest::addColumn<QString>("reminder");
    QTest::newRow("work-up accepted, skin tests done")
        << QJsonObject{{"test", 1}, {"test_date", twelfthMay}, {"rdv1", 1}, {"date1", twelfthMay}} << "2050-05-12";
    QTest::newRow("work-up accepted, skin tests not done")
        << QJsonObject{{"test", 0}, {"test_date", twelfthMay}, {"rdv1", 1}, {"date1", twelfthMay}} << "2050-05-12";
    QTest::newRow("work-up refused")
        << QJsonObject{{"test", 1}, {"test_date", twelfthMay}, {"rdv1", 0}, {"date1", twelfthMay}} << "2014-09-15";
    QTest::newRow("work-up cleared") << QJsonObject{{"test", 1}, {"test_date", twelfthMay}, {"rdv1", 1}, {"date1", ""}}
                                     << "2014-09-15";
}

void tst_ReminderDates::reminder_after_the_skin_test_follows_the_stored_work_up()
{
    QFETCH(QJsonObject, steps);
    steps["id"] = 1;
    steps["last"] = "test";
    steps["created"] = "2014-04-10";
    QTEST(reminderAfter(steps, twelfthMay), "reminder");
}

void tst_ReminderDates::flag_means_yes_when_true_or_one_data()
{
    QTest::addColumn<QJsonValue>("flag");
    QTest::addColumn<QString>("reminder");
    QTest::newRow("true") << QJsonValue(true) << "2014-12-16";
    QTest::newRow("one") << QJsonValue(1) << "2014-12-16";
    QTest::newRow("false") << QJsonValue(false) << "2050-05-12";
    QTest::newRow("zero") << QJsonValue(0) << "2050-05-12";
    QTest::newRow("two") << QJsonValue(2) << "2050-05-12";
    QTest::newRow("one as a text") << QJsonValue("1") << "2050-05-12";
    QTest::newRow("null") << QJsonValue(QJsonValue::Null) << "2050-05-12";
}

void tst_ReminderDates::flag_means_yes_when_true_or_one()
{
    QFETCH(QJsonValue, flag);
    QTEST(reminderAfter({{"id", 1},
                         {"last", "confirmation"},
                         {"created", "2014-04-10"},
                         {"confirmation", flag},
                         {"confirmation_date", twelfthMay}},
                        twelfthMay),
          "reminder");
}

void tst_ReminderDates::saving_without_an_answer_keeps_the_reminder_data()
{
    QTest::addColumn<QString>("reminder");
    QTest::newRow("past") << "2013-09-15";
    QTest::newRow("never") << "2050-05-12";
    QTest::newRow("none") << "";
    QTest::newRow("not a date") << "demain";
}

void tst_ReminderDates::saving_without_an_answer_keeps_the_reminder()
{
    QFETCH(QString, reminder);
    // Every step is answered: only an empty `last` prevents the rules.
    const QJsonObject data{{"id", 1},
                           {"phone", "01 02 03 04 05"},
                           {"created", "2014-04-10"},
                           {"test", 1},
                           {"test_date", twelfthMay},
                           {"rdv1", 1},
                           {"date1", twelfthMay},
                           {"last", ""},
                           {"notification_date", reminder}};
    QCOMPARE(reminderAfter(data, "2014-06-01"), reminder);
}

void tst_ReminderDates::unknown_step_sets_the_reminder_to_today_data()
{
    QTest::addColumn<QString>("step");
    for (const char *step : {"rdv4", "Test", "date1", " ", "toString"})
        QTest::newRow(step) << step;
}

void tst_ReminderDates::unknown_step_sets_the_reminder_to_today()
{
    QFETCH(QString, step);
    QCOMPARE(reminderAfter({{"id", 1}, {"last", step}, {"created", "2013-04-10"}, {"notification_date", "2015-01-01"}},
                           twelfthMay),
             QString("2014-05-12"));
}

void tst_ReminderDates::reminder_of_a_past_season_waits_at_once()
{
    PracticeAt practice("2016-06-01 10:00:00");
    practice.file.run({"INSERT INTO Patients (name) VALUES ('Dupont')"});
    practice.store.perform("update", {answered("rdv1", "no", "2014-05-20", "2016-06-01")});
    QCOMPARE(practice.store.get(1)["notification_date"].toString(), QString("2014-09-15"));
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(1));
}

void tst_ReminderDates::accepted_work_up_ends_the_waiting()
{
    PracticeAt practice("2014-05-12 10:00:00");
    practice.store.insertNamed("Dupont");
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(1));
    practice.store.perform("update", {answered("rdv1", "yes", "2014-05-12", twelfthMay)});
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(0));
}

void tst_ReminderDates::cleared_steps_read_back_unanswered()
{
    Practice practice;
    practice.store.insert({{"name", "Dupont"},
                           {"rdv1", 1},
                           {"date1", "2014-05-01"},
                           {"confirmation", 1},
                           {"confirmation_date", "2014-05-02"},
                           {"rdv2", 1},
                           {"date2", "2014-05-03"}});
    practice.store.perform("update",
                           {QJsonObject{{"id", 1},
                                        {"name", "Dupont"},
                                        {"last", "rdv1"},
                                        {"rdv1", 1},
                                        {"date1", "2014-05-12"},
                                        {"confirmation", 1},
                                        {"confirmation_date", ""},
                                        {"rdv2", 1},
                                        {"date2", ""}}});
    const QJsonObject record = practice.store.get(1);
    QCOMPARE(record["date1"], QJsonValue("2014-05-12"));
    for (const char *date : {"confirmation_date", "date2", "date3"})
        QCOMPARE(record[date], QJsonValue(""));
    QCOMPARE(record["confirmation"], QJsonValue(1));
}

void tst_ReminderDates::dates_are_written_as_local_days_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("text");
    QTest::newRow("padded") << "new Date(2014, 0, 5)"
                            << "2014-01-05";
    QTest::newRow("September") << "new Date(2014, 8, 9)"
                               << "2014-09-09";
    QTest::newRow("October") << "new Date(2014, 9, 10)"
                             << "2014-10-10";
    QTest::newRow("last day") << "new Date(2014, 11, 31, 23, 59, 59)"
                              << "2014-12-31";
    QTest::newRow("leap day") << "new Date(2016, 1, 29)"
                              << "2016-02-29";
    QTest::newRow("just after midnight") << "new Date(2014, 4, 12, 0, 0, 1)"
                                         << "2014-05-12";
    QTest::newRow("year of three digits") << "new Date(987, 5, 1)"
                                          << "987-06-01";
    QTest::newRow("year of five digits") << "new Date(12014, 5, 1)"
                                         << "12014-06-01";
}

void tst_ReminderDates::dates_are_written_as_local_days()
{
    QFETCH(QString, date);
    QFETCH(QString, text);
    for (const char *zone : {"Europe/Paris", "America/New_York", "Pacific/Auckland"}) {
        PracticeAt practice("2014-05-12 10:00:00", zone);
        QCOMPARE(practice.store.evaluate("Bdd.formatDate(" + date + ")"), QJsonValue(text));
    }
}

void tst_ReminderDates::first_appointment_is_parsed_from_its_text_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QJsonArray>("date");
    const QByteArray may = "2014-05-12 10:20:30";
    QTest::newRow("a day") << may << "2013-02-10" << QJsonArray{2013, 2, 10, 10, 20};
    QTest::newRow("February on a 31st") << QByteArray("2014-03-31 10:20:30") << "2014-02-10"
                                        << QJsonArray{2014, 3, 10, 10, 20};
    QTest::newRow("June on a 31st") << QByteArray("2014-05-31 10:20:30") << "2014-06-10"
                                    << QJsonArray{2014, 7, 10, 10, 20};
    QTest::newRow("February on a 30th") << QByteArray("2014-04-30 23:50:00") << "2014-02-10"
                                        << QJsonArray{2014, 3, 10, 23, 50};
    QTest::newRow("another year on 29 February")
        << QByteArray("2016-02-29 00:10:00") << "2015-02-10" << QJsonArray{2015, 2, 10, 0, 10};
    QTest::newRow("not padded") << may << "2013-2-1" << QJsonArray{2013, 2, 1, 10, 20};
    QTest::newRow("month 13") << may << "2013-13-01" << QJsonArray{2014, 1, 1, 10, 20};
    QTest::newRow("31 April") << may << "2013-04-31" << QJsonArray{2013, 5, 1, 10, 20};
    QTest::newRow("day 0") << may << "2013-04-00" << QJsonArray{2013, 3, 31, 10, 20};
    QTest::newRow("with leading zeros") << may << "2013-08-09" << QJsonArray{2013, 8, 9, 10, 20};
    QTest::newRow("empty") << may << "" << QJsonArray{2014, 5, 12, 10, 20};
    QTest::newRow("two pieces") << may << "2013-02" << QJsonArray{2014, 5, 12, 10, 20};
    QTest::newRow("four pieces") << may << "2013-02-10-" << QJsonArray{2014, 5, 12, 10, 20};
    QTest::newRow("French") << may << "10/02/2013" << QJsonArray{2014, 5, 12, 10, 20};
}

void tst_ReminderDates::first_appointment_is_parsed_from_its_text()
{
    QFETCH(QByteArray, now);
    QFETCH(QString, text);
    PracticeAt practice(now);
    QTEST(practice.store
              .evaluate("var date = Bdd.getFirstRDVDateFromString('" + text
                        + "');"
                          "[date.getFullYear(), date.getMonth() + 1, date.getDate(), date.getHours(),"
                          " date.getMinutes()]")
              .toArray(),
          "date");
}

void tst_ReminderDates::reminder_is_written_as_the_local_day_near_midnight()
{
    const QJsonObject yes = answered("rdv1", "yes", "2014-04-10", twelfthMay);
    QCOMPARE(reminderAfter(yes, "2014-05-12 00:30:00"), QString("2050-05-12"));
    QCOMPARE(reminderAfter(yes, "2014-05-11 23:30:00", "America/New_York"), QString("2050-05-11"));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_ReminderDates test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ReminderDates.moc"
