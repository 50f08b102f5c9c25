// The bare minimum that opens the program's windows: three views, each with its own engine, the imports of the
// program's document and one field. Shows the first one; "open all" on standard input shows the others.
#include "prepareprocess.h"

#include <QApplication>
#include <QQuickView>
#include <QSocketNotifier>

#include <cstdio>
#include <string>

#include <unistd.h>

int main(int argc, char *argv[])
{
    prepareProcess();
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    QQuickWindow::setDefaultAlphaBuffer(true);
    QQuickView views[3];
    const char *const documents[3] = {"main", "ContactPopup", "ListPopup"};

    for (int i = 0; i < 3; ++i) {
        views[i].setFlags(i == 0 ? Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint : Qt::FramelessWindowHint);
        views[i].setSource(QUrl(QStringLiteral("qrc:///bare/%1.qml").arg(QLatin1String(documents[i]))));
        views[i].setColor(Qt::transparent);
    }
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char line[80];
        const ssize_t size = read(STDIN_FILENO, line, sizeof line);
        if (size <= 0) {
            application.quit();
            return;
        }
        const std::string order(line, static_cast<std::size_t>(size - 1));
        if (order == "show") {
            views[0].show();
        } else if (order == "open all") {
            for (QQuickView &view : views) {
                view.show();
            }
        } else if (order == "close all") {
            views[1].hide();
            views[2].hide();
        } else {
            qFatal("Unknown order: %s", order.c_str());
        }
        std::puts("done");
        std::fflush(stdout);
    });
    if (argc < 2) {
        views[0].show();
    }
    return application.exec();
}
