#pragma once

#include <QByteArray>

struct sqlite3_stmt;

/// Sample patients, the same in every run, with all kinds of names, numbers, dates and answers.
namespace SamplePatients {

/// Each of these occurs in about 8 of 100 names: in 5 at the start, in 3 further on.
extern const char *const searchTerms[2];

/// Binds the fifteen values of the patient of that number (from 0) to an INSERT statement. One in ten is waiting.
void bind(sqlite3_stmt *insert, int number);

QByteArray name(int number);

} // namespace SamplePatients
