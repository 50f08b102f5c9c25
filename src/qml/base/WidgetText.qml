import QtQuick 2.2
import "../style"

// Text of the windows. Plain unless said otherwise: a patient's name is data, not markup.
Text {
    property real points: 9
    /// How often its drawn size the box has room for, where the user's system asks for larger texts.
    property real growth: 2

    color: Palette.rowText
    font.family: Metrics.fontFamily
    font.pointSize: points * point_factor * Math.min(1, growth / Metrics.textScale)
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
