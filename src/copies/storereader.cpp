#include "storereader.h"

#include "files.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 largestDatabaseBytes = 256LL * 1024 * 1024; // more would delay the start by seconds
constexpr char sqliteHeader[] = "SQLite format 3"; // compared with its terminating zero
constexpr int attempts = 2;

bool isDatabase(int file)
{
    char header[sizeof(sqliteHeader)] = {};
    return ::pread(file, header, sizeof(header), 0) == ssize_t(sizeof(header))
        && std::memcmp(header, sqliteHeader, sizeof(header)) == 0;
}

} // namespace

StoreReader::StoreReader(const StoreFiles &store)
    : m_store(store)
{
}

QString StoreReader::reasonAgainstCopy()
{
    const int database = databaseDescriptor();
    if (database < 0) {
        return QString::fromLocal8Bit(std::strerror(errno));
    }
    if (!isDatabase(database)) {
        return QStringLiteral("the file is not a database");
    }
    if (QFileInfo(m_store.database()).size() > largestDatabaseBytes) {
        return QStringLiteral("the database is larger than %1 MiB").arg(largestDatabaseBytes / 1024 / 1024);
    }
    return {};
}

QString StoreReader::copyTo(const QString &folder)
{
    const QStringList names = StoreFiles::names();
    QString reason;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const QString before = fingerprint();
        reason.clear();
        for (const QString &name : names) {
            if (reason.isEmpty() && QFileInfo::exists(m_store.folder() + QLatin1Char('/') + name)) {
                reason = copyFile(name, folder);
            }
        }
        if (reason.isEmpty() && (fingerprint() != before || !isSameAs(folder))) {
            reason = QStringLiteral("the database was being written");
        }
        if (reason.isEmpty()) {
            return files::sync(folder);
        }
        for (const QString &name : names) {
            QFile::remove(folder + QLatin1Char('/') + name);
        }
    }
    return reason;
}

bool StoreReader::isSameAs(const QString &folder)
{
    const QStringList names = StoreFiles::names();
    return std::all_of(names.begin(), names.end(), [&](const QString &name) { return isSameFile(name, folder); });
}

int StoreReader::databaseDescriptor()
{
    const QByteArray path = QFile::encodeName(m_store.database());
    struct stat found = {};
    if (::stat(path.constData(), &found) != 0) {
        return -1;
    }
    const auto open = std::find_if(m_openDatabases.cbegin(), m_openDatabases.cend(), [&](const OpenFile &file) {
        return file.device == found.st_dev && file.inode == found.st_ino;
    });
    if (open != m_openDatabases.cend()) {
        return open->descriptor;
    }
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) {
        m_openDatabases.append({found.st_dev, found.st_ino, descriptor});
    }
    return descriptor;
}

QString StoreReader::copyFile(const QString &name, const QString &folder)
{
    const QString target = folder + QLatin1Char('/') + name;
    if (name == StoreFiles::databaseName()) {
        return files::copy(databaseDescriptor(), target);
    }
    return files::copy(m_store.folder() + QLatin1Char('/') + name, target);
}

bool StoreReader::isSameFile(const QString &name, const QString &folder)
{
    const QString source = m_store.folder() + QLatin1Char('/') + name;
    const QString target = folder + QLatin1Char('/') + name;
    if (!QFileInfo::exists(source) || !QFileInfo::exists(target)) {
        return QFileInfo::exists(source) == QFileInfo::exists(target);
    }
    if (name == StoreFiles::databaseName()) {
        return files::haveSameBytes(databaseDescriptor(), target);
    }
    QFile opened(source);
    return opened.open(QIODevice::ReadOnly) && files::haveSameBytes(opened.handle(), target);
}

/// Changes when another process writes: existence, size and time of each file.
QString StoreReader::fingerprint() const
{
    const QStringList names = StoreFiles::names();
    QString fingerprint;
    for (const QString &name : names) {
        const QFileInfo file(m_store.folder() + QLatin1Char('/') + name);
        fingerprint += QStringLiteral("%1 %2 %3 %4\n")
                           .arg(name)
                           .arg(file.exists())
                           .arg(file.size())
                           .arg(file.lastModified().toMSecsSinceEpoch());
    }
    return fingerprint;
}
