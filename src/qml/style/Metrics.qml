pragma Singleton
import QtQuick 2.2

// Sizes in logical pixels and durations in milliseconds that documents share or that only make sense together.
QtObject {
    readonly property string fontFamily: "Arial"

    // How much larger than drawn the user's system asks texts to be: 1 at 72 dots per inch, 2 at 144.
    readonly property real textScale: Qt.font({ pointSize: 72 }).pixelSize / 72

    readonly property int widgetWidth: 275
    readonly property int headerHeight: 42
    readonly property int barHeight: 53
    readonly property int rowHeight: 38
    readonly property int buttonHeight: 38
    readonly property int footerBorder: 5
    readonly property int tickBoxSize: 18

    // patient list
    readonly property int tabHeight: 42
    readonly property int tableRowHeight: 42
    readonly property int tableFooterHeight: 42
    readonly property int tableIconSize: 18

    readonly property int slideDuration: 600
    readonly property int expandDuration: 300
}
