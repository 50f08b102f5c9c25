pragma Singleton
import QtQuick 2.2

// Sizes in logical pixels and durations in milliseconds that more than one document shares.
QtObject {
    readonly property string fontFamily: "Arial"

    readonly property int widgetWidth: 275
    readonly property int headerHeight: 42
    readonly property int barHeight: 53
    readonly property int rowHeight: 38
    readonly property int buttonHeight: 38
    readonly property int footerBorder: 5
    readonly property int tickBoxSize: 18

    readonly property int slideDuration: 600
    readonly property int unfoldDuration: 300
}
