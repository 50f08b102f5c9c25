#pragma once

#include <QByteArray>

class QQmlEngine;
struct sqlite3;
struct sqlite3_stmt;

/// The patient database through SQLite's C API: the minimum cost of the store's statements. Uses the same library,
/// file, journal mode, sync mode and transactions as the program. Any failure ends the process.
class RawStore
{
    Q_DISABLE_COPY(RawStore)

public:
    /// Opens that engine's patient database, empties its table and fills it with that many sample patients.
    RawStore(const QQmlEngine &engine, int patients);
    ~RawStore();

    /// Runs the two statements of a search and reads every column of every row. Returns the number of rows.
    int search(const QByteArray &text);
    /// Runs the statement for all patients and reads every column of every row. Returns the number of rows.
    int selectAll();
    /// Writes all columns of a patient in a transaction; the values depend on the number.
    void update(int id, int variation);
    /// The result of "PRAGMA <name>".
    QByteArray pragma(const char *name);

private:
    void fill(int patients);
    sqlite3_stmt *prepare(const QByteArray &statement);
    void run(const char *statement);
    int readRows(const QByteArray &condition, const QByteArray &first, const QByteArray &second);
    void check(int answer);

    sqlite3 *handle = nullptr;
};
