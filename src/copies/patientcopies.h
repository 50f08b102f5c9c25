#pragma once

#include "copyfolder.h"
#include "storelock.h"

#include <QTimer>

/// Copies the widget's patients at the start, before any document opens the store, and on each new day. Failures only
/// go to the log. The object must outlive the documents: it holds the lock that keeps the restore program out.
class PatientCopies
{
    Q_DISABLE_COPY(PatientCopies)

public:
    explicit PatientCopies(const StoreFiles &store);

    /// Finishes what a killed process left, copies the store and starts the hourly check for a new day.
    void begin();

    /// Copies the store if the day has changed since the last copy.
    void copyOnNewDay();

private:
    void dropEmptyRecordLock();
    void copy(bool isStart);

    const StoreFiles m_store;
    StoreLock m_lock;
    CopyFolder m_copyFolder;
    QTimer m_timer;
    QDate m_day;
};
