#include "patienttable.h"

#include "files.h"
#include "storefiles.h"

#include <QFileInfo>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>

#include <algorithm>
#include <array>

namespace {

constexpr char currentVersion[] = "1.3";

struct Column
{
    const char *name;
    const char *declaration; ///< the one of the store's table, for adding a missing column
    bool isText;
};

constexpr std::array<Column, 15> columns{{{"genderMale", "tinyint(1) NOT NULL DEFAULT 0", false},
                                          {"name", "TEXT COLLATE NOCASE NOT NULL DEFAULT ''", true},
                                          {"phone", "TEXT DEFAULT ''", true},
                                          {"created", "date", true},
                                          {"test", "tinyint(1) DEFAULT 0", false},
                                          {"test_date", "date DEFAULT ''", true},
                                          {"rdv1", "tinyint(1) DEFAULT 0", false},
                                          {"date1", "date DEFAULT ''", true},
                                          {"confirmation", "tinyint(1) DEFAULT 0", false},
                                          {"confirmation_date", "date DEFAULT ''", true},
                                          {"rdv2", "tinyint(1) DEFAULT 0", false},
                                          {"date2", "date DEFAULT ''", true},
                                          {"rdv3", "tinyint(1) DEFAULT 0", false},
                                          {"date3", "date DEFAULT ''", true},
                                          {"notification_date", "date DEFAULT ''", true}}};

/// A connection to the database of a folder, closed with the object.
class Database
{
    Q_DISABLE_COPY(Database)

public:
    Database(const QString &folder, const char *options)
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection());
        database.setConnectOptions(QString::fromLatin1(options));
        database.setDatabaseName(folder + QLatin1Char('/') + StoreFiles::databaseName());
        if (!database.open()) {
            error = database.lastError().text();
        }
    }
    ~Database()
    {
        QSqlDatabase::database(connection(), false).close();
        QSqlDatabase::removeDatabase(connection());
    }

    QSqlDatabase handle() const { return QSqlDatabase::database(connection(), false); }
    /// Runs a statement. The first failure stays in `error`; after it nothing runs.
    void run(const QString &statement, const QVariantList &values = {})
    {
        if (!error.isEmpty()) {
            return;
        }
        QSqlQuery query(handle());
        const bool isPrepared = query.prepare(statement);
        for (const QVariant &value : values) {
            query.addBindValue(value);
        }
        if (!isPrepared || !query.exec()) {
            error = query.lastError().text();
        }
    }

    QString error;

private:
    static QString connection() { return QStringLiteral("patients"); }
};

QVariantMap rowOf(const QSqlRecord &record)
{
    QVariantMap row{{QStringLiteral("id"), record.value(QStringLiteral("id"))}};
    for (const Column &column : columns) {
        const QString name = QString::fromLatin1(column.name);
        const QVariant value = record.value(name);
        const QVariant usual = column.isText ? QVariant(QString()) : QVariant(0);
        row.insert(name, value.isNull() ? usual : column.isText ? QVariant(value.toString()) : QVariant(value.toInt()));
    }
    return row;
}

PatientTable readInPlace(const QString &folder)
{
    PatientTable table;
    Database database(folder, "QSQLITE_OPEN_READONLY");
    table.error = database.error;
    if (!table.error.isEmpty()) {
        return table;
    }
    QSqlQuery query(database.handle());
    if (!query.exec(QStringLiteral("SELECT * FROM sqlite_master WHERE type = 'table' AND name = 'Patients'"))) {
        table.error = query.lastError().text();
        return table;
    }
    if (!query.next()) { // created, but not yet filled
        return table;
    }
    const bool isRead = query.exec(QStringLiteral("SELECT * FROM `Patients` ORDER BY name"));
    while (isRead && query.next()) {
        table.rows.append(rowOf(query.record()));
    }
    if (!isRead || query.lastError().isValid()) { // a damaged page, perhaps halfway through
        table.error = query.lastError().text();
    }
    if (query.exec(QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = 'Patients'")) && query.next()) {
        table.lastId = query.value(0).toLongLong();
    }
    return table;
}

} // namespace

PatientTable PatientTable::read(const QString &folder)
{
    const QStringList companions = StoreFiles::companionNames();
    const bool hasCompanion = std::any_of(companions.begin(), companions.end(), [&](const QString &name) {
        return QFileInfo::exists(folder + QLatin1Char('/') + name);
    });
    if (!hasCompanion) {
        return readInPlace(folder);
    }
    const QTemporaryDir place;
    PatientTable table;
    const QStringList names = StoreFiles::names();
    for (const QString &name : names) {
        if (QFileInfo::exists(folder + QLatin1Char('/') + name) && table.error.isEmpty()) {
            table.error = files::copy(folder + QLatin1Char('/') + name, place.filePath(name));
        }
    }
    if (table.error.isEmpty()) {
        // Any statement plays the journal back.
        Database(place.path(), "").run(QStringLiteral("SELECT COUNT(*) FROM sqlite_master"));
        table = readInPlace(place.path());
    }
    return table;
}

QString patients::bringUpToDate(const QString &folder)
{
    Database database(folder, "");
    const QSqlRecord record = database.handle().record(QStringLiteral("Patients"));
    database.run(QStringLiteral("BEGIN IMMEDIATE"));
    for (const Column &column : columns) {
        const QString name = QString::fromLatin1(column.name);
        if (!record.isEmpty() && !record.contains(name)) {
            database.run(QStringLiteral("ALTER TABLE `Patients` ADD COLUMN `%1` %2")
                             .arg(name, QString::fromLatin1(column.declaration)));
        }
    }
    database.run(QStringLiteral("COMMIT"));
    if (!database.error.isEmpty()) {
        return database.error;
    }

    // The fields that Qt Quick's local storage writes.
    QSettings settings(folder + QLatin1Char('/') + StoreFiles::recordName(), QSettings::IniFormat);
    settings.setValue(QStringLiteral("Name"), QStringLiteral("Tandry"));
    settings.setValue(QStringLiteral("Version"), QString::fromLatin1(currentVersion));
    settings.setValue(QStringLiteral("Description"), QStringLiteral("Tandry widget storage"));
    settings.setValue(QStringLiteral("EstimatedSize"), 500000);
    settings.setValue(QStringLiteral("Driver"), QStringLiteral("QSQLITE"));
    settings.sync();
    return settings.status() == QSettings::NoError ? QString() : QStringLiteral("the version cannot be recorded");
}

QString patients::add(const QString &folder, const QVector<QVariantMap> &rows)
{
    QStringList names;
    QStringList places;
    for (const Column &column : columns) {
        names << QLatin1Char('`') + QString::fromLatin1(column.name) + QLatin1Char('`');
        places << QStringLiteral("?");
    }
    const QString statement = QStringLiteral("INSERT INTO `Patients` (%1) VALUES (%2)")
                                  .arg(names.join(QLatin1String(", ")), places.join(QLatin1String(", ")));

    Database database(folder, "");
    database.run(QStringLiteral("BEGIN IMMEDIATE"));
    for (const QVariantMap &row : rows) {
        QVariantList values;
        for (const Column &column : columns) {
            const QVariant value = row.value(QString::fromLatin1(column.name));
            // A null text would be stored as NULL, which the column of the name refuses.
            values << (column.isText && value.toString().isEmpty() ? QVariant(QLatin1String("")) : value);
        }
        database.run(statement, values);
    }
    database.run(QStringLiteral("COMMIT"));
    return database.error;
}
