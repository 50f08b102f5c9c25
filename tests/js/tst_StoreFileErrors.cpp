#include "practice.h"
#include "testhome.h"

#include <QtTest>

#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

namespace {

/// Limits the size of files during its lifetime: writes beyond it fail, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    Q_DISABLE_COPY(FileSizeLimit)

    rlimit m_before;
};

/// Switches from root, who can write read-only files, to another user during its lifetime.
class WithoutPrivileges
{
public:
    WithoutPrivileges()
    {
        QCoreApplication::setSetuidAllowed(true);
        if (m_user == 0 && seteuid(65534) != 0)
            qFatal("Cannot switch to the user nobody");
    }
    ~WithoutPrivileges()
    {
        if (seteuid(m_user) != 0)
            qWarning("Cannot switch back to root");
    }

private:
    Q_DISABLE_COPY(WithoutPrivileges)

    const uid_t m_user = geteuid();
};

const QJsonObject bigPatient{{"name", QString(60000, 'x')}};

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString names(const Practice &practice)
{
    QStringList all;
    for (const QJsonValue &row : practice.file.rows("SELECT name FROM Patients ORDER BY id"))
        all << row.toArray().at(0).toString();
    return all.join(", ");
}

} // namespace

class tst_StoreFileErrors : public QObject
{
    Q_OBJECT

private slots:
    void full_disk_loses_nothing_and_the_store_keeps_working();
    void full_database_loses_nothing_and_the_store_keeps_working();
    void read_only_file_is_read_and_not_written();
    void file_that_is_not_a_database_is_not_changed_data();
    void file_that_is_not_a_database_is_not_changed();
    void damaged_file_throws_and_calls_nothing();
};

void tst_StoreFileErrors::full_disk_loses_nothing_and_the_store_keeps_working()
{
    Practice practice;
    practice.store.insertNamed("Dupont");
    {
        // Enough space for the journal: the commit fails.
        const FileSizeLimit full(QFileInfo(practice.file.path()).size() + 8192);
        const StoreCall call = practice.store.perform("insert", {bigPatient});
        QVERIFY2(call.thrown.contains("disk I/O error"), qPrintable(call.thrown));
        QCOMPARE(call.answers, QJsonArray());
        QCOMPARE(practice.store.get(1)["name"].toString(), QString("Dupont"));
    }
    QCOMPARE(names(practice), QString("Dupont"));
    QCOMPARE(practice.store.insertNamed("Durand"), 2);
    QCOMPARE(names(practice), QString("Dupont, Durand"));
}

void tst_StoreFileErrors::full_database_loses_nothing_and_the_store_keeps_working()
{
    Practice practice;
    practice.store.insertNamed("Dupont");
    // SQLite's own limit causes the error of a full disk; SQLite has rolled back already.
    practice.file.runInStores("PRAGMA max_page_count = 4");
    const StoreCall call = practice.store.perform("insert", {bigPatient});
    QVERIFY2(call.thrown.contains("database or disk is full"), qPrintable(call.thrown));
    QCOMPARE(call.answers, QJsonArray());
    QCOMPARE(names(practice), QString("Dupont"));
    QCOMPARE(practice.store.insertNamed("Durand"), 2);
    QCOMPARE(names(practice), QString("Dupont, Durand"));
}

void tst_StoreFileErrors::read_only_file_is_read_and_not_written()
{
    const PatientFile file;
    file.leavePatient("Dupont");
    QVERIFY(QFile::setPermissions(file.path(), QFile::ReadOwner));
    const QByteArray before = content(file.path());

    PatientEngine engine(file);
    StoreDocument store(&engine);
    QCOMPARE(store.perform("init").answers.count(), 1);
    QCOMPARE(store.get(1)["name"].toString(), QString("Dupont"));
    const StoreCall call = store.perform("update", {QJsonObject{{"id", 1}, {"name", "Durand"}}});
    QVERIFY2(call.thrown.contains("attempt to write a readonly database"), qPrintable(call.thrown));
    QCOMPARE(call.answers, QJsonArray());
    QCOMPARE(store.get(1)["name"].toString(), QString("Dupont"));
    QCOMPARE(content(file.path()), before);
}

void tst_StoreFileErrors::file_that_is_not_a_database_is_not_changed_data()
{
    QTest::addColumn<QString>("version");
    for (const char *version : {"", "1.2", "1.3"})
        QTest::newRow(*version ? version : "none") << version;
}

void tst_StoreFileErrors::file_that_is_not_a_database_is_not_changed()
{
    QFETCH(QString, version);
    const QByteArray letter = QByteArray("Chère consoeur, cher confrère,\n").repeated(100);
    const PatientFile file;
    QFile(file.path()).remove();
    QFile notes(file.path());
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write(letter);
    notes.close();
    file.record(version);

    PatientEngine engine(file);
    StoreDocument store(&engine);
    const StoreCall call = store.perform("init");
    QVERIFY2(call.thrown.contains("file is not a database"), qPrintable(call.thrown));
    QCOMPARE(call.answers, QJsonArray());
    for (const char *operation : {"getNumber", "selectWaiting"})
        QVERIFY(store.perform(operation).thrown.contains("file is not a database"));
    QVERIFY(store.perform("insert", {bigPatient}).thrown.contains("file is not a database"));
    QCOMPARE(content(file.path()), letter);
    QCOMPARE(file.recorded("Version"), version);
}

void tst_StoreFileErrors::damaged_file_throws_and_calls_nothing()
{
    const PatientFile file;
    {
        PatientEngine engine(file);
        StoreDocument(&engine).perform("init");
    }
    file.closeStores();
    file.run({"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
              "INSERT INTO Patients (name) SELECT 'Patient ' || i FROM n"});
    QFile damaged(file.path());
    QVERIFY(damaged.open(QIODevice::ReadWrite));
    damaged.seek(8192);
    damaged.write(QByteArray(static_cast<int>(damaged.size()) - 8192, '\xff'));
    damaged.close();
    const QByteArray before = content(file.path());

    PatientEngine engine(file);
    StoreDocument store(&engine);
    store.perform("init");
    const StoreCall reading = store.perform("select", {""});
    QVERIFY2(reading.thrown.contains("database disk image is malformed"), qPrintable(reading.thrown));
    QCOMPARE(reading.answers, QJsonArray());
    const StoreCall writing = store.perform("removeList", only(QJsonArray{1, 2000}));
    QVERIFY2(writing.thrown.contains("database disk image is malformed"), qPrintable(writing.thrown));
    QCOMPARE(content(file.path()), before);
}

int main(int argc, char **argv)
{
    const WithoutPrivileges nobody;
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_StoreFileErrors test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_StoreFileErrors.moc"
