#include "dragplace.h"

#include <algorithm>

QPoint dragPlace(QPoint pointer, QPoint grip, QSize size, const QVector<ScreenArea> &screens)
{
    const auto pointed = std::find_if(screens.begin(), screens.end(),
                                      [pointer](const ScreenArea &each) { return each.area.contains(pointer); });
    if (pointed == screens.end()) {
        return pointer - grip;
    }
    const QPoint origin = pointed->area.topLeft();
    const QPoint native = origin + (pointer - origin) * pointed->unit;
    for (const ScreenArea &each : screens) {
        const QPoint corner = each.area.topLeft();
        const QPoint place = corner + (native - corner) / each.unit - grip;
        if (each.area.contains(QRect(place, size).center())) {
            return place;
        }
    }
    return pointer - grip;
}
