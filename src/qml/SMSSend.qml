import QtQuick 2.2
import "base"
import "style"
import "../js/BuildSettings.js" as BuildSettings

// The bar at the foot of the editor that opens the SMS service's page. No data of the patient go with it.
Rectangle {
    id: root

    property bool displayed: true
    property int internalHeight: displayed ? Metrics.buttonHeight : 0

    signal clicked

    /// Focuses the bar.
    function focusLink() {
        clickable.forceActiveFocus();
    }

    function openServicePage() {
        clicked();
        Qt.openUrlExternally(BuildSettings.smsServicePage);
    }

    clip: true
    color: clickable.containsMouse ? Palette.smsHovered : Palette.sms
    enabled: displayed
    height: internalHeight
    visible: height > 0
    width: Metrics.widgetWidth

    Behavior on height {
        NumberAnimation {
            duration: Metrics.expandDuration
            easing.type: Easing.InOutQuad
        }
    }

    WidgetText {
        anchors.centerIn: parent
        color: Palette.white
        font.bold: true
        maximumTextScale: 1.2
        points: 11
        text: qsTr("Envoyer le SMS de rappel")
    }

    Image {
        anchors {
            right: parent.right
            rightMargin: 10
        }
        fillMode: Image.PreserveAspectFit
        height: parent.height
        source: "../images/next-white.png"
    }

    Clickable {
        id: clickable

        anchors.fill: parent
        focusColor: Palette.focusOnDark
        name: qsTr("Envoyer le SMS de rappel")

        onTriggered: root.openServicePage()
    }
}
