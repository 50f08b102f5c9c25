#pragma once

#include <QRect>
#include <QVector>

/// A screen's geometry in its own units, and the length of one of them in units of the window system.
struct ScreenArea
{
    QRect area;
    double unit;
};

/// The position of a window of `size` whose point `grip` is below `pointer`. The pointer is in units of the screen it is
/// on, the result in units of the screen that holds the window's centre. The first of `screens` is the window's.
QPoint dragPlace(QPoint pointer, QPoint grip, QSize size, const QVector<ScreenArea> &screens);
