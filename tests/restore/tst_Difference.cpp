#include "difference.h"
#include "support/practicefile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace practice;

class tst_Difference : public QObject
{
    Q_OBJECT

private slots:
    void a_copy_is_described_relative_to_today_data();
    void a_copy_is_described_relative_to_today();
};

void tst_Difference::a_copy_is_described_relative_to_today_data()
{
    QTest::addColumn<QStringList>("since");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QStringList() << "comme aujourd'hui";
    QTest::newRow("one deleted") << QStringList{"DELETE FROM Patients WHERE id = 2"} << "1 patient de plus";
    QTest::newRow("two deleted") << QStringList{"DELETE FROM Patients"} << "2 patients de plus";
    QTest::newRow("one new") << QStringList{"INSERT INTO Patients (name) VALUES ('X')"} << "1 patient de moins";
    QTest::newRow("renamed") << QStringList{"UPDATE Patients SET name = 'DURAND Marie' WHERE id = 1"}
                             << "1 fiche modifiée";
    QTest::newRow("all at once") << QStringList{"UPDATE Patients SET phone = '1' WHERE id = 1",
                                                "DELETE FROM Patients WHERE id = 2",
                                                "INSERT INTO Patients (name) VALUES ('X')",
                                                "INSERT INTO Patients (name) VALUES ('Y')"}
                                 << "2 patients de moins, 1 patient de plus, 1 fiche modifiée";
    QTest::newRow("restored under another id")
        << QStringList{"UPDATE Patients SET id = 9 WHERE id = 2", "UPDATE sqlite_sequence SET seq = 9"}
        << "comme aujourd'hui";
    // The ids start at 1 again: the new id 1 is a different patient.
    QTest::newRow("dropped and started again")
        << QStringList{"DROP TABLE Patients", createStatement,
                       "INSERT INTO Patients (name, created) VALUES ('X', '2014-04-10')"}
        << "1 patient de moins, 2 patients de plus";
}

void tst_Difference::a_copy_is_described_relative_to_today()
{
    QFETCH(QStringList, since);
    const QTemporaryDir place;
    write(place.filePath("copy"), {dupont, martin});
    write(place.filePath("today"), QStringList{dupont, martin} + since);
    QTEST(Difference::between(PatientTable::read(place.filePath("copy")), PatientTable::read(place.filePath("today")))
              .text(),
          "text");
}

QTEST_GUILESS_MAIN(tst_Difference)

#include "tst_Difference.moc"
