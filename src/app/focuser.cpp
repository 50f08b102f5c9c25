#include "focuser.h"

#include "draggablequickview.h"

Focuser::Focuser(DraggableQuickView *w)
    : m_view(w)
{
    Q_ASSERT(w);
}

void Focuser::show()
{
    m_view->show();
    raise();
}
