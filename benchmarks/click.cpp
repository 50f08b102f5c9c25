// Time from a click on an answer until every window shows the new state; the whole program runs in this process.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include "draggablequickview.h"
#include "widgetservice.h"

#include <QMouseEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace {

void click(QQuickView &view, const QQuickItem &item)
{
    const QPointF centre = item.mapToScene(QPointF(item.width() / 2, item.height() / 2));
    QMouseEvent press(QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&view, &press);
    QCoreApplication::sendEvent(&view, &release);
}

} // namespace

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    WidgetService service(nullptr);
    service.show();
    service.openList();
    QQuickView *main = service.getView();
    QQuickView *list = findView(QStringLiteral("ListPopup"));
    RawStore raw(*main->engine(), measurement.patients);
    showAllPatients(*list);

    constexpr int patient = 1;
    raw.update(patient, 1);
    service.openPatient(QString::number(patient));
    waitUntilAtRest();
    QQuickItem *question = findItem(main->rootObject(), "Question");
    QQuickItem *answers[2] = {findItem(question, "AnswerBox", "text", QStringLiteral("Oui")),
                              findItem(question, "AnswerBox", "text", QStringLiteral("Non"))};

    measurement.measure("click", [&](int number) {
        QQuickItem *answer = answers[number % 2];
        if (answer->property("checked").toBool()) {
            answer = answers[1 - number % 2];
        }
        question->setProperty("checked", true);
        waitUntilAtRest();
        const double ms = elapsedMs([&] { paintedAfter({main, list}, [&] { click(*main, *answer); }); });
        if (!answer->property("checked").toBool()) {
            qFatal("The click did not answer the question");
        }
        return ms;
    });
}
