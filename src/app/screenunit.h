#pragma once

class QScreen;

/// The length of one unit of the screen's coordinates in units of the window system: the screen's density where each
/// screen has coordinates of its own, else 1.
double screenUnit(const QScreen &screen);
