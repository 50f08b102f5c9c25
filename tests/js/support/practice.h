#pragma once

#include "patientfile.h"
#include "storedocument.h"
#include "testclock.h"

/// A practice on its first day: an empty patient file and one document whose store is opened.
struct Practice
{
    Practice() { store.perform("init"); }

    PatientFile file;
    PatientEngine engine{file};
    StoreDocument store{&engine};
};

/// The same under a stopped clock, which `moveTo` moves on.
struct PracticeAt : TestClock, Practice
{
    explicit PracticeAt(const QByteArray &localTime, const QByteArray &zone = "Europe/Paris")
        : TestClock(localTime, zone)
    {
    }
};
