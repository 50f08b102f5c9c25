#include "restorer.h"
#include "support/practicefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace practice;

class tst_Restorer : public QObject
{
    Q_OBJECT

private slots:
    void going_back_installs_the_copy_and_copies_todays_files();
    void a_return_can_be_undone();
    void patients_of_an_old_or_lost_version_stay_after_the_return_data();
    void patients_of_an_old_or_lost_version_stay_after_the_return();
    void single_patients_are_added_to_todays();
    void nothing_changes_while_the_widget_runs();
    void today_may_be_missing_or_damaged_data();
    void today_may_be_missing_or_damaged();

private:
    static QStringList kinds(Restorer &restorer)
    {
        QStringList names;
        for (const Restorer::Entry &entry : restorer.entries())
            names << entry.copy.name();
        return names;
    }
    static QStringList namesIn(const StoreFiles &store) { return names(PatientTable::read(store.folder())); }
    const QString returned = QDate::currentDate().toString(Qt::ISODate) + "-before-return";
};

void tst_Restorer::going_back_installs_the_copy_and_copies_todays_files()
{
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    write(store.folder(), {dupont});
    write(store.copiesFolder() + "/2014-05-12", {dupont, martin});
    Restorer restorer(store);
    const QVector<Restorer::Entry> entries = restorer.entries();
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().difference.text(), QString("1 patient de plus"));
    QCOMPARE(restorer.goBackTo(entries.first().copy), QString());
    QCOMPARE(namesIn(store), QStringList({"DUPONT Marie", "MARTIN Paul"}));
    QCOMPARE(kinds(restorer), QStringList({returned, "2014-05-12"}));
    QCOMPARE(restorer.entries().first().patients.rows.size(), 1);
}

void tst_Restorer::a_return_can_be_undone()
{
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    write(store.folder(), {dupont});
    write(store.copiesFolder() + "/2014-05-12", {martin});
    Restorer restorer(store);
    QCOMPARE(restorer.goBackTo(restorer.entries().last().copy), QString());
    QCOMPARE(restorer.goBackTo(restorer.entries().first().copy), QString());
    QCOMPARE(namesIn(store), QStringList{"DUPONT Marie"});
    QCOMPARE(kinds(restorer).size(), 3);
}

void tst_Restorer::patients_of_an_old_or_lost_version_stay_after_the_return_data()
{
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("after");
    QTest::newRow("1.2") << QByteArray("1.2") << "1.3";
    QTest::newRow("lost") << QByteArray() << "1.3";
    QTest::newRow("unknown") << QByteArray("2.0") << "2.0";
}

void tst_Restorer::patients_of_an_old_or_lost_version_stay_after_the_return()
{
    QFETCH(QByteArray, version);
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    const QString copy = store.copiesFolder() + "/2014-05-12-before-upgrade";
    write(copy, {dupont});
    record(copy, version);
    if (version.isEmpty())
        QVERIFY(QFile::remove(copy + '/' + StoreFiles::recordName()));
    write(store.folder(), {});
    Restorer restorer(store);
    QCOMPARE(restorer.goBackTo(restorer.entries().last().copy), QString());
    QTEST(StoreFiles::versionIn(store.folder()), "after");
    QCOMPARE(namesIn(store), QStringList{"DUPONT Marie"});
}

void tst_Restorer::single_patients_are_added_to_todays()
{
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    write(store.folder(), {martin});
    write(store.copiesFolder() + "/2014-05-12", {martin, dupont});
    Restorer restorer(store);
    QCOMPARE(names({restorer.entries().first().difference.missing, 0, {}}), QStringList{"DUPONT Marie"});
    QCOMPARE(restorer.takeBack(restorer.entries().first().difference.missing), QString());
    QCOMPARE(namesIn(store), QStringList({"DUPONT Marie", "MARTIN Paul"}));
    QCOMPARE(restorer.entries().last().difference.text(), QString("comme aujourd'hui"));
    QCOMPARE(kinds(restorer).first(), returned);
}

void tst_Restorer::nothing_changes_while_the_widget_runs()
{
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    write(store.folder(), {dupont});
    write(store.copiesFolder() + "/2014-05-12", {martin});
    StoreLock widget(store);
    QCOMPARE(widget.take(), StoreLock::Taken);
    Restorer restorer(store);
    QVERIFY(restorer.isInUse());
    QCOMPARE(restorer.goBackTo(restorer.entries().first().copy), QString("Vesk Tandry est ouvert"));
    QCOMPARE(restorer.takeBack(restorer.entries().first().difference.missing), QString("Vesk Tandry est ouvert"));
    QCOMPARE(namesIn(store), QStringList{"DUPONT Marie"});
    QCOMPARE(kinds(restorer), QStringList{"2014-05-12"});
    widget.release();
    QVERIFY(!restorer.isInUse());
}

void tst_Restorer::today_may_be_missing_or_damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("copies");
    QTest::newRow("missing") << QByteArray() << 1;
    QTest::newRow("damaged") << QByteArray("not a database at all") << 2;
}

void tst_Restorer::today_may_be_missing_or_damaged()
{
    QFETCH(QByteArray, bytes);
    const QTemporaryDir place;
    const StoreFiles store(place.path());
    write(store.copiesFolder() + "/2014-05-12", {martin});
    if (!bytes.isEmpty()) {
        QDir().mkpath(store.folder());
        QFile file(store.database());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) > 0);
    }
    Restorer restorer(store);
    QVERIFY(!restorer.today().error.isEmpty());
    QCOMPARE(restorer.goBackTo(restorer.entries().last().copy), QString());
    QCOMPARE(namesIn(store), QStringList{"MARTIN Paul"});
    QTEST(restorer.entries().size(), "copies");
}

QTEST_GUILESS_MAIN(tst_Restorer)

#include "tst_Restorer.moc"
