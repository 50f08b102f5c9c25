#include "focuser.h"

#include "draggablequickview.h"

void Focuser::raise()
{
    m_view->requestActivate();
    m_view->raise();
}
