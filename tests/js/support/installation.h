#pragma once

#include "patientfile.h"
#include "patientstable.h"

/// The file of an installation whose schema had \a version and one patient; with no record of it when that is "none".
inline void leaveInstallation(const PatientFile &file, const QString &version, const QString &table = createStatement)
{
    file.run({table, "INSERT INTO `Patients` (`genderMale`, `name`) VALUES (1, 'Dupont')"});
    if (version != "none")
        file.record(version);
}
