// Searches through the search bar's logic with the result list attached; compared with the two statements alone.
#include "measurement.h"
#include "rawstore.h"
#include "samplepatients.h"
#include "windows.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/benchmarks/Search.qml"));
    view->show();
    QQuickItem *root = view->rootObject();
    RawStore raw(*view->engine(), measurement.patients);

    const auto term = [](int number) { return SamplePatients::searchTerms[number % 2]; };
    measurement.compare(
        "search",
        [&](int number) {
            root->setProperty("text", QString());
            waitUntilAtRest();
            const double ms = elapsedMs([&] { root->setProperty("text", QString::fromLatin1(term(number))); });
            if (root->property("found").toInt() != raw.search(term(number))) {
                qFatal("The search bar and the statements do not find the same number of patients");
            }
            return ms;
        },
        [&](int number) { return elapsedMs([&] { raw.search(term(number)); }); });
    delete view;
}
