#include "settingsfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

QString path(const QString &organization)
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/%1/Olmeric.conf").arg(organization);
}

QSettings &store()
{
    // Shares its values with the service's QSettings, like all QSettings objects of a process for the same file.
    static QSettings settings(QStringLiteral("Vesk Tandry"), QStringLiteral("Olmeric"));
    return settings;
}

QSettings &siblingStore()
{
    static QSettings settings(QStringLiteral("Vesk Korrin"), QStringLiteral("Olmeric"));
    return settings;
}

} // namespace

QString SettingsFile::own()
{
    return path(QStringLiteral("Vesk Tandry"));
}

QString SettingsFile::sibling()
{
    return path(QStringLiteral("Vesk Korrin"));
}

void SettingsFile::replace(const QString &path, const QByteArray &content)
{
    QSettings &kept = path == own() ? store() : siblingStore();
    kept.clear();
    kept.sync();
    QFile::remove(path);
    if (!content.isNull()) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("%s cannot be written", qPrintable(path));
    }
    kept.sync();
}

QByteArray SettingsFile::content(const QString &path)
{
    store().sync();
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVariant SettingsFile::value(const QString &key)
{
    return store().value(key);
}

void SettingsFile::setValue(const QString &key, const QVariant &value)
{
    store().setValue(key, value);
}

void SettingsFile::remove(const QString &key)
{
    store().remove(key);
}

QStringList SettingsFile::keys()
{
    return store().allKeys();
}

QString SettingsFile::agentList()
{
    return QDir::homePath() + QStringLiteral("/Library/LaunchAgents/com.olmeric.vesktandry.plist");
}

void SettingsFile::forgetEverything()
{
    replace(own(), QByteArray());
    replace(sibling(), QByteArray());
    QFile::remove(agentList());
}
