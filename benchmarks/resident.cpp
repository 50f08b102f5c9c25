// The program as main() builds it, without the guard. It reads orders line by line from standard input, simulates the
// user or the passing of time, and answers "done".
#include "orders.h"

#include "draggablequickview.h"
#include "prepareprocess.h"
#include "widgetservice.h"

#include <QApplication>
#include <QQmlEngine>

namespace {

void obey(WidgetService &service, const std::string &order)
{
    constexpr int hoursADay = 24;

    if (order == "show") {
        service.show();
    } else if (order == "hide") {
        service.hide();
    } else if (order == "open all") {
        service.show();
        service.openList();
        service.openContact();
    } else if (order == "close all") {
        service.closeList();
        service.closeContact();
    } else if (order == "day") {
        // A day: hourly ticks, the refresh on the new day, the statistics.
        for (int hour = 0; hour < hoursADay; ++hour) {
            service.autoRefresh();
        }
        service.refreshViews();
        service.sendDataToServer();
    } else if (order == "collect") {
        // The engines collect garbage when they see fit; growth is measured after a collection.
        const QWindowList windows = QGuiApplication::allWindows();
        for (QWindow *window : windows) {
            if (auto *view = qobject_cast<QQuickView *>(window)) {
                view->engine()->collectGarbage();
            }
        }
    } else {
        qFatal("Unknown order: %s", order.c_str());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    prepareProcess();
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    WidgetService service(nullptr);
    const Orders orders([&service](const std::string &order) { obey(service, order); });
    return application.exec();
}
