#pragma once

#include <QObject>
#include <QPoint>

class QWindow;

/// Remembers where the user put a window that grows and shrinks. Low on the screen, the window manager pushes it up as
/// it grows; it goes back down as it shrinks, unless the user has moved it meanwhile.
class RestingPlace : public QObject
{
public:
    /// \a watched must outlive the object.
    explicit RestingPlace(QWindow *watched, QObject *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(RestingPlace)

    void noticePush(QPoint from, QPoint to);
    void goBack();
    int bottomOfScreen() const;

    QWindow *const window;
    bool pushed = false;
    /// Where the user put the window, and where it was pushed to from there.
    QPoint chosen;
    QPoint current;
};
