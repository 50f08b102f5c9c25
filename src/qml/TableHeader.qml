import QtQuick 2.2
import "base"

// The header of the patient table: its default content is the box at the left, then come the titles of the columns.
Rectangle {
    id: root

    default property alias selectAll: selectAllZone.data

    height: Metrics.barHeight

    Row {
        height: parent.height
        spacing: root.width * Metrics.columnGap
        x: spacing

        Item {
            height: 1
            width: root.width * Metrics.tickColumn
        }
        TableTitle {
            text: qsTr("Nom du patient")
            width: root.width * Metrics.nameColumn
        }
        TableTitle {
            text: qsTr("Date<br/>1<sup>er</sup> RDV")
            width: root.width * Metrics.firstAppointmentColumn
        }
        TableTitle {
            text: qsTr("Tests<br/>cutanés")
            width: root.width * Metrics.stepColumn
        }
        TableTitle {
            text: qsTr("RDV bilan<br/>allergo.")
            width: root.width * Metrics.stepColumn
        }
        TableTitle {
            text: qsTr("Allergie<br/>confirmée")
            width: root.width * Metrics.stepColumn
        }
        TableTitle {
            text: qsTr("RDV<br/>1<sup>ère</sup> prise")
            width: root.width * Metrics.stepColumn
        }
        TableTitle {
            text: qsTr("RDV bilan<br/>fin de saison")
            width: root.width * Metrics.stepColumn
        }
        TableTitle {
            text: qsTr("Téléphone")
            width: root.width * Metrics.phoneColumn
        }
        TableTitle {
            text: qsTr("Rappel SMS")
            width: root.width * Metrics.smsColumn
        }
    }

    Item {
        id: selectAllZone

        anchors.fill: parent
    }
}
