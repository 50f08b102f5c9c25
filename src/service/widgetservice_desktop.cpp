#include "widgetservice.h"

#include "draggablequickview.h"
#include "restingplace.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

void WidgetService::watchDesktop()
{
    // With it, Qt would close every window while a session ends, and the widget's closing asks.
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    QCoreApplication::instance()->installEventFilter(this);
    new RestingPlace(view, this);
}

bool WidgetService::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Close:
        if (closeByDesktop(watched)) {
            event->ignore();
            return true;
        }
        return false;
    case QEvent::Polish:
        if (auto *dialog = qobject_cast<QDialog *>(watched)) {
            prepareDialog(*dialog);
        }
        return false;
    case QEvent::Quit:
        // The session ends: at once, where Qt would first close the windows.
        if (watched == QCoreApplication::instance()) {
            QCoreApplication::quit();
            return true;
        }
        return false;
    default: return false;
    }
}

/// Answers the window manager's "close": the widget asks as its menu does, a popup hides. False for other windows.
bool WidgetService::closeByDesktop(QObject *window)
{
    if (window == view) {
        // Later: the question waits for its answer, which is too long for an event of the window system.
        QMetaObject::invokeMethod(this, "closeIntent", Qt::QueuedConnection);
        return true;
    }
    if (window == contactView) {
        closeContact();
        return true;
    }
    if (window == listView) {
        closeList();
        return true;
    }
    return false;
}

/// A dialog lies above the widget, which stays on top itself, carries the program's picture, and does not end the
/// program when it closes while the widget is hidden.
void WidgetService::prepareDialog(QDialog &dialog)
{
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.setWindowIcon(dialogParent->windowIcon());
    dialog.overrideWindowFlags(dialog.windowFlags() | Qt::WindowStaysOnTopHint);
    if (QWindow *window = dialog.windowHandle()) {
        window->setFlag(Qt::WindowStaysOnTopHint);
    }
}
