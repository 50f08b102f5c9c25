#include "answeredpatient.h"
#include "comparelines.h"
#include "modal.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>

namespace {

const QString title = QStringLiteral("Liste de tous les patients");

QPushButton *button(const QDialog &dialog, QDialogButtonBox::ButtonRole role)
{
    const auto *box = dialog.findChild<QDialogButtonBox *>();
    const QList<QAbstractButton *> buttons = box ? box->buttons() : QList<QAbstractButton *>();
    for (QAbstractButton *candidate : buttons) {
        if (box->buttonRole(candidate) == role)
            return qobject_cast<QPushButton *>(candidate);
    }
    return nullptr;
}

/// Prints into that file, as a user does in the dialog.
void printTo(const QDialog &dialog, const QString &path)
{
    auto *name = dialog.findChild<QLineEdit *>("filename");
    QPushButton *print = button(dialog, QDialogButtonBox::AcceptRole);
    QVERIFY(name && name->isVisible() && print);
    name->selectAll();
    QTest::keyClicks(name, path);
    QCOMPARE(name->text(), path);
    QTest::mouseClick(print, Qt::LeftButton);
}

QString pathOf(const char *name)
{
    return QDir::homePath() + "/" + QLatin1String(name);
}

/// The standard output of a command.
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(20000) || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The lines of text of a PDF file in layout order, with simplified whitespace.
QStringList linesOf(const QString &pdf)
{
    QStringList lines;
    QString text = outputOf("pdftotext", {"-layout", "-enc", "UTF-8", pdf, "-"});
    text.replace(QChar(0xfb01), "fi"); // the font's ligature
    const QStringList all = text.split('\n');
    for (const QString &line : all) {
        if (!line.simplified().isEmpty())
            lines.append(line.simplified());
    }
    return lines;
}

QVariantList patients(int count)
{
    QVariantList list;
    for (int i = 1; i <= count; ++i) {
        QVariantMap patient = answeredPatient();
        patient.insert("name", QString("PATIENT%1 Éloïse").arg(i, 2, 10, QChar('0')));
        patient.insert("test", i % 3);
        patient.insert("rdv1", i % 2);
        patient.insert("date3", "");
        list.append(patient);
    }
    return list;
}

} // namespace

/// From the print dialog to the printed page.
class ServicePrinting : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void dialog_has_a_title_and_no_parent();
    void printer_has_the_settings_of_the_platform();
    void accepted_print_is_printed_and_counted();
    void cancelled_print_leaves_no_file_and_is_not_counted_data();
    void cancelled_print_leaves_no_file_and_is_not_counted();
    void empty_list_is_printed_and_counted();
    void prints_are_counted_data();
    void prints_are_counted();
    void twenty_patients_fit_on_a_page();
    void long_list_continues_on_further_pages();
    void file_that_cannot_be_written_is_reported_by_the_dialog_data();
    void file_that_cannot_be_written_is_reported_by_the_dialog();
    void report_is_built_once_at_the_time_of_the_request();
};

void ServicePrinting::init()
{
    SettingsFile::forgetEverything();
}

void ServicePrinting::dialog_has_a_title_and_no_parent()
{
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [](QPrintDialog &dialog) {
                                        QCOMPARE(dialog.windowTitle(), title);
                                        QVERIFY(!dialog.windowIcon().isNull());
                                        QVERIFY(
                                            dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint)); // like the widget
                                        QCOMPARE(dialog.parentWidget(), nullptr);
                                        QVERIFY(dialog.isModal());
                                    }));
}

void ServicePrinting::printer_has_the_settings_of_the_platform()
{
    const QPrinter expected(QPrinter::ScreenResolution);
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [&](QPrintDialog &dialog) {
                                        QCOMPARE(dialog.printer()->resolution(), expected.resolution());
                                        QVERIFY(dialog.printer()->resolution()
                                                != QPrinter(QPrinter::HighResolution).resolution());
                                        QCOMPARE(dialog.printer()->pageLayout(), expected.pageLayout());
                                        QCOMPARE(dialog.printer()->docName(), QString());
                                    }));
}

