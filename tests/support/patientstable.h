#pragma once

/// The statement that creates the table in every version.
inline const char *const createStatement =
    "CREATE TABLE `Patients`(`id` INTEGER PRIMARY KEY AUTOINCREMENT,`genderMale` tinyint(1) NOT NULL DEFAULT \"0\","
    "`name` TEXT COLLATE NOCASE NOT NULL,`phone` TEXT DEFAULT \"\",`created` date,`test` tinyint(1) DEFAULT 0,"
    "`test_date` date DEFAULT \"\",`rdv1` tinyint(1) DEFAULT 0,`date1` date DEFAULT \"\","
    "`confirmation` tinyint(1) DEFAULT 0,`confirmation_date` date DEFAULT \"\",`rdv2` tinyint(1) DEFAULT 0,"
    "`date2` date DEFAULT \"\",`rdv3` tinyint(1) DEFAULT 0,`date3` date DEFAULT \"\","
    "`notification_date` date DEFAULT \"\")";
