#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

/// What launch at login needs of each platform.
namespace LoginAgent {

/// The settings format in which an agent's property list is read and written.
QSettings::Format listFormat();

/// The value of a top-level key as the file of \a list holds it now, null when the key or a readable file is missing.
QVariant storedValue(QSettings &list, const QString &key);

/// Whether there is something besides the list that a login reads.
bool hasEntry();

/// Does what a login needs besides the property list: on Linux the desktop's autostart entry for \a program (a full
/// path), hidden while \a on is false; on macOS nothing. A failing write is not reported.
void followList(const QString &program, bool on);

} // namespace LoginAgent
