#pragma once

#include <QVariantMap>

/// A patient as the list passes it to the report, with a date for every step.
inline QVariantMap answeredPatient()
{
    return {{"name", "DUPONT Marie"},
            {"created_format", "31/01/2014"},
            {"phone", "01 99 00 12 34"},
            {"test", 0},
            {"test_date", "2014-02-01"},
            {"rdv1", 1},
            {"date1", "2014-02-02"},
            {"confirmation", 1},
            {"confirmation_date", "2014-02-03"},
            {"rdv2", 1},
            {"date2", "2014-02-04"},
            {"rdv3", 0},
            {"date3", "2014-02-05"},
            {"checked", true}};
}
