#pragma once

#include <QtGlobal>

class DraggableQuickView;

/// Brings the program and one window of it to the front.
class Focuser
{
public:
    /// \a w is not owned, must not be null and must outlive the focuser.
    explicit Focuser(DraggableQuickView *w);

    /// Shows the window and brings it to the front; the window's own show() has already raised it once.
    void show();

    /// Activates the program, where the system distinguishes it from its windows, then the window, and raises it.
    void raise();

private:
    Q_DISABLE_COPY(Focuser)

    DraggableQuickView *const m_view;
};
