#include "windows.h"

#include "measurement.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTimer>

#include <algorithm>

namespace {

constexpr double pointFactor = 1.3;
constexpr int limitMs = 60000;
// Longer than a frame and shorter than a blink of the cursor, which never stops painting.
constexpr int restMs = 250;

QQuickItem *search(QQuickItem *item, const QByteArray &type, const char *property, const QString &value)
{
    if (QByteArray(item->metaObject()->className()).startsWith(type)
        && (value.isEmpty() || item->property(property).toString() == value)) {
        return item;
    }
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        if (QQuickItem *found = search(child, type, property, value)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

QQuickView *createView(const QString &document)
{
    auto *view = new QQuickView;
    view->rootContext()->setContextProperty(QStringLiteral("point_factor"), pointFactor);
    view->setSource(QUrl(document));
    if (view->status() != QQuickView::Ready) {
        qFatal("%s does not load", qPrintable(document));
    }
    return view;
}

QQuickView *findView(const QString &document)
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        auto *view = qobject_cast<QQuickView *>(window);
        if (view && view->source().path().endsWith(QLatin1Char('/') + document + QStringLiteral(".qml"))) {
            return view;
        }
    }
    qFatal("No window shows %s", qPrintable(document));
}

QQuickItem *findItem(QQuickItem *root, const char *type, const char *property, const QString &value)
{
    QQuickItem *found = search(root, QByteArray(type) + "_QMLTYPE", property, value);
    if (!found) {
        qFatal("No %s with %s %s", type, property, qPrintable(value));
    }
    return found;
}

bool hasItem(QQuickItem *root, const char *type)
{
    return search(root, QByteArray(type) + "_QMLTYPE", "", QString()) != nullptr;
}

void showAllPatients(const QQuickView &list)
{
    findItem(list.rootObject(), "TabPopup", "title", QStringLiteral("Liste de tous les patients"))
        ->setProperty("checked", true);
}

double pressKeyMs(QQuickView &view, char letter)
{
    const int key = Qt::Key_A + letter - 'a';
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, QString(QLatin1Char(letter)));
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, QString(QLatin1Char(letter)));
    waitUntilAtRest();
    const double ms = elapsedMs([&] { paintedAfter({&view}, [&] { QCoreApplication::sendEvent(&view, &down); }); });
    QCoreApplication::sendEvent(&view, &up);
    return ms;
}

void paintedAfter(const std::vector<QQuickWindow *> &windows, const std::function<void()> &work)
{
    work();
    // Connected only now: frames count from the end of the work.
    std::vector<bool> painted(windows.size(), false);
    QObject receiver;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        QObject::connect(windows[i], &QQuickWindow::frameSwapped, &receiver, [&painted, i] { painted[i] = true; });
    }
    waitUntil([&painted] { return std::find(painted.begin(), painted.end(), false) == painted.end(); });
}

void waitUntil(const std::function<bool()> &condition)
{
    const QDeadlineTimer deadline(limitMs);
    QTimer ticks; // wakes the event loop to check the limit
    ticks.start(1000);
    while (!condition()) {
        if (deadline.hasExpired()) {
            qFatal("The condition was not met within %d s", limitMs / 1000);
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void waitUntilAtRest()
{
    QElapsedTimer sinceFrame;
    QObject receiver;
    sinceFrame.start();
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        if (auto *quick = qobject_cast<QQuickWindow *>(window)) {
            QObject::connect(quick, &QQuickWindow::frameSwapped, &receiver, [&sinceFrame] { sinceFrame.restart(); });
        }
    }
    QTimer ticks;
    ticks.start(10);
    waitUntil([&] { return sinceFrame.elapsed() >= restMs; });
}
