#include "settingslock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

void dropEmptyLock(const QString &settingsFile)
{
    const QByteArray path = QFile::encodeName(settingsFile + QLatin1String(".lock"));
    const int lock = ::open(path.constData(), O_RDWR | O_CLOEXEC);
    if (lock < 0) {
        return;
    }
    struct stat found = {};
    // A living owner, which has not written its name yet, holds a flock as well.
    if (::fstat(lock, &found) == 0 && found.st_size == 0 && ::flock(lock, LOCK_EX | LOCK_NB) == 0) {
        ::unlink(path.constData());
    }
    ::close(lock);
}
