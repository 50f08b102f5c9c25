#pragma once

#include <QString>
#include <QVariantMap>
#include <QVector>

/// The patients of a database, each a map from column to value. A column that is missing or NULL has its default.
struct PatientTable
{
    QVector<QVariantMap> rows; ///< in the order of their names
    qlonglong lastId = 0; ///< the highest id ever used in this table
    QString error; ///< why the table cannot be read; empty on success

    /// Reads the database in `folder` without writing to it. A database with a journal is read from a temporary copy:
    /// SQLite writes to play a journal back.
    static PatientTable read(const QString &folder);
};

namespace patients {

/// Adds the columns that the database in `folder` lacks and records the current schema version; the store would
/// discard the patients of an older one. Returns the reason when that fails.
QString bringUpToDate(const QString &folder);
/// Inserts the patients as new rows with new ids, all of them or none. Returns the reason when that fails.
QString add(const QString &folder, const QVector<QVariantMap> &rows);

} // namespace patients
