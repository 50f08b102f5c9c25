import QtQuick 2.2
import "../base"
import "../style"

// The header of the patient table: its default content is the box at the left, then come the titles of the columns.
Rectangle {
    id: root

    default property alias selectAll: selectAllZone.data

    height: Metrics.barHeight

    DeferredLoader {
        height: parent.height

        onShownChanged: loadNow()

        sourceComponent: Item {
            Repeater {
                model: Columns.all

                TableTitle {
                    column: modelData
                    tableWidth: root.width
                }
            }
        }
    }

    Item {
        id: selectAllZone

        anchors.fill: parent
    }
}
