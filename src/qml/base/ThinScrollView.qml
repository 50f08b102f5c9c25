import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import "../style"

// A scroll view with a thin bar that is always shown and has no arrows. A notch of the wheel scrolls three rows.
ScrollView {
    /// The height of a row.
    property real rowHeight: Metrics.rowHeight

    __wheelAreaScrollSpeed: 3 * rowHeight
    style: ScrollViewStyle {
        decrementControl: null
        handle: Rectangle {
            color: Palette.scrollHandle
            implicitHeight: 4
            implicitWidth: 4
            objectName: "handle"

            Rectangle {
                anchors.centerIn: parent
                color: Palette.scrollHandleMark
                height: 2
                objectName: "handleMark"
                width: 2
            }
        }
        handleOverlap: 1
        incrementControl: null
        minimumHandleLength: 0
        padding {
            bottom: 0
            left: 0
            right: 0
            top: 0
        }
        scrollBarBackground: Rectangle {
            color: Palette.scrollGroove
            implicitHeight: 4
            implicitWidth: 4
            objectName: "groove"
        }
        transientScrollBars: false
    }
}
