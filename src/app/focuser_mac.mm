#include "focuser.h"

#include "draggablequickview.h"

#import <AppKit/AppKit.h>

void Focuser::raise()
{
    [[NSApplication sharedApplication] activateIgnoringOtherApps:YES];
    m_view->requestActivate();
    m_view->raise();
}
