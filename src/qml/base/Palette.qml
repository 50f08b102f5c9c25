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
}
