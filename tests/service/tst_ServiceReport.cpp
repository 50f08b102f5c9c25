#include "answeredpatient.h"
#include "comparelines.h"
#include "logcapture.h"
#include "modal.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testclock.h"
#include "testmain.h"

#include <QFile>
#include <QJSEngine>
#include <QPrintDialog>
#include <QRegularExpression>
#include <QTranslator>

namespace {

RunningService *running = nullptr;

const QString waitingTitle = QStringLiteral("Liste des patients en attente");

/// The expected report. It is one line; the file has line breaks for readability.
QString expectedReport(const char *name)
{
    QFile file(QStringLiteral(":/service-tests/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No %s", name);
    return QString::fromUtf8(file.readAll()).remove('\n');
}

/// Requests a print, cancels the dialog and returns the report; a null string when there was none.
QString reportOf(const QString &title, const QVariant &list)
{
    running->service->reports.clear();
    const bool asked = withModal<QPrintDialog>([&] { running->service->requestPrint(title, list); },
                                               [](QPrintDialog &dialog) { dialog.reject(); });
    const QStringList reports = running->service->reports;
    if (asked != (reports.size() == 1))
        qFatal("%d reports for %d dialogs", reports.size(), int(asked));
    return reports.isEmpty() ? QString() : reports.first();
}

/// The texts between the tags of a row's cells, for each row of the report's body.
QList<QStringList> cellsOf(const QString &report)
{
    QList<QStringList> rows;
    const QString body = report.section("<tbody>", 1).section("</tbody>", 0, 0);
    QStringList pieces = body.split("<tr>");
    pieces.removeFirst();
    for (const QString &piece : pieces) {
        QStringList cells;
        QRegularExpressionMatchIterator match = QRegularExpression("<td[^>]*>(.*?)</td>").globalMatch(piece);
        while (match.hasNext())
            cells.append(match.next().captured(1));
        rows.append(cells);
    }
    return rows;
}

QStringList stepsOf(const QVariantMap &row)
{
    return cellsOf(reportOf(waitingTitle, QVariantList{row})).value(0).mid(3);
}

} // namespace

/// The printed report, as the text that is passed to QTextDocument.
class ServiceReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void report_equals_the_expected_file();
    void report_without_patients_equals_the_expected_file();
    void list_of_a_document_arrives_as_a_script_value();
    void a_value_that_is_not_a_list_is_not_printed_data();
    void a_value_that_is_not_a_list_is_not_printed();
    void a_row_that_is_not_a_map_is_empty_data();
    void a_row_that_is_not_a_map_is_empty();
    void flag_above_zero_means_yes_data();
    void flag_above_zero_means_yes();
    void date_counts_as_given_when_it_has_a_text_data();
    void date_counts_as_given_when_it_has_a_text();
    void text_is_not_escaped();
    void date_line_follows_the_clock_data();
    void date_line_follows_the_clock();
    void date_line_can_be_translated();
    void rows_keep_their_order();
    void type_of_each_row_is_logged();
};

void ServiceReport::initTestCase()
{
    running = new RunningService;
}

void ServiceReport::cleanupTestCase()
{
    delete running;
}

void ServiceReport::report_equals_the_expected_file()
{
    const TestClock clock("2014-05-31 09:05:00");
    const QVariantMap unescaped{{"name", QString::fromUtf8("Éloïse <b>O'Neil</b> & \"fils\" %1")},
                                {"created_format", "28/02/2014"},
                                {"phone", QVariant::fromValue(nullptr)},
                                {"test", 1},
                                {"test_date", "2014-03-01"},
                                {"rdv1", 1},
                                {"date1", "2014-03-02"},
                                {"confirmation", 1},
                                {"confirmation_date", ""},
                                {"rdv2", 1},
                                {"date2", "2014-03-04"},
                                {"rdv3", 1},
                                {"date3", "2014-03-05"}};

    const QString report = reportOf(waitingTitle, QVariantList{answeredPatient(), unescaped, QVariantMap()});

    QCOMPARE(report.toUtf8(), expectedReport("report.html").toUtf8());
}

void ServiceReport::report_without_patients_equals_the_expected_file()
{
    const TestClock clock("2014-05-31 15:30:59");
    const QString report = reportOf("Liste de tous les patients", QVariantList());
    QCOMPARE(report.toUtf8(), expectedReport("report-empty.html").toUtf8());
}

