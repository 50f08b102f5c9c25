import QtQuick 2.2
import "../style"

// Text of the windows. Plain by default: what a user has typed is data, not markup.
Text {
    property real points: 9
    /// The largest text scale at which the text still fits its box: a larger scale of the system is capped to it.
    property real maximumTextScale: 2

    color: Palette.rowText
    font.family: Metrics.fontFamily
    font.pointSize: points * point_factor * Math.min(1, maximumTextScale / Metrics.textScale)
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
