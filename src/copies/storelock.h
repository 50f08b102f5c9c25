#pragma once

#include "storefiles.h"

/// Says to other processes that the store is in use: the widget holds it as long as it runs, the program that goes back
/// to a copy while it replaces the files. The system drops it when the process ends, however it ends.
class StoreLock
{
    Q_DISABLE_COPY(StoreLock)

public:
    enum Outcome { Taken, HeldElsewhere, Impossible };

    explicit StoreLock(const StoreFiles &store);
    ~StoreLock();

    /// Waits up to \a waitMs for another process to give it back. Impossible: the folder cannot be written, or its file
    /// system knows no locks.
    Outcome take(int waitMs = 0);
    void release();

private:
    const StoreFiles m_store;
    int m_file = -1;
};
