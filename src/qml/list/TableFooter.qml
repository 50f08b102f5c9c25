import QtQuick 2.2
import "../base"
import "../style"

// The foot of the patient list: the bar that prints it and the button that deletes the ticked patients.
Rectangle {
    id: root

    signal printClicked
    signal removeClicked

    color: Palette.tableFooter
    height: Metrics.tableFooterHeight

    Rectangle {
        anchors {
            bottom: parent.bottom
            left: parent.left
            right: removeButton.left
            top: parent.top
            topMargin: 2
        }
        color: Palette.printBar
        objectName: "printBar"

        Row {
            anchors.centerIn: parent
            objectName: "printGroup"
            opacity: printButton.containsMouse ? 0.6 : 1
            spacing: 5

            Image {
                anchors.verticalCenter: parent.verticalCenter
                source: "../../images/printer.png"
            }
            WidgetText {
                anchors.verticalCenter: parent.verticalCenter
                color: Palette.white
                font.bold: true
                points: 11
                text: qsTr("Imprimer")
            }
        }

        Clickable {
            id: printButton

            anchors.fill: parent
            focusColor: Palette.focusOnDark
            name: qsTr("Imprimer")

            onTriggered: root.printClicked()
        }
    }

    ImageButton {
        id: removeButton

        anchors.right: parent.right
        height: parent.height
        hoveredOpacity: 0.6
        image: "../../images/trash.png"
        name: qsTr("Supprimer les patients sélectionnés")
        width: height

        onTriggered: root.removeClicked()
    }
}
