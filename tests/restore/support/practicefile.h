#pragma once

#include "patientstable.h"
#include "patienttable.h"
#include "storefiles.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

/// Databases of existing installations, written without the code under test.
namespace practice {

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
    run(folder, QStringList{createStatement} + statements);
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
