#include "runningservice.h"

#include <QApplication>
#include <QTimer>

DraggableQuickView *windowOf(const char *document)
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow *window : windows) {
        auto *view = qobject_cast<DraggableQuickView *>(window);
        if (view && view->source().fileName() == QLatin1String(document))
            return view;
    }
    return nullptr;
}

RunningService::RunningService()
{
    service = new WidgetService(nullptr);
    main = windowOf("main.qml");
    contact = windowOf("ContactPopup.qml");
    list = windowOf("ListPopup.qml");
    if (!main || !contact || !list)
        qFatal("The service has not opened its three documents");
}

RunningService::~RunningService()
{
    QTimer *timer = statisticsTimer();
    destroyService();
    delete timer;
    delete list;
    delete contact;
    delete main;
    delete dialogParent();
    delete Recordings::instance().tray;
    Recordings::instance() = Recordings();
}

void RunningService::call(const char *slot)
{
    if (!QMetaObject::invokeMethod(service, slot))
        qFatal("The service has no %s", slot);
}

void RunningService::destroyService()
{
    delete service;
    service = nullptr;
}

bool RunningService::launchAtLoginTick() const
{
    const QList<QObject *> objects = main->rootObject()->findChildren<QObject *>();
    for (const QObject *object : objects) {
        if (object->property("launchOnStart").isValid())
            return object->property("launchOnStart").toBool();
    }
    qFatal("The main document has no tick for launch at login");
}

QWidget *RunningService::dialogParent() const
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (!widget->windowIcon().isNull())
            return widget;
    }
    return nullptr;
}

QTimer *RunningService::statisticsTimer() const
{
    const QList<QPointer<QTimer>> timers = Recordings::instance().startedTimers;
    for (const QPointer<QTimer> &timer : timers) {
        if (timer && timer->interval() == 86400000)
            return timer;
    }
    return nullptr;
}

QQuickItem *RunningService::standInFor(DraggableQuickView *window)
{
    const QString name = window->source().fileName();
    window->setSource(QUrl(QStringLiteral("qrc:/service-tests/standin.qml")));
    if (!window->rootObject())
        qFatal("The stand-in does not load");
    window->rootObject()->setObjectName(name);
    return window->rootObject();
}
