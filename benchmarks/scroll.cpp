// Scrolls the patient list by one row each frame and counts the dropped frames, at 60 frames a second.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include <QPropertyAnimation>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double frameMs = 1000.0 / 60;
constexpr int rowHeight = 42;

QQuickItem *findList(QQuickItem *item)
{
    if (item->inherits("QQuickListView")) {
        return item;
    }
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *list = findList(child)) {
            return list;
        }
    }
    return nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/qml/ListPopup.qml"));
    view->show();
    RawStore raw(*view->engine(), measurement.patients);
    showAllPatients(*view);
    waitUntilAtRest();
    QQuickItem *list = findList(view->rootObject());
    if (!list) {
        qFatal("The document holds no list");
    }

    const int rows = std::min(1000, measurement.patients - 20);
    measurement.measure("frames dropped per 1,000", [&](int number) {
        const int start = number * rows % (measurement.patients - rows) * rowHeight;
        list->setProperty("contentY", start);
        waitUntilAtRest();

        QElapsedTimer timer;
        std::vector<double> times;
        QObject receiver;
        QObject::connect(view, &QQuickWindow::frameSwapped, &receiver,
                         [&] { times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6); });
        QPropertyAnimation scrolling(list, "contentY");
        scrolling.setStartValue(start);
        scrolling.setEndValue(start + rows * rowHeight);
        scrolling.setDuration(static_cast<int>(rows * frameMs));
        timer.start();
        scrolling.start();
        waitUntil([&] { return scrolling.state() == QAbstractAnimation::Stopped; });

        // Each full frame of a gap beyond the first counts as dropped. Half a frame of delay is allowed, because
        // painting is not synchronised with the screen here.
        double dropped = 0;
        for (std::size_t i = 1; i < times.size(); ++i) {
            dropped += std::max(0.0, std::floor((times[i] - times[i - 1]) / frameMs + 0.5) - 1);
        }
        return dropped * 1000 / rows;
    });
    delete view;
}
