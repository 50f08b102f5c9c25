#include "restingplace.h"

#include <QGuiApplication>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QWindow>

RestingPlace::RestingPlace(QWindow *watched, QObject *parent)
    : QObject(parent)
    , window(watched)
{
    Q_ASSERT(window);
    window->installEventFilter(this);
}

bool RestingPlace::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Move) {
        const auto *move = static_cast<QMoveEvent *>(event);
        noticePush(move->oldPos(), move->pos());
    } else if (event->type() == QEvent::Resize) {
        const auto *resize = static_cast<QResizeEvent *>(event);
        if (resize->size().height() < resize->oldSize().height()) {
            goBack();
        }
    }
    return false;
}

/// A push is a move straight up, with no button held, of a window that would else reach below the screen.
void RestingPlace::noticePush(QPoint from, QPoint to)
{
    const bool reachedBelow = from.y() + window->height() > bottomOfScreen();

    if (QGuiApplication::mouseButtons() == Qt::NoButton && reachedBelow && to.x() == from.x() && to.y() < from.y()) {
        if (!pushed || from != current) {
            chosen = from;
        }
        pushed = true;
        current = to;
    } else if (to != current) {
        pushed = false;
    }
}

/// Down again, as far as the present height lets it.
void RestingPlace::goBack()
{
    if (!pushed || window->position() != current) {
        return;
    }
    current.setY(qBound(current.y(), bottomOfScreen() - window->height(), chosen.y()));
    pushed = current != chosen;
    window->setPosition(current);
}

int RestingPlace::bottomOfScreen() const
{
    const QRect available = window->screen()->availableGeometry();

    return available.y() + available.height();
}
