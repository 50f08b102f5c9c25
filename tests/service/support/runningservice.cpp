#include "runningservice.h"

#include <QGuiApplication>
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
    service = new ObservedService;
    outlivingService = {service->statisticsTimer, service->dialogParent, service->trayIcon};
    main = windowOf("main.qml");
    contact = windowOf("ContactPopup.qml");
    list = windowOf("ListPopup.qml");
    if (!main || !contact || !list)
        qFatal("The service has not opened its three documents");
    outlivingService += {list, contact, main};
}

RunningService::~RunningService()
{
    destroyService();
    qDeleteAll(outlivingService);
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
    qFatal("The main document has no menu item for launch at login");
}

QQuickItem *RunningService::standInFor(DraggableQuickView *window)
{
    const QString name = window->source().fileName();
    window->setSource(QUrl(QStringLiteral("qrc:/service-tests/fakedocument.qml")));
    if (!window->rootObject())
        qFatal("The stand-in does not load");
    window->rootObject()->setObjectName(name);
    return window->rootObject();
}
