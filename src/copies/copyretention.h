#pragma once

#include "copy.h"

#include <QVector>

/// The copies among `copies` (newest first) that may be deleted on the day `today`.
///
/// What stays: the last seven days, the last copy of each of the last five weeks and twelve months that have one, and
/// for twelve months every copy made before an upgrade or a return. The newest daily copy, copies of days to come and
/// copies whose days contradict the order in which they were made do not count, so that a clock that is wrong for a
/// while costs no copy.
QVector<Copy> superfluousCopies(const QVector<Copy> &copies, const QDate &today);
