import QtQuick 2.2
import QtQuick.Controls 1.1
import "base"
import "style"

// The frame of the main widget: header with its buttons and menu, and the area that holds the panes.
WindowFrame {
    id: root

    default property alias content: contentArea.data
    property alias header: headerExtra.data
    property int internalContentHeight: 538
    property int internalContentInternalHeight: 538
    property int internalHeight: 174
    property alias internalState: root.state
    property alias launchOnStart: launchItem.checked

    signal enableDragging
    signal openContact
    signal openList
    signal close
    signal hide
    signal about

    /// Opens the menu where the mouse is.
    function openContextMenu() {
        contextMenu.popup();
    }

    /// Opens the menu below the header, wherever the mouse is.
    function openContextMenuByKey() {
        contextMenu.__popup(Qt.rect(10, Metrics.headerHeight, 0, 0), -1);
    }

    dragZone.width: buttons.x
    height: 174
    state: "base"
    width: Metrics.widgetWidth

    onContextMenuRequested: openContextMenu()
    onDragStarted: enableDragging()

    Behavior on height {
        SmoothedAnimation {
            duration: Metrics.slideDuration
            easing.type: Easing.InOutQuad
            velocity: -1
        }
    }

    Menu {
        id: contextMenu

        MenuItem {
            id: launchItem

            checkable: true
            text: qsTr("Lancer au démarrage")
        }
        MenuItem {
            text: qsTr("A propos")

            onTriggered: root.about()
        }
        MenuItem {
            text: qsTr("Quitter")

            onTriggered: root.close()
        }
    }

    Row {
        id: headerExtra

        anchors {
            left: root.titleRight
            leftMargin: 10
        }
        height: Metrics.headerHeight
    }

    Row {
        id: buttons

        anchors {
            right: parent.right
            rightMargin: 12
        }
        height: Metrics.headerHeight
        spacing: 5

        ImageButton {
            anchors.verticalCenter: parent.verticalCenter
            height: 16
            image: "../images/contact-button.png"
            tooltip: qsTr("Contacts VESK")
            width: 16

            onClicked: root.openContact()
        }
        ImageButton {
            anchors.verticalCenter: parent.verticalCenter
            height: 16
            image: "../images/table.png"
            tooltip: qsTr("Liste de tous les patients")
            width: 16

            onClicked: root.openList()
        }
        Clickable {
            id: cross

            acceptedButtons: Qt.LeftButton | Qt.RightButton
            anchors.verticalCenter: parent.verticalCenter
            cursorShape: Qt.ArrowCursor
            focusColor: Palette.focusOnDark
            height: 16
            name: qsTr("Fermer")
            width: 16

            holdable: true

            onPressAndHold: root.openContextMenu()
            onRightClicked: root.openContextMenu()
            onTriggered: root.hide()

            Image {
                anchors.centerIn: parent
                opacity: cross.pressed ? 0.5 : cross.containsMouse ? 0.66 : 1
                source: "../images/cross.png"
            }
        }
    }

    Rectangle {
        id: contentArea

        anchors {
            bottom: parent.bottom
            bottomMargin: Metrics.footerBorder
            left: parent.left
            leftMargin: 1
            right: parent.right
            rightMargin: 1
            top: parent.top
            topMargin: Metrics.headerHeight
        }
        clip: true
        color: Palette.content
        objectName: "contentArea"
    }

    states: [
        State {
            name: "base"

            PropertyChanges {
                target: root
                height: 174
                internalHeight: 174
            }
        },
        State {
            name: "results"

            PropertyChanges {
                target: root
                height: 326
                internalHeight: 326
            }
        },
        State {
            name: "detail"

            PropertyChanges {
                target: root
                height: root.internalContentHeight + 100
                internalHeight: root.internalContentInternalHeight + 100
            }
        }
    ]
}
