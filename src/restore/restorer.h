#pragma once

#include "copyshelf.h"
#include "patienttable.h"
#include "storelock.h"

#include <functional>

/// Goes back to a copy, or takes single patients out of one.
///
/// Both make the new files first, out of the copy or out of today's, and exchange them for today's in one step, after
/// today's were copied. Neither changes anything while the widget runs.
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

    /// Whether a widget uses the store.
    bool isInUse();
    /// Today's patients; their `error` when there are none to be read.
    PatientTable today();
    /// All copies, the newest first, compared with today.
    QVector<Entry> entries();

    /// Puts the copy in the place of today's patients. Returns the reason when that fails.
    QString goBackTo(const Copy &copy);
    /// Adds the patients to today's as new rows. Returns the reason when that fails.
    QString takeBack(const QVector<QVariantMap> &rows);

private:
    QString exchange(const std::function<QString(const QString &folder)> &fill);

    const StoreFiles m_store;
    StoreLock m_lock;
    CopyShelf m_shelf;
    StoreReader m_reader;
};
