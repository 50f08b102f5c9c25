#pragma once

class QString;

/// Deletes the lock of a QSettings file if it is empty and no process holds it. A process killed while making the lock
/// leaves it so. QSettings reads the owner from it, and would block the window for up to 30 s at the next write.
void dropEmptyLock(const QString &settingsFile);
