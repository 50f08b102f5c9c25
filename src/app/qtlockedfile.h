#pragma once

#include <QFile>

namespace QtLP_Private {

/// A file with an advisory POSIX record lock over its whole length. The system releases the lock when the process ends,
/// even by a crash.
class QtLockedFile : public QFile
{
    Q_DISABLE_COPY(QtLockedFile)

public:
    enum LockMode { LockNone = 0, LockRead = 1, LockWrite = 2 };

    QtLockedFile();
    explicit QtLockedFile(const QString &name);
    /// Unlocks, if the file is open.
    ~QtLockedFile() override;

    /// Opens the file. `Truncate` is refused with a warning: it would empty a file that another process has locked.
    bool open(OpenMode mode) override;

    /// Locks for reading or writing, after releasing the other mode; `LockNone` unlocks. With `wait` the call blocks
    /// until the lock is free. On failure returns false, with a warning unless the lock is held elsewhere or the call
    /// was interrupted.
    bool lock(LockMode mode, bool wait = true);
    /// Releases the lock, if there is one. False, with a warning, when the file is not open.
    bool unlock();

    bool isLocked() const;
    LockMode lockMode() const;

private:
    LockMode heldMode = LockNone;
};

} // namespace QtLP_Private
