#include "userposition.h"

#include <QGuiApplication>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

UserPosition::UserPosition(QWindow *watched, QObject *parent)
    : QObject(parent)
    , window(watched)
{
    Q_ASSERT(window);
    window->installEventFilter(this);
}

bool UserPosition::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Move) {
        const auto *move = static_cast<QMoveEvent *>(event);
        noteMove(move->oldPos(), move->pos());
    } else if (event->type() == QEvent::Resize) {
        const auto *resize = static_cast<QResizeEvent *>(event);
        if (resize->size().height() < resize->oldSize().height()) {
            restore();
        }
    }
    return false;
}

/// Detects a push: a move straight up, with no button held, of a window that would otherwise extend below the screen.
void UserPosition::noteMove(QPoint from, QPoint to)
{
    const bool reachedBelow = from.y() + window->height() > bottomOfScreen();

    if (QGuiApplication::mouseButtons() == Qt::NoButton && reachedBelow && to.x() == from.x() && to.y() < from.y()) {
        if (!pushed || from != pushedPosition) {
            userPosition = from;
        }
        pushed = true;
        pushedPosition = to;
    } else if (to != pushedPosition) {
        pushed = false;
    }
}

/// Moves the window down again, as far as its height allows.
void UserPosition::restore()
{
    if (!pushed || window->position() != pushedPosition) {
        return;
    }
    pushedPosition.setY(qBound(pushedPosition.y(), bottomOfScreen() - window->height(), userPosition.y()));
    pushed = pushedPosition != userPosition;
    window->setPosition(pushedPosition);
}

int UserPosition::bottomOfScreen() const
{
    const QRect available = window->screen()->availableGeometry();

    return available.y() + available.height();
}
