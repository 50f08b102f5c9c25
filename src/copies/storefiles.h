#pragma once

#include <QString>
#include <QStringList>

/// Paths of the patient store's files. Qt Quick's local storage keeps them below the application's data folder, named
/// after the MD5 sum of the database's name.
class StoreFiles
{
public:
    explicit StoreFiles(const QString &dataFolder);
    /// The store of the running application. Needs the application object and its name.
    static StoreFiles ofApplication();

    QString dataFolder() const;
    /// The folder of the database.
    QString folder() const;
    /// The folder of its copies.
    QString copiesFolder() const;
    QString database() const;
    QString record() const;

    static QString databaseName();
    /// The file that records the schema version.
    static QString recordName();
    /// The journals that SQLite leaves beside the database when a process dies: part of its content until played back.
    static QStringList companionNames();
    /// The names of all files of the store.
    static QStringList names();

    /// The recorded schema version; empty when there is none.
    static QString versionIn(const QString &folder);
    /// Whether the store, when opened, discards a database with that recorded version: an old one, or none.
    static bool isThrownAway(const QString &version);
    /// Whether the store, opened now, would discard the patients it holds.
    bool isAboutToBeEmptied() const;

private:
    QString m_dataFolder;
};
