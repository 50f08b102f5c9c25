#pragma once

#include "patienttable.h"

#include <QString>
#include <QVariantMap>
#include <QVector>

/// The difference between a copy and today's patients.
struct Difference
{
    QVector<QVariantMap> missing; ///< patients of the copy that the database lacks
    int added = 0; ///< patients of the database that the copy lacks
    int changed = 0; ///< patients of both whose records differ

    static Difference between(const PatientTable &copy, const PatientTable &today);
    /// The copy as compared with today, in French: "3 patients de moins, 12 fiches modifiées".
    QString text() const;
};
