#include "screenunit.h"

#include <QScreen>

double screenUnit(const QScreen &screen)
{
    return screen.devicePixelRatio();
}
