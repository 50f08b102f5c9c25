import QtQuick 2.2
import "../base"
import "../style"

// One line of the contact popup.
WidgetText {
    color: Palette.contactText
    font.bold: true
    maximumTextScale: 1.2
    points: 10

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
