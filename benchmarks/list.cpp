// Switches the patient list to all patients and waits for the first frame; compared with the statement alone.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/qml/ListPopup.qml"));
    view->show();
    RawStore raw(*view->engine(), measurement.patients);

    QQuickItem *waitingTab = findItem(view->rootObject(), "TabPopup", "title", QStringLiteral("Patients en attente"));
    QQuickItem *allTab = findItem(view->rootObject(), "TabPopup", "title",
                                  QStringLiteral("Liste de tous les patients"));
    QQuickItem *selectAll = findItem(view->rootObject(), "TableTick", "name", QStringLiteral("Tout sélectionner"));
    const auto bare = [&](int) {
        return elapsedMs([&] {
            if (raw.selectAll() != measurement.patients) {
                qFatal("Not all patients were read");
            }
        });
    };
    double untilLoadedMs = 0;
    const auto program = [&](int) {
        waitingTab->setProperty("checked", true);
        waitUntilAtRest();
        return elapsedMs([&] {
            paintedAfter({view}, [&] { untilLoadedMs = elapsedMs([&] { allTab->setProperty("checked", true); }); });
        });
    };

    for (const bool ticked : {true, false}) {
        selectAll->setProperty("checked", ticked);
        measurement.compare(ticked ? "list, box ticked" : "list, box not ticked", program, bare);
        printValue(ticked ? "list loaded, box ticked" : "list loaded, box not ticked", untilLoadedMs);
    }
    delete view;
}
