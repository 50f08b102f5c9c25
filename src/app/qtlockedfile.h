#pragma once

#include <QFile>

namespace QtLP_Private {

/// A file with an advisory record lock over its whole length, which every process sees that locks the file this way.
///
/// The lock belongs to the process, and the system drops it when the process ends, however it ends.
class QtLockedFile : public QFile
{
    Q_DISABLE_COPY(QtLockedFile)

public:
    enum LockMode { LockNone = 0, LockRead = 1, LockWrite = 2 };

    QtLockedFile();
    explicit QtLockedFile(const QString &name);
    /// Unlocks, if the file is open.
    ~QtLockedFile() override;

    /// Opens the file. A mode with `Truncate` is refused with a warning: it would empty the file of whoever holds it.
    bool open(OpenMode mode) override;

    /// Locks for reading or writing, giving up the other mode first; `LockNone` unlocks. With `wait` the call blocks
    /// until the lock is free. False when it was not got, with a warning unless it is only held elsewhere or the
    /// call was interrupted.
    bool lock(LockMode mode, bool wait = true);
    /// Gives the lock back. True as well when there was none; false, with a warning, when the file is not open.
    bool unlock();

    bool isLocked() const;
    LockMode lockMode() const;

private:
    LockMode heldMode = LockNone;
};

} // namespace QtLP_Private