void ServicePrinting::accepted_print_is_printed_and_counted()
{
    const QString file = pathOf("accepted.pdf");
    RunningService running;
    qint64 printedBeforeCounting = 0;
    running.service->onCount = [&] { printedBeforeCounting = QFileInfo(file).size(); };
    const QVariantList two{
        QVariantMap{{"name", "DUPONT Marie"},
                    {"created_format", "31/01/2014"},
                    {"phone", "01 99 00 12 34"},
                    {"test_date", "2014-01-01"},
                    {"test", 0},
                    {"date1", "2014-01-02"},
                    {"rdv1", 0}},
        QVariantMap{{"name", "Éloïse <i>O'Neil</i> &amp; fils"}, {"test_date", "2014-01-01"}, {"test", 1}}};

    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, two); },
                                    [&](QPrintDialog &dialog) {
                                        QVERIFY(!SettingsFile::keys().contains("PrinterCounter"));
                                        printTo(dialog, file);
                                    }));

    QStringList lines = linesOf(file);
    QVERIFY(lines.size() > 2);
    QVERIFY2(lines.filter(QRegularExpression("^Imprimé le \\w+ \\d{1,2} \\w+ \\d{4} à \\d{1,2}:\\d\\d$")).size() == 1,
             qPrintable(lines.join('\n')));
    lines = lines.filter(QRegularExpression("^(?!Imprimé le )"));
    COMPARE_LINES(lines,
                  {
                      "Vesk Tandry",
                      title,
                      "Nom du patient Date 1er RDV Téléphone Tests Bilan 1 Allergie Prise Bilan 2",
                      "DUPONT Marie 31/01/2014 01 99 00 12 34 Non Non",
                      "Éloïse O'Neil & fils Oui - ?", // names are not escaped: their markup takes effect
                      "Tests : Tests cutanés",
                      "Bilan 1 : RDV bilan allergologique",
                      "Allergie : Allergie confirmée",
                      "Prise : RDV 1ère prise",
                      "Bilan 2 : RDV bilan fin de saison",
                      "1",
                  });
    QVERIFY(printedBeforeCounting > 0);
    QCOMPARE(SettingsFile::value("PrinterCounter"), QVariant(1));
}

void ServicePrinting::cancelled_print_leaves_no_file_and_is_not_counted_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("cancel") << "cancel";
    QTest::newRow("escape") << "escape";
    QTest::newRow("close") << "close";
}

void ServicePrinting::cancelled_print_leaves_no_file_and_is_not_counted()
{
    QFETCH(QString, way);
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [&](QPrintDialog &dialog) {
                                        dialog.findChild<QLineEdit *>("filename")->setText(pathOf("cancelled.pdf"));
                                        if (way == "cancel")
                                            QTest::mouseClick(button(dialog, QDialogButtonBox::RejectRole),
                                                              Qt::LeftButton);
                                        else if (way == "escape")
                                            QTest::keyClick(&dialog, Qt::Key_Escape);
                                        else
                                            dialog.close();
                                    }));
    QVERIFY(!QFileInfo::exists(pathOf("cancelled.pdf")));
    QVERIFY(!SettingsFile::keys().contains("PrinterCounter"));
}

void ServicePrinting::empty_list_is_printed_and_counted()
{
    const QString file = pathOf("empty.pdf");
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, QVariantList()); },
                                    [&](QPrintDialog &dialog) { printTo(dialog, file); }));
    COMPARE_LINES(linesOf(file).mid(0, 4),
                  {
                      "Vesk Tandry",
                      title,
                      "Nom du patient Date 1er RDV Téléphone Tests Bilan 1 Allergie Prise Bilan 2",
                      "Tests : Tests cutanés",
                  });
    QCOMPARE(SettingsFile::value("PrinterCounter"), QVariant(1));
}

