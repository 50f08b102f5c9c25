#include "practice.h"
#include "testhome.h"

#include <QtTest>

class tst_WaitingDay : public QObject
{
    Q_OBJECT

private slots:
    void waiting_depends_on_the_date_in_utc_data();
    void waiting_depends_on_the_date_in_utc();
    void new_patient_just_after_midnight_in_paris_waits_only_from_midnight_utc();
};

void tst_WaitingDay::waiting_depends_on_the_date_in_utc_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<int>("waiting");
    const QByteArray paris = "Europe/Paris";
    const QByteArray newYork = "America/New_York";
    QTest::newRow("Paris, still yesterday in UTC") << paris << QByteArray("2014-05-12 01:59:59") << 0;
    QTest::newRow("Paris, the same day in UTC") << paris << QByteArray("2014-05-12 02:00:00") << 1;
    QTest::newRow("Paris, the evening before") << paris << QByteArray("2014-05-11 23:59:59") << 0;
    QTest::newRow("New York, already tomorrow in UTC") << newYork << QByteArray("2014-05-11 20:00:00") << 1;
    QTest::newRow("New York, late") << newYork << QByteArray("2014-05-11 23:30:00") << 1;
    QTest::newRow("New York, not yet") << newYork << QByteArray("2014-05-11 19:59:59") << 0;
}

void tst_WaitingDay::waiting_depends_on_the_date_in_utc()
{
    QFETCH(QByteArray, zone);
    QFETCH(QByteArray, now);
    QFETCH(int, waiting);
    PracticeAt practice(now, zone);
    practice.file.run({"INSERT INTO Patients (name, notification_date) VALUES ('Dupont', '2014-05-12')"});
    QCOMPARE(practice.store.perform("getWaitingNumber").answer(), QJsonValue(QJsonObject{{"count", waiting}}));
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(waiting));
    QCOMPARE(practice.store.perform("selectWaiting").answer().toArray().count(), waiting);
}

void tst_WaitingDay::new_patient_just_after_midnight_in_paris_waits_only_from_midnight_utc()
{
    PracticeAt practice("2014-01-12 00:30:00");
    practice.store.insertNamed("Dupont");
    QCOMPARE(practice.store.get(1)["notification_date"].toString(), QString("2014-01-12"));
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(0));
    practice.moveTo("2014-01-12 01:00:00");
    QCOMPARE(practice.store.get(1)["waiting"], QJsonValue(1));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_WaitingDay test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_WaitingDay.moc"