void ServiceReport::list_of_a_document_arrives_as_a_script_value()
{
    const TestClock clock("2014-05-31 09:05:00");
    QJSEngine engine;
    const QJSValue list = engine.evaluate("[{name: 'AB', phone: null, test: 1, test_date: '2014-01-01'}, {}]");

    const QString report = reportOf(waitingTitle, QVariant::fromValue(list));

    QCOMPARE(cellsOf(report),
             QList<QStringList>({{"AB", "", "", "Oui", "-", "?", "", ""}, {"", "", "", "?", "", "", "", ""}}));
}

void ServiceReport::a_value_that_is_not_a_list_is_not_printed_data()
{
    QTest::addColumn<QVariant>("list");

    static QJSEngine engine; // must outlive the values of the rows
    const auto script = [](const char *text) { return QVariant::fromValue(engine.evaluate(text)); };
    QTest::newRow("not given") << QVariant();
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("empty map") << QVariant(QVariantMap());
    QTest::newRow("map") << QVariant(QVariantMap{{"0", "DUPONT"}, {"length", 1}});
    QTest::newRow("text") << QVariant("DUPONT");
    QTest::newRow("empty text") << QVariant("");
    QTest::newRow("number") << QVariant(7);
    QTest::newRow("truth value") << QVariant(true);
    QTest::newRow("script: empty object") << script("({})");
    QTest::newRow("script: object") << script("({length: 1, 0: {name: 'DUPONT'}})");
    QTest::newRow("script: text") << script("'DUPONT'");
    QTest::newRow("script: number") << script("7");
    QTest::newRow("script: null") << script("null");
    QTest::newRow("script: undefined") << script("undefined");
    QTest::newRow("script: function") << script("(function () { return []; })");
}

void ServiceReport::a_value_that_is_not_a_list_is_not_printed()
{
    QFETCH(QVariant, list);
    running->service->reports.clear();

    const bool asked = withModal<QPrintDialog>([&] { running->service->requestPrint(waitingTitle, list); },
                                               [](QPrintDialog &dialog) { dialog.reject(); });

    QVERIFY(!asked);
    QCOMPARE(running->service->reports.size(), 0);
    QVERIFY(!SettingsFile::keys().contains("PrinterCounter"));
}

void ServiceReport::a_row_that_is_not_a_map_is_empty_data()
{
    QTest::addColumn<QVariant>("row");
    QTest::newRow("number") << QVariant(42);
    QTest::newRow("text") << QVariant("DUPONT");
    QTest::newRow("null") << QVariant::fromValue(nullptr);
    QTest::newRow("not given") << QVariant();
    QTest::newRow("list") << QVariant(QVariantList{1, 2});
    QTest::newRow("truth value") << QVariant(true);
}

void ServiceReport::a_row_that_is_not_a_map_is_empty()
{
    QFETCH(QVariant, row);
    const QString report = reportOf(waitingTitle, QVariantList{row, answeredPatient()});
    QCOMPARE(cellsOf(report),
             QList<QStringList>({
                 {"", "", "", "?", "", "", "", ""},
                 {"DUPONT Marie", "31/01/2014", "01 99 00 12 34", "Non", "Oui", "Oui", "Oui", "Non"},
             }));
}

void ServiceReport::flag_above_zero_means_yes_data()
{
    QTest::addColumn<QVariant>("flag");
    QTest::addColumn<QString>("cell");

    QTest::newRow("1") << QVariant(1) << "Oui";
    QTest::newRow("2") << QVariant(2) << "Oui";
    QTest::newRow("0.25") << QVariant(0.25) << "Oui";
    QTest::newRow("0") << QVariant(0) << "Non";
    QTest::newRow("-1") << QVariant(-1) << "Non";
    QTest::newRow("true") << QVariant(true) << "Oui";
    QTest::newRow("false") << QVariant(false) << "Non";
    QTest::newRow("text 1") << QVariant("1") << "Oui";
    QTest::newRow("text 0.5") << QVariant("0.5") << "Oui";
    QTest::newRow("text oui") << QVariant("oui") << "Non";
    QTest::newRow("empty text") << QVariant("") << "Non";
    QTest::newRow("null") << QVariant::fromValue(nullptr) << "Non";
    QTest::newRow("not given") << QVariant() << "Non";
}

void ServiceReport::flag_above_zero_means_yes()
{
    QFETCH(QVariant, flag);
    QFETCH(QString, cell);
    QCOMPARE(stepsOf({{"test_date", "2014-01-01"}, {"test", flag}}).first(), cell);
    // The same rule applies to the last step.
    QVariantMap patient = answeredPatient();
    patient.insert("rdv3", flag);
    QCOMPARE(stepsOf(patient).last(), cell);
}

