import QtQuick 2.2
import "base"
import "main"
import "style"

// The frame of the main widget: header with its buttons and menu, and the area that holds the panes.
WindowFrame {
    id: root

    default property alias content: contentArea.data
    property alias header: headerExtra.data
    property int internalContentHeight: Metrics.initialEditorHeight
    property int internalContentInternalHeight: Metrics.initialEditorHeight
    property int internalHeight: Metrics.searchHeight
    property alias internalState: root.state
    property alias launchOnStart: contextMenu.launchOnStart

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

    /// Opens the menu below the header, wherever the mouse is, if the key is one that opens menus.
    function openContextMenuByKey(event) {
        if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10) {
            contextMenu.__popup(Qt.rect(10, Metrics.headerHeight, 0, 0), -1);
            event.accepted = true;
        }
    }

    dragZone.width: buttons.x
    height: Metrics.searchHeight
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

    ContextMenu {
        id: contextMenu

        onAbout: root.about()
        onQuit: root.close()
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

        HeaderButton {
            image: "../images/contact-button.png"
            tooltip: qsTr("Contacts VESK")

            onTriggered: root.openContact()
        }
        HeaderButton {
            image: "../images/table.png"
            tooltip: qsTr("Liste de tous les patients")

            onTriggered: root.openList()
        }
        HeaderButton {
            acceptedButtons: Qt.LeftButton | Qt.RightButton
            holdable: true
            image: "../images/cross.png"
            name: qsTr("Fermer")

            onPressAndHold: root.openContextMenu()
            onRightClicked: root.openContextMenu()
            onTriggered: root.hide()
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
        },
        State {
            name: "results"

            PropertyChanges {
                target: root
                height: Metrics.resultsHeight
                internalHeight: Metrics.resultsHeight
            }
        },
        State {
            name: "detail"

            PropertyChanges {
                target: root
                height: root.internalContentHeight + Metrics.heightAroundEditor
                internalHeight: root.internalContentInternalHeight + Metrics.heightAroundEditor
            }
        }
    ]
}
