#include "storelock.h"

#include "files.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr unsigned long retryIntervalMs = 10;
}

StoreLock::StoreLock(const StoreFiles &store)
    : m_store(store)
{
}

StoreLock::~StoreLock()
{
    release();
}

StoreLock::Outcome StoreLock::take(int waitMs)
{
    if (m_file >= 0) {
        return Taken;
    }
    if (!files::makeFolder(m_store.dataFolder()).isEmpty()) {
        return Impossible;
    }
    const QByteArray path = QFile::encodeName(m_store.dataFolder() + QLatin1String("/in-use"));
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) {
        return Impossible;
    }
    const QDeadlineTimer deadline(waitMs);
    while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
        const bool isHeld = errno == EWOULDBLOCK || errno == EINTR;
        if (!isHeld || deadline.hasExpired()) {
            ::close(file);
            return isHeld ? HeldElsewhere : Impossible;
        }
        QThread::msleep(retryIntervalMs);
    }
    m_file = file;
    return Taken;
}

void StoreLock::release()
{
    if (m_file >= 0) {
        ::close(m_file);
        m_file = -1;
    }
}
