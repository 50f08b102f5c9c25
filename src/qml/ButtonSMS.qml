import QtQuick 2.2
import "base"
import "style"
import "../js/BuildSettings.js" as BuildSettings

// The button of a row that opens the SMS service's page, the same for every patient: no data of theirs go with it.
Rectangle {
    id: root

    /// Whether Tab stops here.
    property bool tabStop: true

    signal clicked

    /// Focuses the button.
    function focusButton() {
        clickable.forceActiveFocus();
    }

    function openServicePage() {
        clicked();
        Qt.openUrlExternally(BuildSettings.smsServicePage);
    }

    color: Palette.smsButton
    height: width / 3
    radius: 3
    width: 80

    BorderImage {
        anchors.fill: parent
        border {
            bottom: 3
            left: 3
            right: 3
            top: 3
        }
        source: "../images/sms-border.png"
    }

    WidgetText {
        anchors.centerIn: parent
        color: Palette.smsButtonText
        maximumTextScale: 1.2
        points: root.width / 8.5
        text: qsTr("Envoi SMS")
    }

    Clickable {
        id: clickable

        activeFocusOnTab: root.tabStop || activeFocus
        anchors.fill: parent
        name: qsTr("Envoi SMS")

        // The row moves the focus from here.
        Keys.forwardTo: root
        onTriggered: root.openServicePage()
    }
}
