"""What is changed, and which tests are asked: the quick ones first, since the first that fails ends the trial."""

STORE = ("tst_StoreStatements", "tst_StoreReading", "tst_StoreWriting", "tst_ReminderDates", "tst_StoreOpening",
         "tst_StoreFileErrors", "tst_StoreErrors")
SERVICE = ("tst_ServiceConstruction", "tst_ServiceFirstStart", "tst_ServiceViews", "tst_ServiceAbout",
           "tst_ServiceTray", "tst_ServiceConnections", "tst_ServiceQuit", "tst_ServiceMessages",
           "tst_ServiceStatistics", "tst_ServiceUpload")
LOCKED_FILE = ("tst_QtLockedFile", "tst_QtLocalPeer", "tst_SingleInstance")
PEER = ("tst_QtLocalPeer", "tst_GuardMoments", "tst_GuardWaits", "tst_HostilePeers", "tst_GuardMessages",
        "tst_SingleInstance")
READER = ("tst_MessageReader", "tst_QtLocalPeer", "tst_HostilePeers", "tst_GuardMessages")
APPLICATION = ("tst_QtSingleApplication", "tst_GuardWaits", "tst_SingleInstance")
CORE_APPLICATION = ("tst_QtSingleCoreApplication", "tst_GuardWaits")

PLAN = {
    "src/js/AutocompleteLogic.js": ("tst_AutocompleteLogic",),
    "src/js/Bdd.js": STORE,
    "src/js/ReminderDates.js": ("tst_ReminderDates", "tst_StoreWriting"),
    "src/js/Storage.js": STORE,
    "src/js/ListLogic.js": ("tst_ListLogic",),
    "src/js/StepCells.js": ("tst_PatientTableRow",),
    "src/app/messagereader.cpp": READER,
    "src/app/messagereader.h": READER,
    "src/app/qtlocalpeer.cpp": PEER,
    "src/app/qtlocalpeer.h": PEER,
    "src/app/qtlockedfile.cpp": LOCKED_FILE,
    "src/app/qtlockedfile.h": LOCKED_FILE,
    "src/app/qtlockedfile_unix.cpp": LOCKED_FILE,
    "src/app/qtsingleapplication.cpp": APPLICATION,
    "src/app/qtsingleapplication.h": APPLICATION,
    "src/app/qtsinglecoreapplication.cpp": CORE_APPLICATION,
    "src/app/qtsinglecoreapplication.h": CORE_APPLICATION,
    "src/service/macversion.h": ("tst_MacVersion",),
    "src/service/settingskeys.h": SERVICE,
    "src/service/widgetservice.cpp": SERVICE,
    "src/service/widgetservice_preferences.cpp": SERVICE,
    "src/service/widgetservice_printing.cpp": ("tst_ServiceStepCells", "tst_ServiceReport", "tst_ServicePrinting"),
    "src/service/widgetservice_statistics.cpp": (
        "tst_ServiceConstruction", "tst_ServiceFirstStart", "tst_ServiceStatistics", "tst_ServiceUpload"),
    "src/service/widgetservice_tray.cpp": (
        "tst_ServiceConstruction", "tst_ServiceBadge", "tst_ServiceMessages", "tst_ServiceTray"),
    "src/service/widgetservice_views.cpp": (
        "tst_ServiceConstruction", "tst_ServicePlacement", "tst_ServiceViews", "tst_ServiceWindows",
        "tst_ServiceConnections", "tst_ServiceAbout", "tst_ServiceStatistics"),
}

# What is built for a test, where it is not called like the test.
TARGETS = {"tst_PatientTableRow": "tandry_document_tests"}
