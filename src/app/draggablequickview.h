#pragma once

#include <QPoint>
#include <QQuickView>

class Focuser;

/// A frameless window that the mouse can move: once its document has said, during a press, that the press landed on
/// a part meant for dragging, the window follows the pointer until the button is released.
class DraggableQuickView : public QQuickView
{
    Q_OBJECT

public:
    /// A window without a frame and without a parent; with \a staysOnTop it also stays above other windows.
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
    Q_DISABLE_COPY(DraggableQuickView)

    QPoint placeBelow(QPoint pointer) const;
    QSize documentSize() const;

    bool dragging = false;
    QPoint dragPosition;
    Focuser *focuser;
};
