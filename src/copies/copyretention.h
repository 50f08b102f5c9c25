#pragma once

#include "copy.h"

#include <QVector>

/// The copies among `copies` (newest first) that may be deleted on the day `today`.
///
/// Not deleted: the last seven days, the last copy of each of the last five weeks and twelve months that have one, and
/// for twelve months every copy made before an upgrade or a return. The newest daily copy, copies of future days and
/// copies whose days contradict the order in which they were made are not counted, so that a clock that is wrong for a
/// while costs no copy.
QVector<Copy> superfluousCopies(const QVector<Copy> &copies, const QDate &today);
