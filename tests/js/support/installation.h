#pragma once

#include "patientfile.h"
#include "patientstable.h"

/// Creates the database of an installation with that schema version and one patient; without a version record for
/// "none".
inline void leaveInstallation(const PatientFile &file, const QString &version, const QString &table = createStatement)
{
    file.run({table, "INSERT INTO `Patients` (`genderMale`, `name`) VALUES (1, 'Dupont')"});
    if (version != "none")
        file.record(version);
}
