#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

/// The platform's part of launch at login.
namespace LoginAgent {

/// The settings format of an agent's property list.
QSettings::Format listFormat();

/// The value of a top-level key, read from the file of `list`; null when the file is unreadable or lacks the key.
QVariant storedValue(QSettings &list, const QString &key);

/// Whether the desktop has an autostart entry. Always false on macOS.
bool hasEntry();

/// Writes the desktop's autostart entry for `program` (a full path), hidden unless `on`. Does nothing on macOS. A
/// failing write is not reported.
void updateEntry(const QString &program, bool on);

} // namespace LoginAgent
