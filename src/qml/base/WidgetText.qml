import QtQuick 2.2
import "../style"

// Text of the windows. Plain by default: what a user has typed is data, not markup.
Text {
    property real points: 9
    /// The largest scale that fits its box, where the user's system wants larger texts.
    property real maximumTextScale: 2

    color: Palette.rowText
    font.family: Metrics.fontFamily
    font.pointSize: points * point_factor * Math.min(1, maximumTextScale / Metrics.textScale)
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
