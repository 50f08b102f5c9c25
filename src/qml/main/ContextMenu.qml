import QtQuick 2.2
import QtQuick.Controls 1.1

// The menu of the main window.
Menu {
    id: root

    property alias launchOnStart: launchItem.checked

    signal about
    signal quit

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

        onTriggered: root.quit()
    }
}
