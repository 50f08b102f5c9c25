// Time from a key press in the search field until the window has painted the result; the whole program runs in this
// process.
#include "measurement.h"
#include "rawstore.h"
#include "samplepatients.h"
#include "windows.h"

#include "draggablequickview.h"
#include "widgetservice.h"

#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    WidgetService service(nullptr);
    service.show();
    QQuickView *view = service.getView();
    RawStore raw(*view->engine(), measurement.patients);
    waitUntil([view] { return view->activeFocusItem() && view->isActive(); });
    QQuickItem *bar = findItem(view->rootObject(), "Autocomplete");

    const char *const labels[3] = {"key, first letter", "key, second letter", "key, third letter"};
    for (int number = 0; number <= measurement.pairs; ++number) {
        const char *term = SamplePatients::searchTerms[number % 2];
        for (int i = 0; i < 3; ++i) {
            const double ms = pressKeyMs(*view, term[i]);
            if (bar->property("text").toString().size() != i + 1 || !bar->property("hasResults").toBool()) {
                qFatal("The key press did not search");
            }
            if (number > 0) {
                printValue(labels[i], ms);
            }
        }
        bar->setProperty("text", QString());
    }
}