void ServicePrinting::prints_are_counted_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("absent") << QVariant() << 1;
    QTest::newRow("41") << QVariant(41) << 42;
    QTest::newRow("text") << QVariant("often") << 1;
}

void ServicePrinting::prints_are_counted()
{
    QFETCH(QVariant, before);
    QFETCH(int, after);
    RunningService running;
    if (before.isValid())
        SettingsFile::setValue("PrinterCounter", before);
    const QByteArray name = QByteArray("counted-") + QTest::currentDataTag() + ".pdf";
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [&](QPrintDialog &dialog) { printTo(dialog, pathOf(name)); }));
    QCOMPARE(SettingsFile::value("PrinterCounter"), QVariant(after));
}

void ServicePrinting::twenty_patients_fit_on_a_page()
{
    const QString file = pathOf("twenty.pdf");
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(20)); },
                                    [&](QPrintDialog &dialog) { printTo(dialog, file); }));
    const QString facts = outputOf("pdfinfo", {file});
    QVERIFY2(facts.contains(QRegularExpression("Pages: +1\n")), qPrintable(facts));
    QVERIFY2(facts.contains("(A4)"), qPrintable(facts));
    const QStringList lines = linesOf(file);
    COMPARE_LINES(lines.filter("PATIENT").mid(0, 2),
                  {
                      "PATIENT01 Éloïse 31/01/2014 01 99 00 12 34 Oui - Oui Oui ?",
                      "PATIENT02 Éloïse 31/01/2014 01 99 00 12 34 Oui - Oui Oui ?",
                  });
    QCOMPARE(lines.filter("PATIENT").size(), 20);
    // Legible on paper: eight points. The height of a line depends on the machine's font.
    const QString html = outputOf("pdftohtml", {"-xml", "-i", "-stdout", "-zoom", "1", file});
    const QString font = QRegularExpression("font=\"(\\d+)\">PATIENT01").match(html).captured(1);
    QCOMPARE(QRegularExpression("<fontspec id=\"" + font + "\" size=\"(\\d+)\"").match(html).captured(1), QString("8"));
}

void ServicePrinting::long_list_continues_on_further_pages()
{
    const QString file = pathOf("long.pdf");
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(99)); },
                                    [&](QPrintDialog &dialog) { printTo(dialog, file); }));
    QVERIFY(!outputOf("pdfinfo", {file}).contains(QRegularExpression("Pages: +1\n")));
    QCOMPARE(linesOf(file).filter("PATIENT").size(), 99);
}

void ServicePrinting::file_that_cannot_be_written_is_reported_by_the_dialog_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder that does not exist") << pathOf("none/at/all.pdf");
    QTest::newRow("folder that takes no file") << "/proc/tandry.pdf";
    QTest::newRow("a folder") << QDir::homePath();
}

void ServicePrinting::file_that_cannot_be_written_is_reported_by_the_dialog()
{
    QFETCH(QString, path);
    RunningService running;
    QStringList reported;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [&](QPrintDialog &dialog) { printTo(dialog, path); }, &reported));
    QCOMPARE(reported.size(), 1);
    QVERIFY2(reported.first().contains(path), qPrintable(reported.first()));
    // The dialog stayed open for another name, and the test closed it.
    QVERIFY(!SettingsFile::keys().contains("PrinterCounter"));
    running.call("show");
    QVERIFY(running.main->isVisible());
}

void ServicePrinting::report_is_built_once_at_the_time_of_the_request()
{
    RunningService running;
    QVERIFY(withModal<QPrintDialog>([&] { running.service->requestPrint(title, patients(1)); },
                                    [&](QPrintDialog &) {
                                        running.call("refreshViews");
                                        QCOMPARE(running.service->reports.size(), 1);
                                    }));
    QCOMPARE(running.service->reports.size(), 1);
}

SERVICE_TEST_MAIN(ServicePrinting)

#include "tst_ServicePrinting.moc"