void ServiceReport::date_counts_as_given_when_it_has_a_text_data()
{
    QTest::addColumn<QVariant>("date");
    QTest::addColumn<QString>("cell");

    QTest::newRow("a date") << QVariant("2014-01-01") << "Oui";
    QTest::newRow("some text") << QVariant("hier") << "Oui";
    QTest::newRow("a blank") << QVariant(" ") << "Oui";
    QTest::newRow("a number") << QVariant(0) << "Oui";
    QTest::newRow("empty text") << QVariant("") << "?";
    QTest::newRow("null") << QVariant::fromValue(nullptr) << "?";
    QTest::newRow("not given") << QVariant() << "?";
}

void ServiceReport::date_counts_as_given_when_it_has_a_text()
{
    QFETCH(QVariant, date);
    QFETCH(QString, cell);
    QCOMPARE(stepsOf({{"test_date", date}, {"test", 1}}).first(), cell);
}

void ServiceReport::text_is_not_escaped()
{
    const QString report = reportOf(
        "Liste <i>& \"moi\"</i>",
        QVariantList{QVariantMap{{"name", "<u>A & B</u>"}, {"created_format", "<1>"}, {"phone", "a>b"}}});
    QVERIFY(report.startsWith("<head><title>Liste <i>& \"moi\"</i><title></head>"));
    QVERIFY(report.contains("<h2 align=center>Liste <i>& \"moi\"</i></h2>"));
    QVERIFY(report.contains("<tr><td style=\"vertical-align: center;\"><u>A & B</u></td>"
                            "<td align=center style=\"vertical-align: center;\"><1></td>"
                            "<td style=\"vertical-align: center;\">a>b</td>"));
}

void ServiceReport::date_line_follows_the_clock_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<QString>("line");
    QTest::newRow("2016-02-29 00:00:00") << QByteArray("2016-02-29 00:00:00") << "Monday 29 February 2016 à 0:00";
    QTest::newRow("2014-12-31 23:59:59") << QByteArray("2014-12-31 23:59:59") << "Wednesday 31 December 2014 à 23:59";
    QTest::newRow("2015-01-01 09:07:30") << QByteArray("2015-01-01 09:07:30") << "Thursday 1 January 2015 à 9:07";
    QTest::newRow("2014-07-14 12:00:00") << QByteArray("2014-07-14 12:00:00") << "Monday 14 July 2014 à 12:00";
}

void ServiceReport::date_line_follows_the_clock()
{
    QFETCH(QByteArray, now);
    QFETCH(QString, line);
    const TestClock clock(now);
    const QString report = reportOf(waitingTitle, QVariantList());
    QVERIFY2(report.endsWith("<p align=center>Imprimé le " + line + "</p></body>"), qPrintable(report.right(80)));
}

void ServiceReport::date_line_can_be_translated()
{
    struct English : QTranslator
    {
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            const bool isMeant = !qstrcmp(context, "WidgetService")
                && QString(text) == QString::fromUtf8("Imprimé le ");
            return isMeant ? QString("Printed on ") : QString();
        }
        bool isEmpty() const override { return false; }
    } english;
    QCoreApplication::installTranslator(&english);
    QVERIFY(reportOf(waitingTitle, QVariantList()).contains("<p align=center>Printed on "));
}

void ServiceReport::rows_keep_their_order()
{
    QVariantList patients;
    for (const char *name : {"Zoé", "anne", "Bob", "Zoé", ""})
        patients.append(QVariantMap{{"name", QString::fromUtf8(name)}});
    QStringList names;
    const QList<QStringList> rows = cellsOf(reportOf(waitingTitle, patients));
    for (const QStringList &row : rows)
        names.append(row.first());
    COMPARE_LINES(names, {"Zoé", "anne", "Bob", "Zoé", ""});
}

void ServiceReport::type_of_each_row_is_logged()
{
    LogCapture capture;
    reportOf(waitingTitle, QVariantList{QVariantMap{{"name", "DUPONT"}}, 42, "DUPONT"});
    COMPARE_LINES(LogCapture::lines().filter("userType"), {"userType: 8", "userType: 2", "userType: 10"});
    QVERIFY2(LogCapture::lines().filter("DUPONT").isEmpty(), "A patient's name is in the log");
}

SERVICE_TEST_MAIN(ServiceReport)

#include "tst_ServiceReport.moc"
