// The bare minimum that shows a blinking cursor: a window of the widget's size with one focused field.
#include "orders.h"
#include "prepareprocess.h"

#include <QApplication>
#include <QQuickView>

int main(int argc, char *argv[])
{
    prepareProcess();
    QApplication application(argc, argv);
    QQuickWindow::setDefaultAlphaBuffer(true);
    QQuickView view;
    view.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    view.setSource(QUrl(QStringLiteral("qrc:///bare/main.qml")));
    view.setColor(Qt::transparent);
    const Orders orders([&view](const std::string &) {
        view.show();
        view.requestActivate();
    });
    return application.exec();
}
