// The program as main() builds it, without the guard, that does what it is told line by line on its standard input and
// answers "done": what a user or an hour would make it do.
#include "draggablequickview.h"
#include "prepareprocess.h"
#include "widgetservice.h"

#include <QApplication>
#include <QQmlEngine>
#include <QSocketNotifier>

#include <cstdio>
#include <string>

#include <unistd.h>

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
        // A day: a tick an hour, the refresh on the new day, the statistics.
        for (int hour = 0; hour < hoursADay; ++hour) {
            service.autoRefresh();
        }
        service.refreshViews();
        service.sendDataToServer();
    } else if (order == "collect") {
        // What the scripts have dropped is given back when their engines see fit; growth is what remains without it.
        const QWindowList windows = QGuiApplication::allWindows();
        for (QWindow *window : windows) {
            if (auto *view = qobject_cast<QQuickView *>(window)) {
                view->engine()->collectGarbage();
            }
        }
    } else {
        qFatal("What is %s?", order.c_str());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    prepareProcess();
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    WidgetService service(nullptr);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char line[80];
        const ssize_t size = read(STDIN_FILENO, line, sizeof line);
        if (size <= 0) {
            application.quit();
            return;
        }
        obey(service, std::string(line, static_cast<std::size_t>(size - 1)));
        std::puts("done");
        std::fflush(stdout);
    });
    return application.exec();
}
