import QtQuick 2.2
import "base"
import "style"

// A gate of the pathway: the user clicks it to confirm what must have happened before the next question.
Item {
    id: root

    property bool displayed: true
    property string text: qsTr("Si la consultation continue,<br/>cliquez ici")
    readonly property int internalHeight: displayed ? Metrics.buttonHeight : 0

    signal clicked

    /// Focuses the gate.
    function focusLink() {
        clickable.forceActiveFocus();
    }

    clip: true
    enabled: displayed
    height: internalHeight
    visible: height > 0
    width: Metrics.widgetWidth

    Behavior on height {
        NumberAnimation {
            duration: 200
        }
    }

    WidgetText {
        anchors.centerIn: parent
        color: Palette.editorLabel
        font.bold: true
        horizontalAlignment: Text.AlignHCenter
        maximumTextScale: 1
        opacity: clickable.containsMouse ? 0.7 : 1
        text: root.text
        textFormat: Text.RichText
    }

    Clickable {
        id: clickable

        anchors.fill: parent
        name: root.text.replace("<br/>", " ").replace(/<[^>]*>/g, "")

        onTriggered: root.clicked()
    }
}
