#pragma once

#include "copyfolder.h"
#include "difference.h"
#include "patienttable.h"
#include "storelock.h"

#include <functional>

/// Goes back to a copy, or takes single patients out of one.
///
/// Both prepare the new files, copy today's, then exchange the two in one step. Neither changes anything while the
/// widget runs.
class Restorer
{
    Q_DISABLE_COPY(Restorer)

public:
    struct Entry
    {
        Copy copy;
        PatientTable patients;
        Difference difference;
    };

    explicit Restorer(const StoreFiles &store);

    /// Whether a running widget uses the store.
    bool isInUse();
    /// Today's patients, with their `error` when they cannot be read.
    PatientTable today();
    /// All copies, the newest first, compared with today's patients.
    QVector<Entry> entries();

    /// Replaces today's patients by the copy. Returns the reason when that fails.
    QString goBackTo(const Copy &copy);
    /// Adds the patients to today's, as new rows. Returns the reason when that fails.
    QString takeBack(const QVector<QVariantMap> &rows);

private:
    QString exchange(const std::function<QString(const QString &folder)> &fill);

    const StoreFiles m_store;
    StoreLock m_lock;
    CopyFolder m_copyFolder;
    StoreReader m_reader;
};
