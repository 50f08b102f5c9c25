#pragma once

#include <QString>

/// What Qt's file classes lack: waiting until data is on the disk, and private modes. Functions that return a text
/// return the system's reason for a failure, empty on success.
namespace files {

/// Waits until a file's content, or a folder's list of names, is on the disk.
QString sync(const QString &path);
/// Makes a folder and its parents (0700). An existing folder stays as it is.
QString makeFolder(const QString &path);
/// Renames a file or folder. Atomically replaces a file that already has the name.
QString rename(const QString &from, const QString &to);
/// Copies the open file `from` into a new file (0600) and waits until it is on the disk.
QString copy(int from, const QString &to);
/// The same by path. Not for the database: closing it drops the locks that SQLite holds on it.
QString copy(const QString &from, const QString &to);
/// Whether the open file and the other one have the same bytes; false when one cannot be read.
bool haveSameBytes(int one, const QString &other);

} // namespace files
