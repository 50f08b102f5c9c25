#pragma once

#include "draggablequickview.h"
#include "observedservice.h"

#include <QQuickItem>
#include <QWidget>

/// A service that runs, with what it made. Going, it also takes away what the service leaves to the process's end.
class RunningService
{
    Q_DISABLE_COPY(RunningService)

public:
    RunningService();
    ~RunningService();

    /// Calls a slot or emits a signal by name.
    void call(const char *slot);

    /// Deletes the service alone, as the end of `main` does.
    void destroyService();

    /// Puts a document that keeps its calls in the place of the real one, so that `number`, `total` and what is
    /// called can be chosen and read: see fakedocument.qml. It is called what the real document's file is.
    QQuickItem *standInFor(DraggableQuickView *window);

    ObservedService *service = nullptr;
    DraggableQuickView *main = nullptr;
    DraggableQuickView *contact = nullptr;
    DraggableQuickView *list = nullptr;

    QSystemTrayIcon &tray() const { return *service->trayIcon; }
    /// Whether the main document shows launch at login as on.
    bool launchAtLoginTick() const;

private:
    QList<QObject *> outlivingService;
};

/// The window whose document has that file name; null when there is none.
DraggableQuickView *windowOf(const char *document);
