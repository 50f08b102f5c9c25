#include "draggablequickview.h"

#include "dragplace.h"
#include "focuser.h"
#include "screenunit.h"

#include <QMouseEvent>
#include <QQuickItem>
#include <QScreen>

DraggableQuickView::DraggableQuickView(bool staysOnTop)
    : focuser(new Focuser(this))
{
    Q_ASSERT(focuser);
    if (staysOnTop) {
        setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    } else {
        setFlags(Qt::FramelessWindowHint);
    }
    // Otherwise the window would keep the size that the window system rounded for a screen of another density.
    connect(
        this, &QWindow::screenChanged, this, [this] { resize(documentSize()); }, Qt::QueuedConnection);
}

DraggableQuickView::~DraggableQuickView()
{
    delete focuser;
}

void DraggableQuickView::show()
{
    // The window manager places a window anew each time it is shown, unless its position was set.
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
        // position() may be ahead of the window manager; a real event knows where the pointer is on the screen.
        const QPoint place = event->spontaneous() ? placeBelow(event->globalPos())
                                                  : position() + event->pos() - dragPosition;
        // Sets the size, too: the window loses it on its way to a screen of another density.
        setGeometry(QRect(place, documentSize()));
        return;
    }
    QQuickView::mouseMoveEvent(event);
}

QPoint DraggableQuickView::placeBelow(QPoint pointer) const
{
    QVector<ScreenArea> areas{{screen()->geometry(), screenUnit(*screen())}};
    const QList<QScreen *> siblings = screen()->virtualSiblings();
    for (const QScreen *each : siblings) {
        areas.append({each->geometry(), screenUnit(*each)});
    }
    return dragPlace(pointer, dragPosition, documentSize(), areas);
}

QSize DraggableQuickView::documentSize() const
{
    return rootObject() ? rootObject()->size().toSize() : size();
}

void DraggableQuickView::mouseReleaseEvent(QMouseEvent *event)
{
    disableDragging();
    QQuickView::mouseReleaseEvent(event);
}
