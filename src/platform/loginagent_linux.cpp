#include "loginagent.h"

#include "propertylist.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

QString entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1String("/autostart/com.olmeric.vesktandry.desktop");
}

/// A text escaped as the value of a key.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    text.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    text.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return text;
}

/// The program as a quoted argument of the key Exec. Escapes nest: field codes, the argument's quotes, then the key's
/// value, so that a backslash in the path becomes four.
QString quotedProgram(const QString &program)
{
    QString argument;
    for (const QChar c : program) {
        if (c == QLatin1Char('%')) {
            argument += c;
        } else if (QStringLiteral("\"`$\\").contains(c)) {
            argument += QLatin1Char('\\');
        }
        argument += c;
    }
    return QLatin1Char('"') + escaped(argument) + QLatin1Char('"');
}

QByteArray autostartEntry(const QString &program, bool on)
{
    QByteArray entry = "[Desktop Entry]\n"
                       "Type=Application\n"
                       "Name=Vesk Tandry\n";
    // The entry outlives an uninstalled program; with TryExec the desktop then ignores it.
    entry += "TryExec=" + escaped(program).toUtf8() + '\n';
    entry += "Exec=" + quotedProgram(program).toUtf8() + " startup\n";
    entry += "Terminal=false\n";
    entry += on ? "Hidden=false\n" : "Hidden=true\n";
    entry += on ? "X-GNOME-Autostart-enabled=true\n" : "X-GNOME-Autostart-enabled=false\n";
    return entry;
}

} // namespace

QSettings::Format LoginAgent::listFormat()
{
    static const QSettings::Format format = QSettings::registerFormat(QStringLiteral("plist"), PropertyList::read,
                                                                      PropertyList::write, Qt::CaseSensitive);
    return format;
}

QVariant LoginAgent::storedValue(QSettings &list, const QString &key)
{
    // Not through QSettings, which ignores a change that keeps the file's size and time, and returns values that it
    // failed to write.
    QFile file(list.fileName());
    QSettings::SettingsMap values;
    if (!file.open(QIODevice::ReadOnly) || !PropertyList::read(file, values)) {
        return QVariant();
    }
    return values.value(key);
}

bool LoginAgent::hasEntry()
{
    return QFileInfo::exists(entryPath());
}

void LoginAgent::updateEntry(const QString &program, bool on)
{
    const QByteArray entry = autostartEntry(program, on);
    QFile current(entryPath());
    if (current.open(QIODevice::ReadOnly) && current.readAll() == entry) {
        return;
    }
    QFileInfo(current).dir().mkpath(QStringLiteral("."));
    QSaveFile file(entryPath());
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    file.write(entry);
    file.commit();
}
