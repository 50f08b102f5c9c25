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
                height: Metrics.tableIconSize
                source: "../../images/printer.png"
                width: Metrics.tableIconSize
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

    Clickable {
        id: removeButton

        anchors.right: parent.right
        focusColor: Palette.focusOnDark
        height: parent.height
        name: qsTr("Supprimer les patients sélectionnés")
        width: height

        onTriggered: root.removeClicked()

        Image {
            anchors.centerIn: parent
            height: Metrics.tableIconSize
            opacity: removeButton.containsMouse ? 0.6 : 1
            source: "../../images/trash.png"
            width: Metrics.tableIconSize
        }
    }
}
