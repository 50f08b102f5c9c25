import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Window 2.2
import "base"
import "list"
import "style"
import "../js/Bdd.js" as Bdd
import "../js/ListLogic.js" as ListLogic

// The patient list popup: opens, ticks, deletes and prints the waiting patients or all of them.
Rectangle {
    id: root

    property int number: 0
    property var printModel: ({})
    readonly property bool waitingShown: waitingTab.checked
    readonly property bool shown: Window.visibility !== Window.Hidden

    signal closeList
    signal openPatient(string id)
    signal enableDragging
    signal needRefresh
    signal removedPatients(variant list)
    signal requestPrint(string title, variant list)

    /// Reads the waiting number and the patients of the current tab again.
    function refresh() {
        ListLogic.init();
        if (table.item) {
            table.item.reload(showTab);
        } else {
            showTab();
        }
    }

    function showTab() {
        if (waitingShown) {
            ListLogic.showWaiting();
        } else {
            ListLogic.showAll();
        }
    }

    function openTab(show) {
        show();
        if (table.item) {
            table.item.showTop();
        }
    }

    /// Prints every patient of the current tab, ticked or not.
    function printTab() {
        requestPrint(waitingShown ? qsTr("Liste des patients en attente") : qsTr("Liste de tous les patients"), printModel);
    }

    color: Palette.transparent
    height: 650
    width: 800

    // When the store did not open at the start, no list has been read.
    onShownChanged: if (shown && !Array.isArray(printModel)) needRefresh()
    Component.onCompleted: {
        Bdd.init(ListLogic.init);
        ListLogic.showWaiting();
    }

    PatientTableModel {
        id: model
    }

    ExclusiveGroup {
        id: tabs
    }

    PopupContainer {
        anchors.fill: parent
        noFooterBorder: true
        title: qsTr("Tandry")

        onClose: root.closeList()
        onEnableDragging: root.enableDragging()

        Item {
            id: tabBar

            height: Metrics.tabHeight
            width: parent.width

            TabPopup {
                id: waitingTab

                checked: true
                checkedColor: Palette.waitingTabChecked
                exclusiveGroup: tabs
                height: parent.height
                hoveredColor: Palette.waitingTabHovered
                normalColor: Palette.waitingTab
                objectName: "waitingTab"
                title: qsTr("Patients en attente")
                width: parent.width / 2

                onCheckedChanged: if (checked) root.openTab(ListLogic.showWaiting)

                WaitingBadge {
                    number: root.number
                }
            }
            TabPopup {
                id: allTab

                anchors {
                    left: waitingTab.right
                    right: parent.right
                }
                exclusiveGroup: tabs
                height: parent.height
                objectName: "allTab"
                title: qsTr("Liste de tous les patients")

                onCheckedChanged: if (checked) root.openTab(ListLogic.showAll)
            }
        }

        TableHeader {
            id: tableHeader

            anchors.top: tabBar.bottom
            color: root.waitingShown ? Palette.waitingTableHeader : Palette.tableHeader
            width: parent.width

            TableTick {
                id: checkboxAll

                focusColor: Palette.focusOnDark
                mark.outlined: false
                name: qsTr("Tout sélectionner")
                narrow: true
                tickColor: Palette.tickAll

                onCheckedChanged: ListLogic.checkAll(checked)
            }
        }

        DeferredLoader {
            id: table

            function connectTable() {
                item.patients = model;
                item.showTop();
                item.name = Qt.binding(function () { return root.waitingShown ? waitingTab.title : allTab.title; });
                item.waiting = Qt.binding(function () { return root.waitingShown; });
                item.openPatient.connect(root.openPatient);
                item.ticked.connect(ListLogic.checkIt);
            }

            anchors {
                bottom: tableFooter.top
                top: tableHeader.bottom
            }
            source: "list/PatientTable.qml"
            width: parent.width

            onShownChanged: loadNow()
            onLoaded: connectTable()
        }

        TableFooter {
            id: tableFooter

            anchors {
                bottom: parent.bottom
                bottomMargin: 1
            }
            width: parent.width

            onPrintClicked: root.printTab()
            onRemoveClicked: ListLogic.deleteChecked()
        }
    }
}
