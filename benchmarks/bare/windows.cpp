// The bare minimum that opens the program's windows: three views, each with its own engine, the imports of the
// program's document and one field. Shows the first one; "open all" on standard input shows the others.
#include "orders.h"
#include "prepareprocess.h"

#include <QApplication>
#include <QQuickView>

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
    const Orders orders([&views](const std::string &order) {
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
    });
    if (argc < 2) {
        views[0].show();
    }
    return application.exec();
}
