#pragma once

#include "draggablequickview.h"
#include "observedservice.h"

#include <QQuickItem>
#include <QWidget>

/// A running service and its objects. The destructor also deletes the objects that the service leaves until the end of
/// the process.
class RunningService
{
    Q_DISABLE_COPY(RunningService)

public:
    RunningService();
    ~RunningService();

    /// Calls a slot or emits a signal by name.
    void call(const char *slot);

    /// Deletes only the service, like the end of `main`.
    void destroyService();

    /// Replaces the real document with fakedocument.qml, which records its calls and whose `number` and `total` can be
    /// set. Its object has the file name of the real document.
    QQuickItem *standInFor(DraggableQuickView *window);

    ObservedService *service = nullptr;
    DraggableQuickView *main = nullptr;
    DraggableQuickView *contact = nullptr;
    DraggableQuickView *list = nullptr;

    QSystemTrayIcon &tray() const { return *service->trayIcon; }
    /// Whether the main document's menu shows launch at login as on.
    bool launchAtLoginTick() const;

private:
    QList<QObject *> outlivingService;
};

/// The window whose document has that file name; null when there is none.
DraggableQuickView *windowOf(const char *document);
