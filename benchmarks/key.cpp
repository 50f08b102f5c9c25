// Time from a key press in the search field until the window has painted the result; the whole program runs in this
// process.
#include "figure.h"
#include "rawstore.h"
#include "samplepatients.h"
#include "testhome.h"
#include "windows.h"

#include "draggablequickview.h"
#include "widgetservice.h"

#include <QApplication>
#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const TestHome home;
    const Figure figure(argc, argv);
    QApplication application(argc, argv);
    WidgetService service(nullptr);
    service.show();
    QQuickView *view = service.getView();
    RawStore raw(databaseFile(*view->engine()));
    raw.fill(figure.patients);
    waitUntil([view] { return view->activeFocusItem() && view->isActive(); });
    QQuickItem *bar = findItem(view->rootObject(), "Autocomplete");

    const auto press = [&](char letter) {
        const int key = Qt::Key_A + letter - 'a';
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(QLatin1Char(letter)));
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, QString(QLatin1Char(letter)));
        waitUntilAtRest();
        const double ms = elapsedMs([&] { paintedAfter({view}, [&] { QCoreApplication::sendEvent(view, &down); }); });
        QCoreApplication::sendEvent(view, &up);
        return ms;
    };
    const char *const labels[3] = {"key, first letter", "key, second letter", "key, third letter"};
    for (int number = 0; number <= figure.pairs; ++number) {
        const char *term = SamplePatients::searchTerms[number % 2];
        for (int i = 0; i < 3; ++i) {
            const double ms = press(term[i]);
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
