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

    // columns of the patient table as fractions of its width; each is preceded by the gap
    readonly property real columnGap: 0.015
    readonly property real tickColumn: 0.03
    readonly property real nameColumn: 0.19
    readonly property real firstAppointmentColumn: 0.09
    readonly property real stepColumn: 0.07
    readonly property real phoneColumn: 0.09
    readonly property real smsColumn: 0.09

    // what answers the mouse in a row: the tick at the left, the patient up to what lies right of it
    readonly property real tickZone: 0.05
    readonly property real rightOfOpenZone: 0.13
    readonly property real phoneBeyondOpenZone: 0.027

    readonly property int slideDuration: 600
    readonly property int unfoldDuration: 300
}
