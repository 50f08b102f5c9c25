import QtQuick 2.2
import "../base"
import "../style"

// The number of waiting patients on its round badge. It keeps its place when there is none.
Image {
    id: root

    property int number: 0

    height: 24
    opacity: number === 0 ? 0 : 1
    source: "../../images/counter-big.png"
    width: 24

    WidgetText {
        anchors.centerIn: parent
        color: Palette.white
        font.bold: true
        maximumTextScale: 1.2
        text: root.number

        Accessible.ignored: root.number === 0
        Accessible.name: root.number < 2 ? qsTr("%1 patient en attente").arg(root.number)
                                         : qsTr("%1 patients en attente").arg(root.number)
        Accessible.role: Accessible.StaticText
    }
}
