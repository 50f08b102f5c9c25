import QtQuick 2.2
import "base"
import "style"
import "../js/StepCells.js" as StepCells

// One patient of the table: tick, cells and the SMS button.
Rectangle {
    id: root

    property string iid
    property string iname
    property string icreated
    property string iphone
    property int itest: 0
    property int irdv1: 0
    property int iconfirmation: 0
    property int irdv2: 0
    property int irdv3: 0
    property var itest_date: null
    property var idate1: null
    property var iconfirmation_date: null
    property var idate2: null
    property var idate3: null
    property bool ichecked: false
    property alias exchecked: tick.checked
    property bool pair: false
    property bool red: false
    property color rowColor: Palette.tableRow
    property color pairRowColor: Palette.tablePairRow
    property color rowColorHovered: Palette.tableRowHovered
    property color pairRowColorHovered: Palette.tableRowHovered
    /// Whether Tab stops in this row; a list of rows leaves one in the chain and goes from row to row itself.
    property bool reachable: true
    property bool hasPrevious: false
    property bool hasNext: false

    signal clicked
    signal openPatient(string iid)
    /// The keyboard goes on in another row, so many rows further down, at the part of that number.
    signal rowWanted(real offset, int part)

    /// Gives the keyboard to a part of the row: 0 the tick, 1 the patient, 2 the SMS button.
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
        var offset = rowsFor(event.key);

        event.accepted = offset !== 0;
        if (offset !== 0) {
            rowWanted(offset, focusedPart());
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

    function goOn(event, possible, offset, part) {
        event.accepted = possible;
        if (possible) {
            rowWanted(offset, part);
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

        activeFocusOnTab: root.reachable || activeFocus
        name: qsTr("Sélectionner %1").arg(root.iname)
        tickColor: Palette.tickRow

        Keys.onBacktabPressed: root.goOn(event, root.hasPrevious, -1, 2)
    }

    Clickable {
        id: openZone

        activeFocusOnTab: root.reachable || activeFocus
        anchors {
            left: tick.right
            right: parent.right
            rightMargin: root.width * Metrics.rightOfOpenZone
        }
        // Round the phone number, which reaches beyond the zone.
        focusRing.anchors.rightMargin: -root.width * Metrics.phoneBeyondOpenZone
        height: parent.height
        name: qsTr("Ouvrir %1").arg(root.iname)

        onTriggered: root.open()
    }

    Row {
        spacing: root.width * Metrics.columnGap
        x: spacing

        Item {
            height: 1
            width: root.width * Metrics.tickColumn
        }
        TableCell {
            column: Columns.patientName
            font.bold: true
            growth: 1.4
            horizontalAlignment: Text.AlignLeft
            points: 9
            text: root.iname
            width: root.width * Metrics.nameColumn
        }
        TableCell {
            column: Columns.firstAppointment
            growth: 1.3
            text: root.icreated
            width: root.width * Metrics.firstAppointmentColumn
        }
        StepCell {
            column: Columns.test
            emphasised: StepCells.isTestEmphasised(root.itest_date)
            objectName: "test"
            red: root.red
            text: StepCells.testText(root.itest_date, root.itest)
            width: root.width * Metrics.stepColumn
        }
        StepCell {
            id: workUp

            column: Columns.workUp
            emphasised: StepCells.isWorkUpEmphasised(root.idate1, root.irdv1, text)
            objectName: "rdv1"
            red: root.red
            text: StepCells.workUpText(root.idate1, root.irdv1, root.itest_date, root.itest)
            width: root.width * Metrics.stepColumn
        }
        StepCell {
            id: allergy

            column: Columns.allergy
            emphasised: StepCells.isAllergyEmphasised(text)
            objectName: "confirmation"
            red: root.red
            text: StepCells.allergyText(root.iconfirmation_date, root.iconfirmation, workUp.text)
            width: root.width * Metrics.stepColumn
        }
        StepCell {
            id: firstIntake

            column: Columns.firstIntake
            emphasised: StepCells.isAppointmentEmphasised(root.idate2, root.irdv2)
            objectName: "rdv2"
            red: root.red
            text: StepCells.appointmentText(root.idate2, root.irdv2, allergy.text)
            width: root.width * Metrics.stepColumn
        }
        StepCell {
            column: Columns.review
            emphasised: StepCells.isAppointmentEmphasised(root.idate3, root.irdv3)
            objectName: "rdv3"
            red: root.red
            text: StepCells.appointmentText(root.idate3, root.irdv3, firstIntake.text)
            width: root.width * Metrics.stepColumn
        }
        Item {
            height: Metrics.tableRowHeight
            objectName: "phoneColumn"
            width: root.width * Metrics.phoneColumn

            // A number of full length is a little wider than its column: it may use the gaps beside it.
            TableCell {
                anchors.centerIn: parent
                column: Columns.phone
                growth: 1.1
                text: root.iphone
                width: parent.width + root.width * Metrics.columnGap
            }
        }
        ButtonSMS {
            id: smsButton

            anchors.verticalCenter: parent.verticalCenter
            reachable: root.reachable
            width: root.width * Metrics.smsColumn

            Keys.onTabPressed: root.goOn(event, root.hasNext, 1, 0)
        }
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
