#pragma once

#include <QObject>
#include <QPoint>

class QWindow;

/// Returns a window to where the user put it. Low on the screen, the window manager pushes a window up as it grows;
/// this moves it back down as it shrinks, unless the user has moved it meanwhile.
class UserPosition : public QObject
{
    Q_DISABLE_COPY(UserPosition)

public:
    /// `watched` must outlive the object.
    explicit UserPosition(QWindow *watched, QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void noteMove(QPoint from, QPoint to);
    void restore();
    int bottomOfScreen() const;

    QWindow *const window;
    bool pushed = false;
    QPoint userPosition;
    QPoint pushedPosition;
};
