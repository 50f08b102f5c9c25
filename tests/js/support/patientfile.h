#pragma once

#include <QJsonArray>
#include <QQmlEngine>
#include <QTemporaryDir>

/// The patient database of one test in a folder of its own, written and read without the store's scripts. All stores of
/// a process share one connection, which ends with this object: it has to outlive their engines.
class PatientFile
{
public:
    PatientFile();
    ~PatientFile();

    /// Ends the connection of the stores as the end of the program does; their engines are gone by then.
    void closeStores() const;

    QString folder() const { return m_folder.path() + "/Databases"; }
    QString path() const { return basePath() + ".sqlite"; }
    /// The file beside the database that records its name, version and size.
    QString recordPath() const { return basePath() + ".ini"; }

    /// The value of \a key ("Version") in the record.
    QString recorded(const QString &key) const;

    /// Writes the record of a database of \a version, as an installation of that version left it.
    void record(const QString &version) const;

    /// Leaves behind what an earlier start with one new patient did.
    void leavePatient(const QString &name) const;

    /// Runs statements; fails the test when one fails.
    void run(const QStringList &statements) const;

    /// Runs a statement on the connection that the stores of this process share.
    void runInStores(const QString &statement) const;

    /// All rows of a query, each an array; of what is committed only. Fails the test when the query fails.
    QJsonArray rows(const QString &query) const;
    /// The first column of the first row; undefined when there is none.
    QJsonValue value(const QString &query) const;

private:
    Q_DISABLE_COPY(PatientFile)

    QString basePath() const;

    QTemporaryDir m_folder;
};

/// An array with that array as its only element; some compilers take braces around one array for a copy of it.
inline QJsonArray only(const QJsonArray &element)
{
    return {QJsonValue(element)};
}

/// An engine whose stores use that file.
class PatientEngine : public QQmlEngine
{
public:
    explicit PatientEngine(const PatientFile &file);
};
