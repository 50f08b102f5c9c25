#include "restorer.h"

#include "exchange.h"
#include "files.h"

#include <QFileInfo>
#include <QTemporaryDir>

Restorer::Restorer(const StoreFiles &store)
    : m_store(store)
    , m_lock(store)
    , m_copyFolder(store)
    , m_reader(store)
{
}

bool Restorer::isInUse()
{
    const bool isHeld = m_lock.take() == StoreLock::HeldElsewhere;
    m_lock.release();
    return isHeld;
}

/// Reads a temporary copy of the files, so that a running widget never waits for our lock.
PatientTable Restorer::today()
{
    const QTemporaryDir place;
    PatientTable table;
    if (!QFileInfo::exists(m_store.database())) {
        table.error = QStringLiteral("no database");
        return table;
    }
    table.error = m_reader.copyTo(place.path());
    return table.error.isEmpty() ? PatientTable::read(place.path()) : table;
}

QVector<Restorer::Entry> Restorer::entries()
{
    const PatientTable now = today();
    QVector<Entry> entries;
    const QVector<Copy> copies = m_copyFolder.copies();
    for (const Copy &copy : copies) {
        Entry entry;
        entry.copy = copy;
        entry.patients = PatientTable::read(copy.folder);
        entry.difference = Difference::between(entry.patients, now);
        entries.append(entry);
    }
    return entries;
}

QString Restorer::goBackTo(const Copy &copy)
{
    return exchange([&copy](const QString &folder) {
        QString reason;
        const QStringList names = StoreFiles::names();
        for (const QString &name : names) {
            const QString source = copy.folder + QLatin1Char('/') + name;
            if (reason.isEmpty() && QFileInfo::exists(source)) {
                reason = files::copy(source, folder + QLatin1Char('/') + name);
            }
        }
        return reason;
    });
}

QString Restorer::takeBack(const QVector<QVariantMap> &rows)
{
    return exchange([&](const QString &folder) {
        const QString reason = m_reader.copyTo(folder);
        return reason.isEmpty() ? patients::add(folder, rows) : reason;
    });
}

/// Exchanges the store's files for those that `fill` writes into an empty folder.
QString Restorer::exchange(const std::function<QString(const QString &folder)> &fill)
{
    const StoreLock::Outcome lock = m_lock.take();
    if (lock != StoreLock::Taken) {
        return lock == StoreLock::HeldElsewhere ? QStringLiteral("Vesk Tandry est ouvert")
                                                : QStringLiteral("le dossier des patients ne peut pas être verrouillé");
    }
    Exchange exchange(m_store);
    QString reason = exchange.finish();
    m_copyFolder.recover();
    if (reason.isEmpty() && QFileInfo::exists(m_store.database())) {
        reason = m_copyFolder.copyBefore(Copy::BeforeReturn, QDate::currentDate());
    }
    if (reason.isEmpty()) {
        const QString folder = exchange.begin();
        reason = folder.isEmpty() ? QStringLiteral("le dossier des patients ne peut pas être écrit") : fill(folder);
        // The widget would discard patients whose recorded version is old or missing.
        if (reason.isEmpty() && StoreFiles::isThrownAway(StoreFiles::versionIn(folder))) {
            reason = patients::bringUpToDate(folder);
        }
        reason = reason.isEmpty() ? exchange.commit() : reason;
    }
    m_lock.release();
    return reason;
}
