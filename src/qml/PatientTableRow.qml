import QtQuick 2.2
import "base"
import "list"
import "style"

// One patient of the table: tick, cells and the SMS button.
Rectangle {
    id: root

    /// The row of the table's model; without one, the properties that follow are set one by one.
    property var record: null
    property string iid: record ? record.id : ""
    property string iname: record ? record.name : ""
    property string icreated: record ? record.created_format : ""
    property string iphone: record ? record.phone : ""
    property int itest: record ? record.test : 0
    property int irdv1: record ? record.rdv1 : 0
    property int iconfirmation: record ? record.confirmation : 0
    property int irdv2: record ? record.rdv2 : 0
    property int irdv3: record ? record.rdv3 : 0
    property var itest_date: record ? record.test_date : null
    property var idate1: record ? record.date1 : null
    property var iconfirmation_date: record ? record.confirmation_date : null
    property var idate2: record ? record.date2 : null
    property var idate3: record ? record.date3 : null
    property bool ichecked: record ? record.checked : false
    property alias exchecked: tick.checked
    /// Whether the index of the row is even.
    property bool pair: false
    /// Whether emphasised cells are red.
    property bool red: false
    property color rowColor: Palette.tableRow
    property color pairRowColor: Palette.tablePairRow
    property color rowColorHovered: Palette.tableRowHovered
    property color pairRowColorHovered: Palette.tableRowHovered
    /// Whether Tab stops in this row. In a table it stops in one row, and the arrow keys lead to the others.
    property bool tabStop: true
    property bool hasPrevious: false
    property bool hasNext: false

    signal clicked
    signal openPatient(string iid)
    /// The focus moves this many rows down, to the part of that number.
    signal focusMoved(real rows, int part)

    /// Focuses a part of the row: 0 the tick, 1 the patient, 2 the SMS button.
    function focusPart(part) {
        if (part === 0) {
            tick.forceActiveFocus();
        } else if (part === 1) {
            openZone.forceActiveFocus();
        } else {
            smsButton.focusButton();
        }
    }

    function focusedPart() {
        return tick.activeFocus ? 0 : openZone.activeFocus ? 1 : 2;
    }

    function moveByKey(event) {
        var rows = rowsFor(event.key);

        event.accepted = rows !== 0;
        if (rows !== 0) {
            focusMoved(rows, focusedPart());
        }
    }

    function rowsFor(key) {
        switch (key) {
        case Qt.Key_Up:
            return -1;
        case Qt.Key_Down:
            return 1;
        case Qt.Key_PageUp:
            return -10;
        case Qt.Key_PageDown:
            return 10;
        case Qt.Key_Home:
            return -Infinity;
        case Qt.Key_End:
            return Infinity;
        default:
            return 0;
        }
    }

    function moveByTab(event, possible, rows, part) {
        event.accepted = possible;
        if (possible) {
            focusMoved(rows, part);
        }
    }

    function open() {
        clicked();
        openPatient(iid);
    }

    color: pair ? pairRowColor : rowColor
    height: Metrics.tableRowHeight
    state: tick.containsMouse || openZone.containsMouse ? "hovered" : "base"
    width: 798

    onIcheckedChanged: exchecked = ichecked
    Keys.onPressed: moveByKey(event)

    TableTick {
        id: tick

        activeFocusOnTab: root.tabStop || activeFocus
        name: qsTr("Sélectionner %1").arg(root.iname)
        tickColor: Palette.tickRow

        Keys.onBacktabPressed: root.moveByTab(event, root.hasPrevious, -1, 2)
    }

    Clickable {
        id: openZone

        activeFocusOnTab: root.tabStop || activeFocus
        anchors {
            left: tick.right
            right: parent.right
            rightMargin: root.width * (1 - Columns.openZoneEnd)
        }
        // Around the phone number, which is wider than the zone.
        focusRing.anchors.rightMargin: -root.width * Columns.phoneBeyondOpenZone
        height: parent.height
        name: qsTr("Ouvrir %1").arg(root.iname)

        onTriggered: root.open()
    }

    Repeater {
        model: Columns.ofTexts

        TableCell {
            column: modelData
            row: root
        }
    }

    ButtonSMS {
        id: smsButton

        anchors.verticalCenter: parent.verticalCenter
        tabStop: root.tabStop
        width: root.width * Columns.sms.width
        x: root.width * Columns.sms.left

        Keys.onTabPressed: root.moveByTab(event, root.hasNext, 1, 0)
    }

    states: [
        State {
            name: "base"
        },
        State {
            name: "hovered"

            PropertyChanges {
                target: root
                color: root.pair ? root.pairRowColorHovered : root.rowColorHovered
            }
        }
    ]
}
