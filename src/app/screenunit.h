#pragma once

class QScreen;

/// How many units of the window system one unit of a screen's coordinates is long: where screens have coordinates of their
/// own density, the density.
double screenUnit(const QScreen &screen);
