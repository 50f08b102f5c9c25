// Builds the text of the report of all patients, compared with appending the same number of bytes; and lays it out.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include "draggablequickview.h"
#include "widgetservice.h"

#include <QJSValue>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTextDocument>

namespace {

using Report = QString (WidgetService::*)(const QString &, const QVariantList &);

Report reportOf();

/// Gives access to a private member: an explicit instantiation may name it.
template<Report member>
struct Opened
{
    friend Report reportOf() { return member; }
};
template struct Opened<&WidgetService::report>;

/// The rows as the list passes them to the printing slot.
QVariantList loadedRows(const QQuickView &list)
{
    const QVariant rows = list.rootObject()->property("printModel");
    return (rows.userType() == qMetaTypeId<QJSValue>() ? rows.value<QJSValue>().toVariant() : rows).toList();
}

/// The report in the pieces that its code appends: every literal and every value.
QStringList pieces(const QString &html)
{
    QStringList found;
    int start = 0;
    for (int i = 0; i < html.size(); ++i) {
        const bool ends = html.at(i) == QLatin1Char('>') || i + 1 == html.size() || html.at(i + 1) == QLatin1Char('<');
        if (ends && (html.at(i) != QLatin1Char('>') || i + 1 == html.size() || html.at(i + 1) != QLatin1Char('<'))) {
            found.append(html.mid(start, i + 1 - start));
            start = i + 1;
        }
    }
    return found;
}

} // namespace

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    WidgetService service(nullptr);
    QQuickView *list = findView(QStringLiteral("ListPopup"));
    RawStore raw(*list->engine(), measurement.patients);
    showAllPatients(*list);
    const QVariantList rows = loadedRows(*list);
    if (rows.size() != measurement.patients) {
        qFatal("%d patients were loaded", rows.size());
    }

    const QString title = QStringLiteral("Liste de tous les patients");
    QString html;
    const auto build = [&](int) { return elapsedMs([&] { html = (service.*reportOf())(title, rows); }); };
    build(0);
    const QStringList parts = pieces(html);
    if (parts.join(QString()) != html) {
        qFatal("The pieces differ from the report");
    }
    measurement.compare("report, text", build, [&](int) {
        return elapsedMs([&] {
            QString appended;
            for (const QString &part : parts) {
                appended += part;
            }
            if (appended.size() < measurement.patients) {
                qFatal("Nothing was appended");
            }
        });
    });
    printValue("report, characters", html.size());
    measurement.measure("report, laid out", [&](int) {
        return elapsedMs([&] {
            QTextDocument document;
            QFont font = document.defaultFont();
            font.setPixelSize(8);
            document.setDefaultFont(font);
            document.setHtml(html);
            document.setTextWidth(800);
            if (document.size().height() < measurement.patients) {
                qFatal("Nothing was laid out");
            }
        });
    });
}
