#pragma once

#include <QJsonObject>
#include <QString>

/// The statement that inserts a patient with a value or NULL in every column and that reminder.
inline QString insertWholePatient(const char *notificationDate)
{
    return QString("INSERT INTO Patients VALUES (7, 1, 'Dupont', NULL, '2014-04-10', 1, '2014-04-11', 0, '', 1, "
                   "'2014-04-13', 0, '', 0, '', '%1')")
        .arg(notificationDate);
}

/// The record of that patient as the documents receive it.
inline QJsonObject wholeRecord(const char *notificationDate, int waiting)
{
    return {{"id", 7},
            {"genderMale", 1},
            {"name", "Dupont"},
            {"phone", ""},
            {"created", "2014-04-10"},
            {"created_format", "10/04/2014"},
            {"test", 1},
            {"test_date", "2014-04-11"},
            {"rdv1", 0},
            {"date1", ""},
            {"confirmation", 1},
            {"confirmation_date", "2014-04-13"},
            {"rdv2", 0},
            {"date2", ""},
            {"rdv3", 0},
            {"date3", ""},
            {"notification_date", notificationDate},
            {"waiting", waiting}};
}
