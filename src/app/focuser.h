#pragma once

#include <QtGlobal>

class DraggableQuickView;

/// Brings the program and one window of it to the front.
class Focuser
{
    Q_DISABLE_COPY(Focuser)

public:
    /// `w` is not owned, must not be null and must outlive the focuser.
    explicit Focuser(DraggableQuickView *w);

    /// Shows the window and brings it to the front, which DraggableQuickView::show() does already.
    void show();

    /// Activates the program (on macOS) and the window, then raises the window.
    void raise();

private:
    DraggableQuickView *const m_view;
};
