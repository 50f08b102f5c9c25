#pragma once

#include "storefiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

/// One generation of the store's files. Each file repeats its number from the first block to the last, to reveal mixed
/// or incomplete files. They are not real databases: the copying code reads only the header.
namespace generation {

inline QByteArray bytesOf(int number)
{
    QByteArray bytes = QByteArray("SQLite format 3\0", 16)
        + QByteArray::number(number).rightJustified(16, ' ').repeated(2000);
    qToBigEndian<quint32>(static_cast<quint32>(number), bytes.data() + 24); // SQLite's count of write transactions
    return bytes;
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(path));
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Odd generations also have a journal.
inline void write(const QString &folder, int number)
{
    QDir().mkpath(folder);
    writeFile(folder + '/' + StoreFiles::databaseName(), bytesOf(number));
    writeFile(folder + '/' + StoreFiles::recordName(),
              "[General]\nVersion=1.3\nGeneration=" + QByteArray::number(number));
    const QString journal = folder + '/' + StoreFiles::companionNames().first();
    if (number % 2)
        writeFile(journal, QByteArray::number(number));
    else
        QFile::remove(journal);
}

/// The number of the generation in the folder; 0 when the files do not belong together or one is incomplete.
inline int in(const QString &folder)
{
    const QByteArray database = readFile(folder + '/' + StoreFiles::databaseName());
    const int number = database.right(16).trimmed().toInt();
    const QByteArray record = readFile(folder + '/' + StoreFiles::recordName());
    const QByteArray journal = readFile(folder + '/' + StoreFiles::companionNames().first());
    const bool isWhole = database == bytesOf(number) && record.endsWith("\nGeneration=" + QByteArray::number(number))
        && journal == (number % 2 ? QByteArray::number(number) : QByteArray());
    return isWhole ? number : 0;
}

} // namespace generation

/// A temporary data folder.
struct DataFolder
{
    QTemporaryDir folder;
    StoreFiles store{folder.filePath("data")};
    void write(int number) const { generation::write(store.folder(), number); }
    int copied(const QString &name) const { return generation::in(store.copiesFolder() + '/' + name); }
};
