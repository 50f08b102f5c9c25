#include "exchange.h"

#include "files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Exchange::Exchange(const StoreFiles &store)
    : m_store(store)
    , m_filled(store.folder() + QLatin1String("/.return-new"))
    , m_decided(store.folder() + QLatin1String("/.return"))
{
}

QString Exchange::begin()
{
    if (!finish().isEmpty() || !files::makeFolder(m_filled).isEmpty()) {
        return {};
    }
    return m_filled;
}

QString Exchange::commit()
{
    const QStringList names = QDir(m_filled).entryList(QDir::Files | QDir::Hidden);
    QString reason;
    for (const QString &name : names) {
        if (reason.isEmpty()) {
            reason = files::sync(m_filled + QLatin1Char('/') + name);
        }
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_filled);
    }
    if (reason.isEmpty()) {
        reason = files::rename(m_filled, m_decided);
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_store.folder());
    }
    return reason.isEmpty() ? finish() : reason;
}

QString Exchange::finish()
{
    QDir(m_filled).removeRecursively();
    if (!QFileInfo::exists(m_decided)) {
        return {};
    }
    QString reason;
    // As long as the new database waits, what lies beside the old one is the old one's: a journal would be played back
    // into the new one.
    if (QFileInfo::exists(m_decided + QLatin1Char('/') + StoreFiles::databaseName())) {
        const QStringList companions = StoreFiles::companionNames();
        for (const QString &name : companions) {
            QFile::remove(m_store.folder() + QLatin1Char('/') + name);
        }
        reason = files::sync(m_store.folder());
    }
    const QStringList names = StoreFiles::names();
    for (const QString &name : names) {
        const QString waiting = m_decided + QLatin1Char('/') + name;
        if (reason.isEmpty() && QFileInfo::exists(waiting)) {
            reason = files::rename(waiting, m_store.folder() + QLatin1Char('/') + name);
        }
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_store.folder());
    }
    if (reason.isEmpty()) {
        QDir(m_decided).removeRecursively();
    }
    return reason;
}
