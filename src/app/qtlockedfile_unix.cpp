#include "qtlockedfile.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace QtLP_Private {

namespace {

/// Requests a record lock (`F_RDLCK`, `F_WRLCK`, `F_UNLCK`) over the whole file. On failure sets `errno`.
bool requestRecordLock(int descriptor, short type, bool wait)
{
    struct flock request = {}; // length 0: to the end of the file
    request.l_type = type;
    request.l_whence = SEEK_SET;
    return ::fcntl(descriptor, wait ? F_SETLKW : F_SETLK, &request) != -1;
}

bool isHeldElsewhere(int error)
{
    return error == EACCES || error == EAGAIN;
}

void warnOfFcntl(int error)
{
    // unlock() logs under lock()'s name, too: logs of installed versions hold one text for both.
    qWarning("QtLockedFile::lock(): fcntl: %s", std::strerror(error));
}

} // namespace

QtLockedFile::~QtLockedFile()
{
    if (isOpen()) {
        unlock();
    }
}

bool QtLockedFile::lock(LockMode mode, bool wait)
{
    if (!isOpen()) {
        qWarning("QtLockedFile::lock(): file is not opened");
        return false;
    }
    if (mode == LockNone) {
        return unlock();
    }
    if (mode == heldMode) {
        return true;
    }
    unlock(); // the other mode, if it is held

    if (!requestRecordLock(handle(), mode == LockRead ? F_RDLCK : F_WRLCK, wait)) {
        const int error = errno;
        if (error != EINTR && (wait || !isHeldElsewhere(error))) {
            warnOfFcntl(error);
        }
        return false;
    }
    heldMode = mode;
    return true;
}

bool QtLockedFile::unlock()
{
    if (!isOpen()) {
        qWarning("QtLockedFile::unlock(): file is not opened");
        return false;
    }
    if (heldMode == LockNone) {
        return true;
    }

    if (!requestRecordLock(handle(), F_UNLCK, true)) {
        warnOfFcntl(errno);
        return false;
    }
    heldMode = LockNone;
    return true;
}

} // namespace QtLP_Private
