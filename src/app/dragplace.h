#pragma once

#include <QRect>
#include <QVector>

/// A screen: its place, with its size in units of its own, and how many of the window system's units one of them is.
struct ScreenArea
{
    QRect area;
    double unit;
};

/// Where a window of \a size belongs for its point \a grip to lie below \a pointer. Each screen counts in its own units, the
/// pointer in those of the screen that it is on, the window in those of the screen that holds its middle. \a screens has the
/// window's present screen first.
QPoint dragPlace(QPoint pointer, QPoint grip, QSize size, const QVector<ScreenArea> &screens);
