#include "storefiles.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

constexpr char storeName[] = "Tandry";

QString fileName(const char *suffix)
{
    return QString::fromLatin1(QCryptographicHash::hash(storeName, QCryptographicHash::Md5).toHex())
        + QLatin1String(suffix);
}

} // namespace

StoreFiles::StoreFiles(const QString &dataFolder)
    : m_dataFolder(dataFolder)
{
}

StoreFiles StoreFiles::ofApplication()
{
    return StoreFiles(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
}

QString StoreFiles::dataFolder() const
{
    return m_dataFolder;
}

QString StoreFiles::folder() const
{
    return m_dataFolder + QLatin1String("/QML/OfflineStorage/Databases");
}

QString StoreFiles::copiesFolder() const
{
    return m_dataFolder + QLatin1String("/copies");
}

QString StoreFiles::database() const
{
    return folder() + QLatin1Char('/') + databaseName();
}

QString StoreFiles::record() const
{
    return folder() + QLatin1Char('/') + recordName();
}

QString StoreFiles::databaseName()
{
    return fileName(".sqlite");
}

QString StoreFiles::recordName()
{
    return fileName(".ini");
}

QStringList StoreFiles::companionNames()
{
    return {databaseName() + QLatin1String("-journal"), databaseName() + QLatin1String("-wal")};
}

QStringList StoreFiles::names()
{
    return QStringList{databaseName(), recordName()} + companionNames();
}

QString StoreFiles::versionIn(const QString &folder)
{
    return QSettings(folder + QLatin1Char('/') + recordName(), QSettings::IniFormat)
        .value(QStringLiteral("Version"))
        .toString();
}

bool StoreFiles::isThrownAway(const QString &version)
{
    static const QStringList old{QStringLiteral("1.0"), QStringLiteral("1.1"), QStringLiteral("1.2")};
    return version.isEmpty() || old.contains(version);
}

bool StoreFiles::isAboutToBeEmptied() const
{
    return QFileInfo(database()).size() > 0 && isThrownAway(versionIn(folder()));
}
