#pragma once

#include <QJsonArray>
#include <QQmlEngine>
#include <QTemporaryDir>

/// The patient database of one test in a temporary folder, written and read without the store's scripts. All stores of
/// a process share one connection, which the destructor closes: this object must outlive their engines.
class PatientFile
{
public:
    PatientFile();
    ~PatientFile();

    /// Closes the connection of the stores, like the end of the program; delete their engines first.
    void closeStores() const;

    QString folder() const { return m_folder.path() + "/Databases"; }
    QString path() const { return basePath() + ".sqlite"; }
    /// The path of the version record: the file beside the database with its name, version and size.
    QString recordPath() const { return basePath() + ".ini"; }

    /// The value of \a key ("Version") in the record.
    QString recorded(const QString &key) const;

    /// Writes the version record of an installation with \a version.
    void record(const QString &version) const;

    /// Creates the files of an earlier start with one new patient.
    void leavePatient(const QString &name) const;

    /// Runs statements; fails the test when one fails.
    void run(const QStringList &statements) const;

    /// Runs a statement on the connection that the stores of this process share.
    void runInStores(const QString &statement) const;

    /// All rows of a query, each an array; sees committed data only. Fails the test when the query fails.
    QJsonArray rows(const QString &query) const;
    /// The first column of the first row; undefined when there is none.
    QJsonValue value(const QString &query) const;

private:
    Q_DISABLE_COPY(PatientFile)

    QString basePath() const;

    QTemporaryDir m_folder;
};

/// An array with that array as its only element; some compilers treat braces around one array as a copy.
inline QJsonArray only(const QJsonArray &element)
{
    return {QJsonValue(element)};
}

/// An engine whose stores use this file.
class PatientEngine : public QQmlEngine
{
public:
    explicit PatientEngine(const PatientFile &file);
};
