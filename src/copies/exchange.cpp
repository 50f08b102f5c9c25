#include "exchange.h"

#include "files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Exchange::Exchange(const StoreFiles &store)
    : m_store(store)
    , m_prepared(store.folder() + QLatin1String("/.return-new"))
    , m_committed(store.folder() + QLatin1String("/.return"))
{
}

QString Exchange::begin()
{
    if (!finish().isEmpty() || !files::makeFolder(m_prepared).isEmpty()) {
        return {};
    }
    return m_prepared;
}

QString Exchange::commit()
{
    const QStringList names = QDir(m_prepared).entryList(QDir::Files | QDir::Hidden);
    QString reason;
    for (const QString &name : names) {
        if (reason.isEmpty()) {
            reason = files::sync(m_prepared + QLatin1Char('/') + name);
        }
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_prepared);
    }
    if (reason.isEmpty()) {
        reason = files::rename(m_prepared, m_committed);
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_store.folder());
    }
    return reason.isEmpty() ? finish() : reason;
}

QString Exchange::finish()
{
    QDir(m_prepared).removeRecursively();
    if (!QFileInfo::exists(m_committed)) {
        return {};
    }
    QString reason;
    // A journal beside the old database is the old one's; SQLite would play it back into the new one.
    if (QFileInfo::exists(m_committed + QLatin1Char('/') + StoreFiles::databaseName())) {
        const QStringList companions = StoreFiles::companionNames();
        for (const QString &name : companions) {
            QFile::remove(m_store.folder() + QLatin1Char('/') + name);
        }
        reason = files::sync(m_store.folder());
    }
    const QStringList names = StoreFiles::names();
    for (const QString &name : names) {
        const QString waiting = m_committed + QLatin1Char('/') + name;
        if (reason.isEmpty() && QFileInfo::exists(waiting)) {
            reason = files::rename(waiting, m_store.folder() + QLatin1Char('/') + name);
        }
    }
    if (reason.isEmpty()) {
        reason = files::sync(m_store.folder());
    }
    if (reason.isEmpty()) {
        QDir(m_committed).removeRecursively();
    }
    return reason;
}
