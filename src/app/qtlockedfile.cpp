#include "qtlockedfile.h"

namespace QtLP_Private {

QtLockedFile::QtLockedFile() = default;

QtLockedFile::QtLockedFile(const QString &name)
    : QFile(name)
{
}

bool QtLockedFile::open(OpenMode mode)
{
    if (mode & QIODevice::Truncate) {
        qWarning("QtLockedFile::open(): Truncate mode not allowed.");
        return false;
    }
    return QFile::open(mode);
}

bool QtLockedFile::isLocked() const
{
    return heldMode != LockNone;
}

QtLockedFile::LockMode QtLockedFile::lockMode() const
{
    return heldMode;
}

} // namespace QtLP_Private
