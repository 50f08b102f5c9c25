#include "draggablequickview.h"

#include "focuser.h"

#include <QMouseEvent>

DraggableQuickView::DraggableQuickView(bool staysOnTop)
    : focuser(new Focuser(this))
{
    Q_ASSERT(focuser);
    if (staysOnTop) {
        setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    } else {
        setFlags(Qt::FramelessWindowHint);
    }
}

DraggableQuickView::~DraggableQuickView()
{
    delete focuser;
}

void DraggableQuickView::show()
{
    // A window whose place was never set is placed anew by the window manager each time it is shown.
    if (handle()) {
        setPosition(position());
    }
    QQuickView::show();
    focuser->raise();
}

void DraggableQuickView::enableDragging()
{
    dragging = true;
}

void DraggableQuickView::disableDragging()
{
    dragging = false;
}

void DraggableQuickView::mousePressEvent(QMouseEvent *event)
{
    dragPosition = event->pos();
    // The document sees the press and arms dragging while it handles it.
    QQuickView::mousePressEvent(event);
}

void DraggableQuickView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton) && dragging) {
        // The window follows the pointer, so the pointer comes back to dragPosition, which therefore stays.
        // position() may be ahead of the window manager: a real event knows where the window was when it happened.
        const QPoint origin = event->spontaneous() ? event->globalPos() - event->pos() : position();
        setPosition(origin + event->pos() - dragPosition);
        return;
    }
    QQuickView::mouseMoveEvent(event);
}

void DraggableQuickView::mouseReleaseEvent(QMouseEvent *event)
{
    disableDragging();
    QQuickView::mouseReleaseEvent(event);
}
