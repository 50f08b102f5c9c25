pragma Singleton
import QtQuick 2.2

// Sizes in logical pixels and durations in milliseconds that documents share or that only make sense together.
QtObject {
    readonly property string fontFamily: "Arial"

    // The text scale that the user's system requests: 1 at 72 dots per inch, 2 at 144.
    readonly property real textScale: Qt.font({ pointSize: 72 }).pixelSize / 72

    readonly property int widgetWidth: 275
    readonly property int headerHeight: 42
    readonly property int barHeight: 53
    readonly property int rowHeight: 38
    readonly property int buttonHeight: 38
    readonly property int footerBorder: 5
    readonly property int tickBoxSize: 18

    // main window: with the search alone, with four results, and what its frame adds to the editor
    readonly property int searchHeight: 174
    readonly property int resultsHeight: 326
    readonly property int heightAroundEditor: headerHeight + barHeight + footerBorder

    // patient editor: before it is loaded; its fields without and with the two buttons; a question
    readonly property int initialEditorHeight: 538
    readonly property int fieldsHeight: 100
    readonly property int fieldsAndButtonsHeight: 138
    readonly property int questionHeight: 60
    readonly property int expandedQuestionHeight: 100

    // patient list
    readonly property int tabHeight: 42
    readonly property int tableRowHeight: 42
    readonly property int tableFooterHeight: 42

    // animations
    readonly property int slideDuration: 600
    readonly property int expandDuration: 300
}
