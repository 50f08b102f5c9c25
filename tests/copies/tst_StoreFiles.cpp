#include "support/generation.h"
#include "testhome.h"

#include <QQmlEngine>
#include <QtTest>

class tst_StoreFiles : public QObject
{
    Q_OBJECT

private slots:
    void the_store_is_in_the_folder_that_the_documents_use();
    void patients_of_an_old_or_lost_version_will_be_dropped_data();
    void patients_of_an_old_or_lost_version_will_be_dropped();
    void an_empty_or_missing_database_has_no_patients_to_drop();
};

void tst_StoreFiles::the_store_is_in_the_folder_that_the_documents_use()
{
    const QString path = QQmlEngine().offlineStorageDatabaseFilePath("Tandry");
    QCOMPARE(StoreFiles::ofApplication().database(), path + ".sqlite");
    QCOMPARE(StoreFiles::ofApplication().record(), path + ".ini");
}

void tst_StoreFiles::patients_of_an_old_or_lost_version_will_be_dropped_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<bool>("go");
    QTest::newRow("1.0") << QByteArray("[General]\nVersion=1.0") << true;
    QTest::newRow("1.1") << QByteArray("[General]\nVersion=1.1") << true;
    QTest::newRow("1.2") << QByteArray("[General]\nVersion=1.2") << true;
    QTest::newRow("no version") << QByteArray("[General]\nName=Tandry") << true;
    QTest::newRow("no record") << QByteArray() << true;
    QTest::newRow("1.3") << QByteArray("[General]\nVersion=1.3") << false;
    QTest::newRow("a later one") << QByteArray("[General]\nVersion=2.0") << false;
}

void tst_StoreFiles::patients_of_an_old_or_lost_version_will_be_dropped()
{
    QFETCH(QByteArray, record);
    const DataFolder data;
    data.write(2);
    QFile::remove(data.store.record());
    if (!record.isEmpty())
        generation::writeFile(data.store.record(), record);
    QTEST(data.store.isAboutToBeEmptied(), "go");
}

void tst_StoreFiles::an_empty_or_missing_database_has_no_patients_to_drop()
{
    const DataFolder data;
    QVERIFY(!data.store.isAboutToBeEmptied());
    data.write(2);
    QFile::remove(data.store.record());
    generation::writeFile(data.store.database(), "");
    QVERIFY(!data.store.isAboutToBeEmptied());
}

int main(int argc, char *argv[])
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreFiles test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreFiles.moc"
