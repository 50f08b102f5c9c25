#pragma once

#include "copyshelf.h"
#include "storelock.h"

#include <QTimer>

/// The widget's own copies of its patients: one before any document opens the store, then one on each new day.
///
/// To begin before the documents are made, and to be kept as long as they live. Failures go to the log; the program runs on.
class PatientCopies
{
    Q_DISABLE_COPY(PatientCopies)

public:
    explicit PatientCopies(const StoreFiles &store);

    /// Finishes what a killed process left, copies the store, and looks every hour whether a new day has begun.
    void begin();

    /// Copies the store if this day has not been looked at yet.
    void look();

private:
    void dropEmptyRecordLock();
    void copy(bool isStart);

    const StoreFiles m_store;
    StoreLock m_lock;
    CopyShelf m_shelf;
    QTimer m_timer;
    QDate m_day;
};
