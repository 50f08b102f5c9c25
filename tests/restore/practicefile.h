#pragma once

#include "patienttable.h"
#include "storefiles.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

/// Databases of existing installations, written without the code under test.
namespace practice {

const char *const table =
    "CREATE TABLE `Patients`(`id` INTEGER PRIMARY KEY AUTOINCREMENT,`genderMale` tinyint(1) NOT NULL DEFAULT \"0\","
    "`name` TEXT COLLATE NOCASE NOT NULL,`phone` TEXT DEFAULT \"\",`created` date,`test` tinyint(1) DEFAULT 0,"
    "`test_date` date DEFAULT \"\",`rdv1` tinyint(1) DEFAULT 0,`date1` date DEFAULT \"\","
    "`confirmation` tinyint(1) DEFAULT 0,`confirmation_date` date DEFAULT \"\",`rdv2` tinyint(1) DEFAULT 0,"
    "`date2` date DEFAULT \"\",`rdv3` tinyint(1) DEFAULT 0,`date3` date DEFAULT \"\","
    "`notification_date` date DEFAULT \"\")";
const char *const dupont = "INSERT INTO Patients (name, phone, created, test, test_date, notification_date) "
                           "VALUES ('DUPONT Marie', '0601020304', '2014-04-10', 1, '2014-05-12', '2014-09-15')";
const char *const martin = "INSERT INTO Patients (name, genderMale, created) VALUES ('MARTIN Paul', 1, '2014-05-02')";

inline void run(const QString &folder, const QStringList &statements)
{
    QDir().mkpath(folder);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "practice");
        database.setDatabaseName(folder + '/' + StoreFiles::databaseName());
        if (!database.open())
            qFatal("%s", qPrintable(database.lastError().text()));
        for (const QString &statement : statements) {
            QSqlQuery query(database);
            if (!query.exec(statement))
                qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
        }
    }
    QSqlDatabase::removeDatabase("practice");
}

inline void record(const QString &folder, const QByteArray &version)
{
    QFile file(folder + '/' + StoreFiles::recordName());
    if (!file.open(QIODevice::WriteOnly))
        qFatal("The record cannot be written");
    file.write("[General]\nName=Tandry\nVersion=" + version + '\n');
}

/// A database of the current version.
inline void write(const QString &folder, const QStringList &statements)
{
    run(folder, QStringList{table} + statements);
    record(folder, "1.3");
}

inline QStringList names(const PatientTable &patients)
{
    QStringList names;
    for (const QVariantMap &row : patients.rows)
        names << row.value("name").toString();
    return names;
}

} // namespace practice
