#pragma once

#include <QSettings>

QT_FORWARD_DECLARE_CLASS(QIODevice)

/// XML property lists in the shape that QSettings wants of a format. Strings, booleans, integers, reals, dates, data,
/// arrays and dictionaries go through unchanged, so that keys that others put into a list survive our writing it.
namespace PropertyList {

/// Reads the top-level dictionary; arrays that hold only strings become string lists. False, with \a values
/// untouched, for anything that is not a whole, well-formed XML property list with a dictionary at its top.
bool read(QIODevice &device, QSettings::SettingsMap &values);

/// Writes \a values in the order of their keys. False when one has a type that a property list does not know.
bool write(QIODevice &device, const QSettings::SettingsMap &values);

} // namespace PropertyList
