#pragma once

#include "patientfile.h"
#include "storedocument.h"
#include "testclock.h"

/// A new practice: an empty patient database and one document with an open store.
struct Practice
{
    Practice() { store.perform("init"); }

    PatientFile file;
    PatientEngine engine{file};
    StoreDocument store{&engine};
};

/// The same with a stopped clock; `moveTo` sets the time.
struct PracticeAt : TestClock, Practice
{
    explicit PracticeAt(const QByteArray &localTime, const QByteArray &zone = "Europe/Paris")
        : TestClock(localTime, zone)
    {
    }
};
