import QtQuick 2.2
import "../base"
import "../style"

// The header of the patient table: the titles of the columns and, as its default content, the box at the left.
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
