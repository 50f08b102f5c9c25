#pragma once

#include <QString>

/// What Qt's file classes leave out: writing that has reached the disk, and folders of their owner alone. Each function
/// returns the system's reason for a failure, and an empty text when it succeeded.
namespace files {

/// Waits until a file, or a folder's list of names, is on the disk.
QString sync(const QString &path);
/// Makes a folder (0700) with its parents; one that is there is left as it is.
QString makeFolder(const QString &path);
/// Gives a file or folder another name; a file that has it is replaced, at once and whole.
QString rename(const QString &from, const QString &to);
/// Copies the open file \a from into a new file (0600), on the disk when the call returns.
QString copy(int from, const QString &to);
/// Copies a file that no process of ours holds a lock on.
QString copy(const QString &from, const QString &to);
/// Whether the open file and the other have the same bytes; false when one cannot be read.
bool haveSameBytes(int one, const QString &other);

} // namespace files
