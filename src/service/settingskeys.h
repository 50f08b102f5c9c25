#pragma once

#include <QString>

/// The keys of the settings store. Installed versions have stored values under them.
namespace SettingsKeys {

inline const QString uuid = QStringLiteral("Uuid");
inline const QString osType = QStringLiteral("OSType");
inline const QString osVersion = QStringLiteral("OSVersion");
inline const QString osVersionReadable = QStringLiteral("OSVersionReadable");
inline const QString launchCounter = QStringLiteral("LaunchCounter");
inline const QString showListViewCounter = QStringLiteral("ShowListViewCounter");
inline const QString showContactViewCounter = QStringLiteral("ShowContactViewCounter");
/// Never written: the statistics service expects this field to be empty.
inline const QString showMainViewCounter = QStringLiteral("ShowMainViewCounter");
inline const QString printerCounter = QStringLiteral("PrinterCounter");
inline const QString patientsCounter = QStringLiteral("PatientsCounter");
inline const QString patientsWaitingCounter = QStringLiteral("PatientsWaitingCounter");
inline const QString dontAskBeforeQuit = QStringLiteral("DontAskBeforeQuit");

} // namespace SettingsKeys
