import QtQuick 2.2

// Text of the windows. Plain unless said otherwise: a patient's name is data, not markup.
Text {
    property real points: 9

    color: Palette.rowText
    font.family: Metrics.fontFamily
    font.pointSize: points * point_factor
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
