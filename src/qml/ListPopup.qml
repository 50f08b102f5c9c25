import QtQuick 2.2
import "base"

// The patient list popup.
Rectangle {
    id: root

    property int number: 0
    property var printModel: ({})

    signal closeList
    signal openPatient(string id)
    signal enableDragging
    signal needRefresh
    signal removedPatients(variant list)
    signal requestPrint(string title, variant list)

    function refresh() {
    }

    color: Palette.transparent
    height: 650
    width: 800

    PopupContainer {
        anchors.fill: parent
        noFooterBorder: true
        title: qsTr("Tandry")

        onClose: root.closeList()
        onEnableDragging: root.enableDragging()
    }
}
