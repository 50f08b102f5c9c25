#pragma once

#include <QPoint>
#include <QQuickView>

class Focuser;

/// A frameless window that the mouse can move. When its document calls enableDragging() during a press, the window
/// follows the pointer until a button is released.
class DraggableQuickView : public QQuickView
{
    Q_OBJECT
    Q_DISABLE_COPY(DraggableQuickView)

public:
    /// With `staysOnTop` the window stays above other windows.
    explicit DraggableQuickView(bool staysOnTop);
    ~DraggableQuickView() override;

    /// Shows the window and brings it and the program to the front. Hides QWindow::show().
    void show();

public slots:
    /// Arms dragging; the next release of any mouse button disarms it.
    void enableDragging();
    void disableDragging();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QPoint placeBelow(QPoint pointer) const;
    QSize documentSize() const;

    bool dragging = false;
    QPoint dragPosition;
    Focuser *focuser;
};
