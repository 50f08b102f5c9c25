#include "copyfolder.h"

#include "copyretention.h"
#include "files.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace {

const QLatin1String unfinishedPrefix(".new-");
const QLatin1String replacedPrefix(".old-");
const QLatin1String deletedName(".gone");

/// SQLite's count of write transactions, from the header of the database file.
quint32 changesIn(const QString &database)
{
    constexpr int offset = 24;
    QFile file(database);
    quint32 count = 0;
    if (file.open(QIODevice::ReadOnly) && file.seek(offset)) {
        count = qFromBigEndian<quint32>(file.read(sizeof(count)).leftJustified(sizeof(count), '\0').constData());
    }
    return count;
}

} // namespace

CopyFolder::CopyFolder(const StoreFiles &store)
    : m_store(store)
    , m_reader(store)
{
}

QVector<Copy> CopyFolder::copies() const
{
    QVector<Copy> found;
    const QStringList names = QDir(m_store.copiesFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        Copy copy = Copy::named(name);
        copy.folder = path(name);
        const QString database = copy.folder + QLatin1Char('/') + StoreFiles::databaseName();
        if (copy.day.isValid() && QFileInfo::exists(database)) {
            copy.changes = changesIn(database);
            found.append(copy);
        }
    }
    // Within a day, the copy that was written last comes first.
    std::sort(found.begin(), found.end(), [](const Copy &one, const Copy &other) {
        return one.day != other.day ? one.day > other.day
                                    : QFileInfo(one.folder).lastModified() > QFileInfo(other.folder).lastModified();
    });
    return found;
}

void CopyFolder::recover()
{
    const QStringList names = QDir(m_store.copiesFolder()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        if (name.startsWith(replacedPrefix)) {
            const QString original = path(name.mid(replacedPrefix.size()));
            if (!QFileInfo::exists(original)) {
                files::rename(path(name), original);
                continue;
            }
        }
        if (name.startsWith(replacedPrefix) || name.startsWith(unfinishedPrefix) || name == deletedName) {
            QDir(path(name)).removeRecursively();
        }
    }
}

QString CopyFolder::copyDay(const QDate &today, bool isStart)
{
    const QVector<Copy> all = copies();
    const auto last = std::find_if(all.begin(), all.end(), [&](const Copy &copy) { return copy.day <= today; });
    if (last != all.end() && m_reader.isSameAs(last->folder)) {
        return {};
    }
    Copy copy;
    copy.day = today;
    const bool stays = std::any_of(all.begin(), all.end(), [&](const Copy &existing) {
        return existing.name() == copy.name() && (!isStart || !mayReplace(existing, all));
    });
    if (stays) {
        return {};
    }
    QString reason = m_reader.reasonAgainstCopy();
    if (reason.isEmpty()) {
        reason = make(copy);
    }
    if (reason.isEmpty()) {
        deleteSuperfluous(today);
    }
    return reason;
}

QString CopyFolder::copyBefore(Copy::Kind kind, const QDate &today)
{
    Copy copy;
    copy.day = today;
    copy.kind = kind;
    const QVector<Copy> all = copies();
    const bool exists = std::any_of(all.begin(), all.end(), [&](const Copy &existing) {
        return existing.kind == kind && m_reader.isSameAs(existing.folder);
    });
    if (exists) {
        return {};
    }
    while (QFileInfo::exists(path(copy.name()))) {
        ++copy.number;
    }
    return make(copy);
}

/// Fills a folder under a temporary name and renames it once its whole content is on the disk.
QString CopyFolder::make(const Copy &copy)
{
    const QString work = path(unfinishedPrefix + QString::number(QCoreApplication::applicationPid()));
    QDir(work).removeRecursively();
    QString reason = files::makeFolder(work);
    if (reason.isEmpty()) {
        reason = m_reader.copyTo(work);
    }
    if (reason.isEmpty()) {
        reason = publish(work, copy.name());
    }
    if (!reason.isEmpty()) {
        QDir(work).removeRecursively();
    }
    return reason;
}

/// An older folder of that name is renamed first; recover() puts it back if the process dies in between.
QString CopyFolder::publish(const QString &filled, const QString &name)
{
    const QString aside = path(replacedPrefix + name);
    if (QFileInfo::exists(path(name))) {
        QString reason = files::rename(path(name), aside);
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    QString reason = files::rename(filled, path(name));
    if (!reason.isEmpty()) {
        files::rename(aside, path(name));
        return reason;
    }
    QString syncing = files::sync(m_store.copiesFolder());
    if (syncing.isEmpty()) {
        QDir(aside).removeRecursively();
    }
    return syncing;
}

void CopyFolder::deleteSuperfluous(const QDate &today)
{
    const QVector<Copy> superfluous = superfluousCopies(copies(), today);
    for (const Copy &copy : superfluous) {
        // Rename before deleting: a half-emptied folder must not look like a copy.
        if (files::rename(copy.folder, path(deletedName)).isEmpty()) {
            QDir(path(deletedName)).removeRecursively();
        }
    }
}

/// False when patients were thrown away or replaced that day. False when copies of later days exist: the clock is or
/// was wrong, and the existing copy may be an old one.
bool CopyFolder::mayReplace(const Copy &existing, const QVector<Copy> &all) const
{
    return std::none_of(all.begin(), all.end(), [&](const Copy &copy) {
        return copy.day > existing.day || (copy.day == existing.day && copy.kind != Copy::Daily);
    });
}

QString CopyFolder::path(const QString &name) const
{
    return m_store.copiesFolder() + QLatin1Char('/') + name;
}
