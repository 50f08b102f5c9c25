#include "widgetservice.h"

#include "draggablequickview.h"
#include "userposition.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

void WidgetService::watchDesktop()
{
    // Otherwise Qt closes every window when the session ends, and closing the widget opens the quit question.
    QGuiApplication::setFallbackSessionManagementEnabled(false);
    QCoreApplication::instance()->installEventFilter(this);
    new UserPosition(view, this);
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
        // The session ends. Quit at once: Qt would close the windows first, which opens the quit question.
        if (watched == QCoreApplication::instance()) {
            QCoreApplication::quit();
            return true;
        }
        return false;
    default: return false;
    }
}

/// Handles the window manager's "close": the widget opens the quit question, a popup hides. False for other windows.
bool WidgetService::closeByDesktop(QObject *window)
{
    if (window == view) {
        // Queued, because the modal question must not run inside an event of the window system.
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

/// Puts a dialog above the widget, which stays on top itself, gives it the program's icon, and lets it close without
/// ending the program while the widget is hidden.
void WidgetService::prepareDialog(QDialog &dialog)
{
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    dialog.setWindowIcon(dialogParent->windowIcon());
    dialog.overrideWindowFlags(dialog.windowFlags() | Qt::WindowStaysOnTopHint);
    if (QWindow *window = dialog.windowHandle()) {
        window->setFlag(Qt::WindowStaysOnTopHint);
    }
}
