"""The files to mutate and the tests to run for each: quick ones first, because the first failure ends the trial."""

STORE = ("tst_StoreStatements", "tst_StoreReading", "tst_StoreWriting", "tst_ReminderDates", "tst_StoreOpening",
         "tst_StoreMigration", "tst_StoreFileErrors", "tst_StoreErrors")
LOCKED_FILE = ("tst_QtLockedFile", "tst_QtLocalPeer", "tst_SingleInstance")
PEER = ("tst_QtLocalPeer", "tst_GuardMoments", "tst_GuardWaits", "tst_HostilePeers", "tst_GuardMessages",
        "tst_SingleInstance")
READER = ("tst_MessageReader", "tst_QtLocalPeer", "tst_HostilePeers", "tst_GuardMessages")
APPLICATION = ("tst_QtSingleApplication", "tst_GuardWaits", "tst_SingleInstance")
CORE_APPLICATION = ("tst_QtSingleCoreApplication", "tst_GuardWaits")
VIEW = ("tst_DraggableQuickView", "tst_ServiceWindows", "tst_StartUp")
COPIES = ("tst_StoreFiles", "tst_CopyFolder", "tst_CopyRetention", "tst_PatientCopies", "tst_UnsyncedExchange", "tst_Restorer",
          "tst_CopyKills")
RESTORE = ("tst_PatientTable", "tst_Difference", "tst_Restorer", "tst_RestoreWindow")
AUTORUN = ("tst_Autorun", "tst_AutostartEntry")
SERVICE = ("tst_ServiceConstruction", "tst_ServiceFirstStart", "tst_ServiceViews", "tst_ServiceAbout",
           "tst_ServiceTray", "tst_ServiceConnections", "tst_ServiceQuit", "tst_ServiceMessages",
           "tst_ServicePlacement", "tst_ServiceWindows", "tst_ServiceStatistics", "tst_ServiceUpload")

EDITOR = ("tst_DetailLoad", "tst_DetailSave", "tst_DetailPathway", "tst_DetailAnswers", "tst_DetailErrors",
          "tst_DetailKeyboard")
LIST = ("tst_PatientTableRow", "tst_ListPopup", "tst_ListPopupKeyboard", "tst_ListPopupLook")
MAIN = ("tst_MainLoading", "tst_MainMenu", "tst_MainSearch", "tst_MainAnimations", "tst_MainKeyboard",
        "tst_MainEditor", "tst_MainHeights")
CONTROLS = ("tst_Controls", "tst_Activation", "tst_PlainText")
SHARED = (*CONTROLS, "tst_Autocomplete", "tst_Question", "tst_MainMenu", "tst_MainSearch", "tst_MainHeights",
          "tst_DetailLoad", "tst_ListPopup", "tst_ListPopupLook")
# Run for every document, after its own tests.
DOCUMENTS = ("tst_Activation", "tst_DocumentInterfaces", "tst_Looks", "tst_LargerTexts", "tst_LargerTexts_144")

