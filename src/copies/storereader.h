#pragma once

#include "storefiles.h"

#include <QVector>

/// Copies the store's files, whole or not at all, and compares them with a copy.
///
/// POSIX: a process that closes any descriptor of a file gives up all its record locks on the file, those of SQLite
/// included, without SQLite knowing. So the database, once opened here, stays open until the process ends.
class StoreReader
{
    Q_DISABLE_COPY(StoreReader)

public:
    explicit StoreReader(const StoreFiles &store);

    /// Why a copy of the database would be of no use or take too long; empty when there is no such reason.
    QString reasonAgainstCopy();
    /// Copies all files of the store that exist into an empty folder. Returns an empty text when every byte was found
    /// again there and the store stayed untouched meanwhile, else the reason.
    QString copyTo(const QString &folder);
    /// Whether the folder holds the same files with the same bytes as the store does now.
    bool isSameAs(const QString &folder);

private:
    struct Held
    {
        quint64 device;
        quint64 inode;
        int descriptor;
    };

    int heldDatabase();
    QString copyFile(const QString &name, const QString &folder);
    bool isSameFile(const QString &name, const QString &folder);
    QString lookOfFiles() const;

    const StoreFiles m_store;
    QVector<Held> m_held;
};
