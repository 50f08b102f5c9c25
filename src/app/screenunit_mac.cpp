#include "screenunit.h"

double screenUnit(const QScreen &)
{
    // The window system itself counts in points, whatever the density of the screen.
    return 1;
}
