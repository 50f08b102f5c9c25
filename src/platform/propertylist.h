#pragma once

#include <QSettings>

class QIODevice;

/// Reads and writes XML property lists for QSettings::registerFormat(). All types of a property list survive reading
/// and writing, so that keys of other programs stay in the list. Why not a library:
/// docs/decisions/own-property-lists.md.
namespace PropertyList {

/// Reads the top-level dictionary; an array of strings becomes a string list. False, with `values` untouched, unless
/// the device holds a whole, well-formed list with a dictionary at its top.
bool read(QIODevice &device, QSettings::SettingsMap &values);

/// Writes `values` sorted by key. False when a value's type is not one of a property list.
bool write(QIODevice &device, const QSettings::SettingsMap &values);

} // namespace PropertyList
