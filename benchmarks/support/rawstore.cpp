#include "rawstore.h"

#include "samplepatients.h"

#include <QFile>
#include <QQmlEngine>
#include <QtGlobal>

#include <sqlite3.h>

namespace {

const QByteArray recordHead = R"(SELECT *, strftime("%d/%m/%Y", created) AS created_format, )"
                              R"((notification_date <= date("now") AND notification_date != "") AS waiting )"
                              "FROM `Patients`";

// Sum of everything read: keeps the compiler from removing the reads.
volatile long long consumed = 0;

} // namespace

RawStore::RawStore(const QQmlEngine &engine, int patients)
{
    const QString file = engine.offlineStorageDatabaseFilePath(QStringLiteral("Tandry")) + QStringLiteral(".sqlite");
    check(sqlite3_open_v2(QFile::encodeName(file).constData(), &handle, SQLITE_OPEN_READWRITE, nullptr));
    run("PRAGMA busy_timeout = 1000");
    fill(patients);
}

RawStore::~RawStore()
{
    sqlite3_close(handle);
}

void RawStore::fill(int patients)
{
    run("BEGIN");
    run("DELETE FROM `Patients`");
    run("DELETE FROM sqlite_sequence");
    sqlite3_stmt *insert = prepare(
        "INSERT INTO `Patients` (`genderMale`, `name`, `phone`, `created`, `test`, `test_date`, `rdv1`, `date1`, "
        "`confirmation`, `confirmation_date`, `rdv2`, `date2`, `rdv3`, `date3`, `notification_date`) "
        "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int number = 0; number < patients; ++number) {
        SamplePatients::bind(insert, number);
        check(sqlite3_step(insert));
        check(sqlite3_reset(insert));
    }
    check(sqlite3_finalize(insert));
    run("COMMIT");
}

int RawStore::search(const QByteArray &text)
{
    run("BEGIN");
    const int rows = readRows(" WHERE `name` LIKE ? ORDER BY name", text + '%', QByteArray())
        + readRows(" WHERE `name` LIKE ? AND `name` NOT LIKE ? ORDER BY name", '%' + text + '%', text + '%');
    run("COMMIT");
    return rows;
}

int RawStore::selectAll()
{
    run("BEGIN");
    const int rows = readRows(" ORDER BY name", QByteArray(), QByteArray());
    run("COMMIT");
    return rows;
}

void RawStore::update(int id, int variation)
{
    run("BEGIN");
    sqlite3_stmt *statement = prepare(
        "UPDATE `Patients` SET `genderMale` = ?, `name` = ?, `phone` = ?, `test` = ?, `test_date` = ?, "
        "`rdv1` = ?, `date1` = ?, `confirmation` = ?, `confirmation_date` = ?, `rdv2` = ?, `date2` = ?, "
        "`rdv3` = ?, `date3` = ?, `notification_date` = ? WHERE id = ?");
    const QByteArray name = SamplePatients::name(id);
    const QByteArray phone = "06 " + QByteArray::number(10000000 + variation);
    int position = 1;

    sqlite3_bind_int(statement, position++, variation % 2);
    sqlite3_bind_text(statement, position++, name.constData(), name.size(), SQLITE_STATIC);
    sqlite3_bind_text(statement, position++, phone.constData(), phone.size(), SQLITE_STATIC);
    for (int step = 0; step < 5; ++step) {
        sqlite3_bind_int(statement, position++, (variation >> step) % 2);
        sqlite3_bind_text(statement, position++, "2014-05-31", -1, SQLITE_STATIC);
    }
    sqlite3_bind_text(statement, position++, "2014-09-15", -1, SQLITE_STATIC);
    sqlite3_bind_int(statement, position, id);
    check(sqlite3_step(statement));
    check(sqlite3_finalize(statement));
    run("COMMIT");
}

QByteArray RawStore::pragma(const char *name)
{
    sqlite3_stmt *statement = prepare(QByteArray("PRAGMA ") + name);
    check(sqlite3_step(statement));
    const QByteArray answer = reinterpret_cast<const char *>(sqlite3_column_text(statement, 0));
    check(sqlite3_finalize(statement));
    return answer;
}

sqlite3_stmt *RawStore::prepare(const QByteArray &statement)
{
    sqlite3_stmt *prepared = nullptr;
    check(sqlite3_prepare_v2(handle, statement.constData(), statement.size(), &prepared, nullptr));
    return prepared;
}

void RawStore::run(const char *statement)
{
    check(sqlite3_exec(handle, statement, nullptr, nullptr, nullptr));
}

int RawStore::readRows(const QByteArray &condition, const QByteArray &first, const QByteArray &second)
{
    sqlite3_stmt *statement = prepare(recordHead + condition);
    if (!first.isEmpty()) {
        sqlite3_bind_text(statement, 1, first.constData(), first.size(), SQLITE_STATIC);
    }
    if (!second.isEmpty()) {
        sqlite3_bind_text(statement, 2, second.constData(), second.size(), SQLITE_STATIC);
    }
    const int columns = sqlite3_column_count(statement);
    long long sum = 0;
    int rows = 0;
    int answer = sqlite3_step(statement);
    for (; answer == SQLITE_ROW; answer = sqlite3_step(statement)) {
        ++rows;
        for (int column = 0; column < columns; ++column) {
            if (sqlite3_column_type(statement, column) == SQLITE_INTEGER) {
                sum += sqlite3_column_int64(statement, column);
            } else if (const unsigned char *text = sqlite3_column_text(statement, column)) {
                sum += *text + sqlite3_column_bytes(statement, column);
            }
        }
    }
    check(answer);
    check(sqlite3_finalize(statement));
    consumed = consumed + sum;
    return rows;
}

void RawStore::check(int answer)
{
    if (answer != SQLITE_OK && answer != SQLITE_DONE && answer != SQLITE_ROW) {
        qFatal("SQLite: %s", sqlite3_errmsg(handle));
    }
}
