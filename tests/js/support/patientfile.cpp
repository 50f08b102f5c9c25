#include "patientfile.h"

#include "storedocument.h"

#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

namespace {

/// A connection for the lifetime of this object: no lock remains after it.
class Connection
{
public:
    explicit Connection(const QString &path)
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "witness");
        database.setDatabaseName(path);
        if (!database.open())
            QTest::qFail(qPrintable(database.lastError().text()), __FILE__, __LINE__);
    }
    ~Connection() { QSqlDatabase::removeDatabase("witness"); }

    static QSqlQuery execute(const QString &statement)
    {
        QSqlQuery query(QSqlDatabase::database("witness"));
        if (!query.exec(statement))
            QTest::qFail(qPrintable(query.lastError().text() + " in: " + statement), __FILE__, __LINE__);
        return query;
    }

private:
    Q_DISABLE_COPY(Connection)
};

/// The storage module names its files and its connection after the hash of the database's name.
const char *const fileName = "d227857cb3a319b4c10c731fbbdb9196";

} // namespace

PatientFile::PatientFile()
{
    if (!m_folder.isValid() || !QDir().mkpath(folder()))
        qFatal("No folder for the test's database");
}

PatientFile::~PatientFile()
{
    closeStores();
}

void PatientFile::closeStores() const
{
    QSqlDatabase::removeDatabase(fileName);
}

QString PatientFile::basePath() const
{
    return folder() + "/" + fileName;
}

QString PatientFile::recorded(const QString &key) const
{
    return QSettings(recordPath(), QSettings::IniFormat).value(key).toString();
}

void PatientFile::record(const QString &version) const
{
    QSettings settings(recordPath(), QSettings::IniFormat);
    settings.setValue("Name", "Tandry");
    settings.setValue("Version", version);
    settings.setValue("Description", "Tandry widget storage");
    settings.setValue("EstimatedSize", 500000);
    settings.setValue("Driver", "QSQLITE");
}

void PatientFile::leavePatient(const QString &name) const
{
    {
        PatientEngine engine(*this);
        StoreDocument store(&engine);
        store.perform("init");
        store.insertNamed(name);
    }
    closeStores();
}

void PatientFile::run(const QStringList &statements) const
{
    const Connection connection(path());
    for (const QString &statement : statements)
        Connection::execute(statement);
}

void PatientFile::runInStores(const QString &statement) const
{
    QSqlQuery query(QSqlDatabase::database(fileName));
    if (!query.exec(statement))
        QTest::qFail(qPrintable(query.lastError().text() + " in: " + statement), __FILE__, __LINE__);
}

QJsonArray PatientFile::rows(const QString &query) const
{
    const Connection connection(path());
    QSqlQuery result = Connection::execute(query);
    QJsonArray rows;
    while (result.next()) {
        QJsonArray row;
        for (int i = 0; i < result.record().count(); ++i)
            row << QJsonValue::fromVariant(result.isNull(i) ? QVariant::fromValue(nullptr) : result.value(i));
        rows << row;
    }
    return rows;
}

QJsonValue PatientFile::value(const QString &query) const
{
    return rows(query).at(0).toArray().at(0);
}

PatientEngine::PatientEngine(const PatientFile &file)
{
    setOfflineStoragePath(QFileInfo(file.folder()).path());
}
