#pragma once

#include "storefiles.h"

#include <QVector>

/// Copies the store's files, all or none, and compares them with a copy.
///
/// A database opened here stays open until the process ends: closing any descriptor of a file drops all the POSIX
/// record locks that the process holds on it, those of SQLite included.
class StoreReader
{
    Q_DISABLE_COPY(StoreReader)

public:
    explicit StoreReader(const StoreFiles &store);

    /// Why the database should not be copied (not a database, or too large); empty when it should.
    QString reasonAgainstCopy();
    /// Copies the store's files into an empty folder and compares them. Returns the reason when a file cannot be copied
    /// or the store was written meanwhile.
    QString copyTo(const QString &folder);
    /// Whether the folder holds the same files with the same bytes as the store.
    bool isSameAs(const QString &folder);

private:
    struct OpenFile
    {
        quint64 device;
        quint64 inode;
        int descriptor;
    };

    int databaseDescriptor();
    QString copyFile(const QString &name, const QString &folder);
    bool isSameFile(const QString &name, const QString &folder);
    QString fingerprint() const;

    const StoreFiles m_store;
    QVector<OpenFile> m_openDatabases;
};
