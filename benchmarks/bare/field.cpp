// The bare minimum that shows a blinking cursor: a window of the widget's size with one focused field.
#include "prepareprocess.h"

#include <QApplication>
#include <QQuickView>
#include <QSocketNotifier>

#include <cstdio>

#include <unistd.h>

int main(int argc, char *argv[])
{
    prepareProcess();
    QApplication application(argc, argv);
    QQuickWindow::setDefaultAlphaBuffer(true);
    QQuickView view;
    view.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    view.setSource(QUrl(QStringLiteral("qrc:///bare/main.qml")));
    view.setColor(Qt::transparent);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char line[80];
        if (read(STDIN_FILENO, line, sizeof line) <= 0) {
            application.quit();
            return;
        }
        view.show();
        view.requestActivate();
        std::puts("done");
        std::fflush(stdout);
    });
    return application.exec();
}
