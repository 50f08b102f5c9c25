import QtQuick 2.2
import "base"
import "style"

// The header of the patient table: its default content is the box at the left, then come the titles of the columns.
Rectangle {
    id: root

    default property alias selectAll: selectAllZone.data

    height: Metrics.barHeight

    DeferredLoader {
        height: parent.height
        x: root.width * Metrics.columnGap

        onShownChanged: need()

        sourceComponent: Row {
            spacing: root.width * Metrics.columnGap

            Item {
                height: 1
                width: root.width * Metrics.tickColumn
            }
            TableTitle {
                text: Columns.patientName
                width: root.width * Metrics.nameColumn
            }
            TableTitle {
                text: Columns.firstAppointment
                width: root.width * Metrics.firstAppointmentColumn
            }
            TableTitle {
                text: Columns.test
                width: root.width * Metrics.stepColumn
            }
            TableTitle {
                text: Columns.workUp
                width: root.width * Metrics.stepColumn
            }
            TableTitle {
                text: Columns.allergy
                width: root.width * Metrics.stepColumn
            }
            TableTitle {
                text: Columns.firstIntake
                width: root.width * Metrics.stepColumn
            }
            TableTitle {
                text: Columns.review
                width: root.width * Metrics.stepColumn
            }
            TableTitle {
                text: Columns.phone
                width: root.width * Metrics.phoneColumn
            }
            TableTitle {
                text: Columns.sms
                width: root.width * Metrics.smsColumn
            }
        }
    }

    Item {
        id: selectAllZone

        anchors.fill: parent
    }
}
