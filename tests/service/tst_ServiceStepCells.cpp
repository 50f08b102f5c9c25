#include "modal.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QPrintDialog>
#include <QRegularExpression>

namespace {

/// The possible states of a step, one letter each: yes or no with a date, or a flag without a date.
const QByteArray kinds = "YNyn";

/// The expected cells for all records: in a pattern, `-` means "without a date" and `*` anything.
struct Rule
{
    const char *steps;
    QStringList cells;
};

const QList<Rule> rules{
    {"-****", {"?", "", "", "", ""}},

    {"N-***", {"Non", "?", "", "", ""}},
    {"NN***", {"Non", "Non", "", "", ""}},
    {"NY-**", {"Non", "Oui", "?", "", ""}},
    {"NYN**", {"Non", "Oui", "Non", "", ""}},
    {"NYY-*", {"Non", "Oui", "Oui", "?", ""}},
    {"NYYN*", {"Non", "Oui", "Oui", "Non", ""}},
    {"NYYY-", {"Non", "Oui", "Oui", "Oui", "?"}},
    {"NYYYN", {"Non", "Oui", "Oui", "Oui", "Non"}},
    {"NYYYY", {"Non", "Oui", "Oui", "Oui", "Oui"}},

    {"Y*-**", {"Oui", "-", "?", "", ""}},
    {"Y*N**", {"Oui", "-", "Non", "", ""}},
    {"Y*Y-*", {"Oui", "-", "Oui", "?", ""}},
    {"Y*YN*", {"Oui", "-", "Oui", "Non", ""}},
    {"Y*YY-", {"Oui", "-", "Oui", "Oui", "?"}},
    {"Y*YYN", {"Oui", "-", "Oui", "Oui", "Non"}},
    {"Y*YYY", {"Oui", "-", "Oui", "Oui", "Oui"}},
};

bool fits(const QByteArray &record, const char *steps)
{
    for (int i = 0; i < record.size(); ++i) {
        const char wanted = steps[i];
        const bool dated = record.at(i) == 'Y' || record.at(i) == 'N';
        if (wanted != '*' && wanted != (dated ? record.at(i) : '-'))
            return false;
    }
    return true;
}

/// All 1024 records as strings of five letters.
QList<QByteArray> records()
{
    QList<QByteArray> all{QByteArray()};
    for (int step = 0; step < 5; ++step) {
        QList<QByteArray> longer;
        for (const QByteArray &record : qAsConst(all)) {
            for (const char kind : kinds)
                longer.append(record + kind);
        }
        all = longer;
    }
    return all;
}

QVariantMap patientOf(const QByteArray &record)
{
    const char *const flags[] = {"test", "rdv1", "confirmation", "rdv2", "rdv3"};
    const char *const dates[] = {"test_date", "date1", "confirmation_date", "date2", "date3"};
    QVariantMap patient;
    for (int i = 0; i < record.size(); ++i) {
        const char kind = record.at(i);
        patient.insert(flags[i], kind == 'Y' || kind == 'y' ? 1 : 0);
        patient.insert(dates[i], kind == 'Y' || kind == 'N' ? QVariant("2014-01-01") : QVariant(""));
    }
    return patient;
}

} // namespace

/// The five step cells of the printed report, for every possible record.
class ServiceStepCells : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cells_show_the_pathway_up_to_where_it_stops_data();
    void cells_show_the_pathway_up_to_where_it_stops();

private:
    QHash<QByteArray, QStringList> printed;
};

void ServiceStepCells::initTestCase()
{
    QVariantList patients;
    for (const QByteArray &record : records())
        patients.append(patientOf(record));
    QCOMPARE(patients.size(), 1024);

    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint("Liste", patients); },
                                    [](QPrintDialog &dialog) { dialog.reject(); }));
    const QString report = running.service->reports.value(0);
    const QStringList rows = report.section("<tbody>", 1).section("</tbody>", 0, 0).split("<tr>").mid(1);
    QCOMPARE(rows.size(), 1024);
    const QRegularExpression cell("<td align=center style=\"vertical-align: center;\">(.*?)</td>");
    for (int i = 0; i < rows.size(); ++i) {
        QStringList cells;
        QRegularExpressionMatchIterator match = cell.globalMatch(rows.at(i));
        while (match.hasNext())
            cells.append(match.next().captured(1));
        printed.insert(records().at(i), cells.mid(1)); // the first cell is the first appointment
    }
}

void ServiceStepCells::cells_show_the_pathway_up_to_where_it_stops_data()
{
    QTest::addColumn<QStringList>("cells");
    for (const QByteArray &record : records()) {
        int fitting = 0;
        for (const Rule &rule : rules) {
            if (fits(record, rule.steps)) {
                QTest::newRow(record) << rule.cells;
                ++fitting;
            }
        }
        if (fitting != 1)
            qFatal("%d rules for %s", fitting, record.constData());
    }
}

void ServiceStepCells::cells_show_the_pathway_up_to_where_it_stops()
{
    QTEST(printed.value(QTest::currentDataTag()), "cells");
}

SERVICE_TEST_MAIN(ServiceStepCells)

#include "tst_ServiceStepCells.moc"
