#include "widgetservice.h"

#include "plainvariant.h"
#include "settingskeys.h"

#include <QDateTime>
#include <QDebug>
#include <QPrintDialog>
#include <QPrinter>
#include <QStringBuilder>
#include <QTextDocument>

namespace {

constexpr int fontPixelSize = 8;
constexpr int usualRowLength = 600; // characters: a row's markup and about fifty of values

/// A column's header, and its meaning in the legend.
struct Column
{
    QString shortLabel;
    QString longLabel;
};

// The legend explains the steps, not the patient's name, date and phone.
constexpr int firstExplainedColumn = 3;

QList<Column> reportColumns()
{
    return {
        {WidgetService::tr("Nom du patient"), WidgetService::tr("Nom du patient")},
        {WidgetService::tr("Date 1er RDV"), WidgetService::tr("Date 1er RDV")},
        {WidgetService::tr("Téléphone"), WidgetService::tr("Téléphone")},
        {WidgetService::tr("Tests"), WidgetService::tr("Tests cutanés")},
        {WidgetService::tr("Bilan 1"), WidgetService::tr("RDV bilan allergologique")},
        {WidgetService::tr("Allergie"), WidgetService::tr("Allergie confirmée")},
        {WidgetService::tr("Prise"), WidgetService::tr("RDV 1ère prise")},
        {WidgetService::tr("Bilan 2"), WidgetService::tr("RDV bilan fin de saison")},
    };
}

bool isGiven(const QMap<QString, QVariant> &map, const QString &date)
{
    return !map.value(date).toString().isEmpty();
}

/// Any value above 0 is a yes, as on sheets already printed; the list on the screen requires exactly 1.
bool isYes(const QMap<QString, QVariant> &map, const QString &flag)
{
    return map.value(flag).toDouble() > 0;
}

} // namespace

void WidgetService::requestPrint(QString title, QVariant list)
{
    const QVariant rows = plainVariant(list);
    if (!rows.canConvert<QVariantList>()) {
        return;
    }

    const QString html = report(title, rows.toList());
    QPrinter printer(QPrinter::ScreenResolution);
    QTextDocument document;
    QFont font = document.defaultFont();
    font.setPixelSize(fontPixelSize);
    document.setDefaultFont(font);
    document.setHtml(html);

    QPrintDialog dialog(&printer);
    dialog.setWindowTitle(title);
    if (dialog.exec() == QDialog::Accepted) {
        document.print(&printer);
        incrementCounter(SettingsKeys::printerCounter);
    }
}

/// The report's markup. Its faults (an unclosed title, "</br>", unescaped values) shape the layout of the sheets that
/// practices have on file.
QString WidgetService::report(const QString &title, const QVariantList &rows)
{
    const QList<Column> columns = reportColumns();
    QString html = QStringLiteral("<head><title>") + title
        + QStringLiteral("<title></head><body style=\"width: 100%;\"><h1 align=center>Vesk Tandry</h1>"
                         "<h2 align=center>")
        + title
        + QStringLiteral("</h2><br/><table width=\"100%\" border=\"1\" cellspacing=\"0\" cellpadding=\"4\" "
                         "style=\"border-style: solid; border-color: #7a7a7a;\"><thead>"
                         "<tr style=\"background-color: '#DADADA'\">");

    for (const Column &column : columns) {
        html += QStringLiteral("<th align=center style=\"vertical-align: center;\"><b>") + column.shortLabel
            + QStringLiteral("</b></th>");
    }
    html += QStringLiteral("</tr></thead><tbody>");
    html.reserve(html.size() + rows.size() * usualRowLength);
    for (const QVariant &row : rows) {
        appendReportRow(html, row);
    }
    html += QStringLiteral("</tbody></table><br/><br/><p><ul style=\"list-style: none;\">");
    for (int i = firstExplainedColumn; i < columns.size(); ++i) {
        html += QStringLiteral("<li>") + columns.at(i).shortLabel + QStringLiteral(" : <i>") + columns.at(i).longLabel
            + QStringLiteral("</i></li>");
    }
    return html + QStringLiteral("</ul></br><p align=center>") + tr("Imprimé le ")
        + QDateTime::currentDateTime().toString(QStringLiteral("dddd d MMMM yyyy à h:mm"))
        + QStringLiteral("</p></body>");
}

void WidgetService::appendReportRow(QString &html, const QVariant &row)
{
    // The name is QVariant's. A row that is not a map (type 8) prints empty, and this line shows why.
    qDebug() << "userType:" << row.userType();

    QMap<QString, QVariant> map = row.toMap();
    html += QStringLiteral("<tr><td style=\"vertical-align: center;\">") % map.value(QStringLiteral("name")).toString()
        % QStringLiteral("</td><td align=center style=\"vertical-align: center;\">")
        % map.value(QStringLiteral("created_format")).toString()
        % QStringLiteral("</td><td style=\"vertical-align: center;\">") % map.value(QStringLiteral("phone")).toString()
        % QStringLiteral("</td>");

    const QStringList cells = getDataFromMap(map);
    for (const QString &cell : cells) {
        html += QStringLiteral("<td align=center style=\"vertical-align: center;\">") % cell % QStringLiteral("</td>");
    }
    html += QStringLiteral("</tr>");
}

/// The five step cells of a row. Cells after the first open or refused step stay empty even when the row holds answers:
/// the sheet shows the pathway, the list on the screen all answers.
QStringList WidgetService::getDataFromMap(QMap<QString, QVariant> &map)
{
    enum Cell { SkinTests, WorkUp, Allergy, FirstIntake, Review, CellCount };
    const QString yes = tr("Oui");
    const QString no = tr("Non");
    const QString pending = QStringLiteral("?");
    QStringList cells;
    cells.reserve(CellCount);
    for (int i = 0; i < CellCount; ++i) {
        cells.append(QString());
    }
    // Fills one cell. True when the pathway continues after it.
    const auto fill = [&](Cell cell, const QString &date, const QString &flag) {
        cells[cell] = !isGiven(map, date) ? pending : isYes(map, flag) ? yes : no;
        return cells[cell] == yes;
    };

    if (fill(SkinTests, QStringLiteral("test_date"), QStringLiteral("test"))) {
        cells[WorkUp] = QStringLiteral("-");
    } else if (cells[SkinTests] == pending || !fill(WorkUp, QStringLiteral("date1"), QStringLiteral("rdv1"))) {
        return cells;
    }
    if (fill(Allergy, QStringLiteral("confirmation_date"), QStringLiteral("confirmation"))
        && fill(FirstIntake, QStringLiteral("date2"), QStringLiteral("rdv2"))) {
        fill(Review, QStringLiteral("date3"), QStringLiteral("rdv3"));
    }
    return cells;
}
