// Time to load everything after the first frame, and the first use of a window compared with the second; one pair for
// each start.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include "draggablequickview.h"
#include "widgetservice.h"

#include <QElapsedTimer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace {

double searchMs(QQuickView &view, const QQuickItem &field)
{
    const double ms = pressKeyMs(view, 'd');
    if (field.property("text").toString() != QLatin1String("d")) {
        qFatal("The key press did not search");
    }
    return ms;
}

double open(QQuickView &view, const std::function<void()> &opening)
{
    waitUntilAtRest();
    return elapsedMs([&] { paintedAfter({&view}, opening); });
}

} // namespace

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    WidgetService service(nullptr);
    QQuickView *main = service.getView();
    QQuickView *list = findView(QStringLiteral("ListPopup"));
    QQuickView *contact = findView(QStringLiteral("ContactPopup"));
    const RawStore raw(*main->engine(), measurement.patients);
    service.refreshViews();

    QElapsedTimer sinceFrame;
    QObject::connect(main, &QQuickWindow::frameSwapped, main, [&sinceFrame] {
        if (!sinceFrame.isValid()) {
            sinceFrame.start();
        }
    });
    service.show();
    waitUntil([&] {
        return sinceFrame.isValid() && hasItem(main->rootObject(), "Detail")
            && hasItem(main->rootObject(), "PatientsResults") && hasItem(list->rootObject(), "PatientTable")
            && hasItem(list->rootObject(), "TableTitle") && hasItem(contact->rootObject(), "ContactSection");
    });
    printValue("everything loaded after the first frame", static_cast<double>(sinceFrame.nsecsElapsed()) / 1e6);

    QQuickItem *search = findItem(main->rootObject(), "Autocomplete");
    waitUntil([main] { return main->activeFocusItem() && main->isActive(); });
    const double firstLetter = searchMs(*main, *search);
    search->setProperty("text", QString());
    printPair("first letter, beside the second", firstLetter, searchMs(*main, *search));

    const double firstList = open(*list, [&service] { service.openList(); });
    service.closeList();
    printPair("first opening of the list, beside the second", firstList,
              open(*list, [&service] { service.openList(); }));

    const double firstContact = open(*contact, [&service] { service.openContact(); });
    service.closeContact();
    printPair("first opening of the contacts, beside the second", firstContact,
              open(*contact, [&service] { service.openContact(); }));
}
