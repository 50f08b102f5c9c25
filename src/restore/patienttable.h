#pragma once

#include <QString>
#include <QVariantMap>
#include <QVector>

/// All patients of a database, each a map from column to value; columns that are missing or NULL have their default.
struct PatientTable
{
    QVector<QVariantMap> rows; ///< in the order of their names
    qlonglong lastId = 0; ///< the highest number ever given in this table
    QString error; ///< why it cannot be read; empty when it was

    /// Reads the database in \a folder, which is opened read-only. One with a journal beside it is first copied to a
    /// folder of its own, since SQLite has to write to play the journal back.
    static PatientTable read(const QString &folder);
};

/// How a copy differs from today's patients.
struct Difference
{
    QVector<QVariantMap> missing; ///< patients of the copy that are no longer in the database
    int added = 0; ///< patients of today that the copy does not have
    int changed = 0;

    static Difference between(const PatientTable &copy, const PatientTable &today);
    /// "3 patients de moins, 12 fiches modifiées": the copy, seen from today.
    QString text() const;
};

namespace patients {

/// Gives the database in \a folder the present columns and puts the present version on record, without which the store
/// would throw its patients away. Returns the reason when that fails.
QString bringUpToDate(const QString &folder);
/// Adds the patients as new rows, with new numbers, all of them or none. Returns the reason when that fails.
QString add(const QString &folder, const QVector<QVariantMap> &rows);

} // namespace patients
