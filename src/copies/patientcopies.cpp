#include "patientcopies.h"

#include "exchange.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int newDayCheckIntervalMs = 60 * 60 * 1000;
// An exchange takes a few milliseconds; one that hangs must not hold up the start for longer than this.
constexpr int lockWaitMs = 5000;

void warn(const char *what, const QString &reason)
{
    if (!reason.isEmpty()) {
        qWarning("%s: %s", what, qPrintable(reason));
    }
}

} // namespace

PatientCopies::PatientCopies(const StoreFiles &store)
    : m_store(store)
    , m_lock(store)
    , m_copyFolder(store)
{
}

void PatientCopies::copyOnNewDay()
{
    if (m_day != QDate::currentDate()) {
        m_day = QDate::currentDate();
        copy(false);
    }
}

void PatientCopies::begin()
{
    m_day = QDate::currentDate();
    if (m_lock.take(lockWaitMs) == StoreLock::HeldElsewhere) {
        qWarning("Another program uses the patients' files");
    } else {
        warn("The return to a copy is not finished", Exchange(m_store).finish());
        m_copyFolder.recover();
        dropEmptyRecordLock();
    }
    copy(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { copyOnNewDay(); });
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.start(newDayCheckIntervalMs);
}

/// Removes the lock of the version record when it is empty. A process killed while making it leaves it so, and
/// QSettings, which reads the owner from it, would wait 30 s. We hold the store's lock, so no other process of ours
/// needs it.
void PatientCopies::dropEmptyRecordLock()
{
    const QFileInfo lock(m_store.record() + QLatin1String(".lock"));
    if (lock.exists() && lock.size() == 0) {
        QFile::remove(lock.filePath());
    }
}

void PatientCopies::copy(bool isStart)
{
    if (QFileInfo(m_store.database()).size() == 0) { // missing, or created but not yet filled
        if (!m_copyFolder.copies().isEmpty()) {
            qWarning("The patients are not copied today: the database is missing or empty");
        }
    } else if (isStart && m_store.isAboutToBeEmptied()) {
        warn("The patients are not copied before they are thrown away",
             m_copyFolder.copyBefore(Copy::BeforeUpgrade, m_day));
    } else {
        warn("The patients are not copied today", m_copyFolder.copyDay(m_day, isStart));
    }
}
