#pragma once

#include <QStringList>

/// What the service did, one line a step, as the linker leads its calls past here; from here they go on.
QStringList &constructionSteps();
