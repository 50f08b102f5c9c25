import QtQuick 2.2
import ".."
import "../base"
import "../style"

// The scrolling rows of the patient list, in the colours of the waiting patients or of all.
Rectangle {
    id: root

    property alias patients: list.model
    property string name
    property bool waiting: false

    signal openPatient(string iid)
    signal ticked(int index, bool state)

    /// Scrolls to the first row and makes it current.
    function showTop() {
        list.currentIndex = 0;
        list.positionViewAtBeginning();
    }

    /// Calls load(), which replaces the rows, and keeps the scroll position and the focus.
    function reload(load) {
        var top = list.indexAt(0, list.contentY);
        var current = list.currentIndex;
        var part = list.activeFocus && list.currentItem ? list.currentItem.focusedPart() : -1;

        load();
        list.forceLayout();
        list.currentIndex = Math.min(Math.max(0, current), list.count - 1);
        if (top >= 0) {
            list.positionViewAtIndex(Math.min(top, list.count - 1), ListView.Beginning);
        }
        if (part >= 0 && list.currentItem) {
            list.currentItem.focusPart(part);
        }
    }

    color: waiting ? Palette.waitingTableBackground : Palette.tableBackground

    ThinScrollView {
        anchors.fill: parent
        horizontalScrollBarPolicy: Qt.ScrollBarAlwaysOff
        rowHeight: Metrics.tableRowHeight
        verticalScrollBarPolicy: Qt.ScrollBarAlwaysOn

        ListView {
            id: list

            /// Focuses a part of the row at that index, or of the nearest row.
            function focusRow(index, part) {
                currentIndex = Math.max(0, Math.min(count - 1, index));
                positionViewAtIndex(currentIndex, ListView.Contain);
                currentItem.focusPart(part);
            }

            delegate: PatientTableRow {
                hasNext: index < list.count - 1
                hasPrevious: index > 0
                pair: Math.round(index / 2) === index / 2
                pairRowColor: root.waiting ? Palette.waitingTablePairRow : Palette.tablePairRow
                pairRowColorHovered: root.waiting ? Palette.waitingTableRowHovered : Palette.tableRowHovered
                record: model
                red: root.waiting
                rowColor: root.waiting ? Palette.waitingTableRow : Palette.tableRow
                rowColorHovered: root.waiting ? Palette.waitingTableRowHovered : Palette.tableRowHovered
                tabStop: ListView.isCurrentItem
                // As wide as the header: the scroll bar lies over the margin right of the last column.
                width: root.width

                onExcheckedChanged: root.ticked(index, exchecked)
                onFocusMoved: list.focusRow(index + rows, part)
                onOpenPatient: root.openPatient(iid)
            }
            highlightFollowsCurrentItem: false
        }

        Accessible.name: root.name
        Accessible.role: Accessible.List
    }
}