PLAN = {
    "src/app/draggablequickview.cpp": VIEW,
    "src/app/draggablequickview.h": VIEW,
    "src/app/focuser.cpp": VIEW,
    "src/app/focuser_linux.cpp": VIEW,
    "src/app/main.cpp": ("tst_StartUp",),
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
    "src/app/socketwaits.cpp": PEER,
    "src/app": VIEW,
    "src/copies": COPIES,
    "src/copies/patientcopies.cpp": (*COPIES, "desktop_clock_jumps"),
    "src/js/AutocompleteLogic.js": ("tst_AutocompleteLogic",),
    "src/js/ListLogic.js": ("tst_ListLogic",),
    "src/js/editor": EDITOR,
    "src/js/list/StepCells.js": ("tst_PatientTableRow",),
    "src/js/pathway": ("tst_ReminderDates", "tst_WaitingDay", "tst_StoreWriting"),
    "src/js": STORE,
    "src/platform/macupdatechecker.cpp": ("tst_MacUpdateChecker",),
    "src/platform/prepareprocess_linux.cpp": ("tst_PrepareProcess", "tst_StartUp"),
    "src/platform/propertylist_linux.cpp": ("tst_PropertyList", "tst_Autorun"),
    "src/platform/settingslock.cpp": ("tst_SettingsLock",),
    "src/platform": AUTORUN,
    "src/qml/ActionButton.qml": CONTROLS,
    "src/qml/editor/AnswerBox.qml": ("tst_Question", *CONTROLS, "tst_DetailPathway"),
    "src/qml/Autocomplete.qml": ("tst_Autocomplete", *CONTROLS),
    "src/qml/ButtonSMS.qml": (*CONTROLS, "tst_DetailPathway"),
    "src/qml/ContactPopup.qml": ("tst_ContactPopup",),
    "src/qml/contact": ("tst_ContactPopup",),
    "src/qml/TabPopup.qml": ("tst_ContactPopup", *CONTROLS),
    "src/qml/PopupContainer.qml": ("tst_ContactPopup", "tst_ListPopup"),
    "src/qml/Detail.qml": (*EDITOR, "tst_MainEditor", "tst_MainHeights"),
    "src/qml/NameStatus.qml": (*CONTROLS, "tst_MainEditor"),
    "src/qml/editor/Pathway.qml": (*EDITOR, "tst_MainHeights"),
    "src/qml/editor": EDITOR,
    "src/qml/SMSSend.qml": (*CONTROLS, "tst_DetailPathway", "tst_DetailAnswers"),
    "src/qml/StepButton.qml": (*CONTROLS, "tst_Question", "tst_DetailPathway"),
    "src/qml/Question.qml": ("tst_Question", "tst_DetailPathway", "tst_DetailAnswers", "tst_DetailKeyboard"),
    "src/qml/PatientsItem.qml": ("tst_PatientsResults", *CONTROLS, "tst_MainSearch"),
    "src/qml/PatientsResults.qml": ("tst_PatientsResults", "tst_MainSearch", "tst_MainAnimations", "tst_MainKeyboard"),
    "src/qml/list/WaitingBadge.qml": (*CONTROLS, "tst_ListPopupLook"),
    "src/qml/Container.qml": MAIN,
    "src/qml/main": MAIN,
    "src/qml/main.qml": MAIN,
    "src/qml/base/DeferredLoader.qml": ("tst_Controls", "tst_ListPopup", *MAIN),
    "src/qml/base": SHARED,
    "src/qml/style": SHARED,
    "src/qml": LIST,
    "src/restore/main.cpp": ("desktop_restore",),
    "src/restore": RESTORE,
    "src/service/macversion.h": ("tst_MacVersion",),
    "src/service/userposition.cpp": ("tst_ServicePlacement", "tst_ServiceWindows"),
    "src/service/widgetservice_desktop.cpp": (*SERVICE, "desktop_quitting"),
    "src/service/widgetservice_printing.cpp": ("tst_ServiceStepCells", "tst_ServiceReport", "tst_ServicePrinting"),
    "src/service/widgetservice_statistics.cpp": (
        "tst_ServiceConstruction", "tst_ServiceFirstStart", "tst_ServiceStatistics", "tst_ServiceUpload"),
    "src/service/widgetservice_tray.cpp": (
        "tst_ServiceConstruction", "tst_ServiceBadge", "tst_ServiceMessages", "tst_ServiceTray"),
    "src/service/widgetservice_views.cpp": (
        "tst_ServiceConstruction", "tst_ServicePlacement", "tst_ServiceViews", "tst_ServiceWindows",
        "tst_ServiceConnections", "tst_ServiceAbout", "tst_ServiceStatistics"),
    "src/service": SERVICE,
}

# The targets of tests whose target has another name.
TARGETS = {"desktop_restore": ("tandry", "tandry-restore"), "desktop_quitting": ("tandry",),
           "desktop_clock_jumps": ("tandry",)} | dict.fromkeys(
    (*EDITOR, *LIST, *MAIN, *CONTROLS, "tst_Autocomplete", "tst_ContactPopup", "tst_LargerTexts",
     "tst_LargerTexts_144", "tst_Looks", "tst_PatientsResults", "tst_Question"), ("tandry_document_tests",))


def changed_files(root, plan):
    """The files to mutate: those of the plan and all sources below its folders, except the macOS sources."""
    return {
        path.relative_to(root).as_posix(): tests_of(path.relative_to(root).as_posix(), plan)
        for place in plan for path in sorted([root / place] if (root / place).is_file() else (root / place).rglob("*"))
        if path.suffix in (".js", ".qml", ".cpp", ".h") and not path.stem.endswith("_mac")}


def tests_of(path, plan):
    """The tests of this file in the plan, or of its nearest parent folder."""
    place = path
    while place not in plan:
        place = place.rpartition("/")[0]
    documents = DOCUMENTS if path.endswith(".qml") else ()
    return tuple(dict.fromkeys((*plan[place], *documents)))
