#pragma once

#include "storefiles.h"

/// Marks the store as in use. The widget holds the lock while it runs, the restore program while it replaces files. The
/// system releases it when the process ends, even by a crash.
class StoreLock
{
    Q_DISABLE_COPY(StoreLock)

public:
    enum Outcome { Taken, HeldElsewhere, Impossible };

    explicit StoreLock(const StoreFiles &store);
    ~StoreLock();

    /// Waits up to `waitMs` for another process to release the lock. Impossible: the folder cannot be written, or its
    /// file system has no locks.
    Outcome take(int waitMs = 0);
    void release();

private:
    const StoreFiles m_store;
    int m_file = -1;
};
