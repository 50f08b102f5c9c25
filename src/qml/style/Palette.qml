pragma Singleton
import QtQuick 2.2

// Every colour of the windows, named after what it is for.
QtObject {
    readonly property color transparent: "#00000000"
    readonly property color white: "#ffffff"

    // frames
    readonly property color frame: "#002457"
    readonly property color frameBorder: "#ffffff"
    readonly property color frameTitle: "#7c879c"
    readonly property color content: "#f9f9f9"
    readonly property color popupContent: "#f0f0f0"
    readonly property color focusOnLight: "#2f6fd0"
    readonly property color focusOnDark: "#ffffff"

    // scroll bars
    readonly property color scrollHandle: "#405c83"
    readonly property color scrollHandleMark: "#556e91"
    readonly property color scrollGroove: "#8192ac"

    // search bar
    readonly property color searchBar: "#8192ad"
    readonly property color searchButton: "#405b82"
    readonly property color searchPlaceholder: "#cbd2dd"

    // rows of the main widget
    readonly property color row: "#f0f0f0"
    readonly property color rowHovered: "#dfdfdf"
    readonly property color rowText: "#002459"

    // name bar
    readonly property color nameBar: "#66c2b7"
    readonly property color namePlaceholder: "#befff8"

    // patient editor
    readonly property color editorBlock: "#f0f0f0"
    readonly property color editorLabel: "#405a82"
    readonly property color editorText: "#405b82"
    readonly property color editorPlaceholder: "#a5b1c3"
    readonly property color questionBar: "#002559"
    readonly property color questionText: "#405a82"
    readonly property color shortYes: "#67c265"
    readonly property color shortNo: "#e12c0d"
    readonly property color tickYes: "#68c268"
    readonly property color tickNo: "#e02b0e"
    readonly property color answerText: "#002458"
    readonly property color tickBox: "#ffffff"
    readonly property color tickBoxBorder: "#c4cedc"

    // action buttons
    readonly property color action: "#55b03b"
    readonly property color actionHovered: "#7abb67"
    readonly property color actionDisabled: "#a9a9a9"
    readonly property color save: "#68c268"
    readonly property color saveHovered: "#4ac74a"
    readonly property color remove: "#f04014"
    readonly property color removeHovered: "#da1f0a"
    readonly property color cancel: "#7d7d7d"
    readonly property color cancelHovered: "#5b5b5b"

    // SMS bar
    readonly property color sms: "#6989ba"
    readonly property color smsHovered: "#4f79b8"

    // tabs of the patient list
    readonly property color tab: "#c8dcfc"
    readonly property color tabHovered: "#b0ccfd"
    readonly property color tabChecked: "#f9f9f9"
    readonly property color tabText: "#002357"
    readonly property color waitingTab: "#fcbbc3"
    readonly property color waitingTabHovered: "#ffb4bd"
    readonly property color waitingTabChecked: "#f8f8f8"

    // patient table
    readonly property color tableHeader: "#6888ba"
    readonly property color tableBackground: "#c0cded"
    readonly property color tableRow: "#e5e8ed"
    readonly property color tablePairRow: "#f9f9f9"
    readonly property color tableRowHovered: "#d8e0ed"
    readonly property color waitingTableHeader: "#e44d5f"
    readonly property color waitingTableBackground: "#f9f9f9"
    readonly property color waitingTableRow: "#fcdfdf"
    readonly property color waitingTablePairRow: "#ffeff1"
    readonly property color waitingTableRowHovered: "#ffcccc"
    readonly property color tableText: "#002357"
    readonly property color tableEmphasis: "#e50000"
    readonly property color tickRow: "#6888b9"
    readonly property color tickAll: "#95a3b8"
    readonly property color tableFooter: "#009cff"
    readonly property color printBar: "#002457"

    // SMS button of a row
    readonly property color smsButton: "#ffffff"
    readonly property color smsButtonText: "#002357"

    // contact popup
    readonly property color contactHeading: "#002257"
    readonly property color contactText: "#405b82"
}
