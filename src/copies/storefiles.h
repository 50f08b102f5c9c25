#pragma once

#include <QString>
#include <QStringList>

/// Where the patient store's files are: Qt Quick's local storage keeps them below the application's data folder, under
/// a name that follows from the database's.
class StoreFiles
{
public:
    explicit StoreFiles(const QString &dataFolder);
    /// The store of the running application; needs the application object and its name.
    static StoreFiles ofApplication();

    QString dataFolder() const;
    /// The folder of the database.
    QString folder() const;
    /// The folder of its copies.
    QString copiesFolder() const;
    QString database() const;
    QString record() const;

    static QString databaseName();
    /// The file with the schema's version.
    static QString recordName();
    /// What SQLite leaves beside a database when a process dies, and without which the database is not whole.
    static QStringList companionNames();
    /// All of the above.
    static QStringList names();

    /// The version on record; empty when there is none.
    static QString versionIn(const QString &folder);
    /// Whether the store throws away the patients of a database with that version on record: it is old, or there is none.
    static bool isThrownAway(const QString &version);
    /// Whether the store, opened now, throws away the patients that it holds.
    bool isAboutToBeEmptied() const;

private:
    QString m_dataFolder;
};
