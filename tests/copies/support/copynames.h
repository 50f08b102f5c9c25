#pragma once

#include "copy.h"

#include <QStringList>
#include <QVector>

inline QStringList namesOf(const QVector<Copy> &copies)
{
    QStringList names;
    for (const Copy &copy : copies)
        names << copy.name();
    return names;
}
