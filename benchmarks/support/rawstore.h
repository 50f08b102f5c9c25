#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

/// The patient database through SQLite's own C interface: what the store's statements cost at least. The same library,
/// file, journal mode and sync as the program; transactions where the program has them. Any failure ends the process.
class RawStore
{
    Q_DISABLE_COPY(RawStore)

public:
    explicit RawStore(const QString &file);
    ~RawStore();

    /// Empties the table and fills it with that many sample patients.
    void fill(int patients);
    /// Runs the two statements of a search and reads every column of every row. The number of rows.
    int search(const QByteArray &text);
    /// Runs the statement that reads all patients and reads every column of every row. The number of rows.
    int selectAll();
    /// Writes all columns of a patient, in a transaction of its own; the values differ from one number to the next.
    void update(int id, int variation);
    /// The answer to "PRAGMA <name>".
    QByteArray pragma(const char *name);

private:
    sqlite3_stmt *prepare(const QByteArray &statement);
    void run(const char *statement);
    int readRows(const QByteArray &condition, const QByteArray &first, const QByteArray &second);
    void check(int answer);

    sqlite3 *handle = nullptr;
};
