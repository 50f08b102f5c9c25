#include "focuser.h"

#include "draggablequickview.h"

#import <AppKit/AppKit.h>

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

void Focuser::raise()
{
    [[NSApplication sharedApplication] activateIgnoringOtherApps:YES];
    m_view->requestActivate();
    m_view->raise();
}
