#pragma once

#include <QByteArray>

struct sqlite3_stmt;

/// Patients that are the same at every run: names, numbers, dates and answers of every kind.
namespace SamplePatients {

/// About 8 of 100 names hold each of these: 5 at the start, 3 further in.
extern const char *const searchTerms[2];

/// Binds the fifteen values of the patient of that number (from 0) to an INSERT statement. One in ten is waiting.
void bind(sqlite3_stmt *insert, int number);

QByteArray name(int number);

} // namespace SamplePatients
