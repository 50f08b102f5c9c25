#include "patientcopies.h"

#include "exchange.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int lookIntervalMs = 3600000;
// An exchange takes a few milliseconds; a process that stopped in the middle of it must not keep the practice waiting.
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
    , m_shelf(store)
{
}

void PatientCopies::look()
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
        m_shelf.tidy();
        dropEmptyRecordLock();
    }
    copy(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    m_timer.start(lookIntervalMs);
}

/// A process killed right after it had made the record's lock leaves it empty, and the settings class, which reads from it
/// who holds the lock, would wait half a minute for an owner it cannot know. No other process of ours uses the store now.
void PatientCopies::dropEmptyRecordLock()
{
    const QFileInfo lock(m_store.record() + QLatin1String(".lock"));
    if (lock.exists() && lock.size() == 0) {
        QFile::remove(lock.filePath());
    }
}

void PatientCopies::copy(bool isStart)
{
    if (QFileInfo(m_store.database()).size() == 0) { // missing, or made a moment ago and not filled yet
        if (!m_shelf.copies().isEmpty()) {
            qWarning("The patients are not copied today: the database is missing or empty");
        }
    } else if (isStart && m_store.isAboutToBeEmptied()) {
        warn("The patients are not copied before they are thrown away", m_shelf.keep(Copy::BeforeUpgrade, m_day));
    } else {
        warn("The patients are not copied today", m_shelf.copyDay(m_day, isStart));
    }
}
