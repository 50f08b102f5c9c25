import QtQuick 2.2
import "base"
import "style"

// The name bar of the patient editor: back, the name, the gender.
Rectangle {
    id: root

    property alias name: field.text
    property bool genderMale: true
    /// Whether name and gender can be changed.
    property bool editable: true

    signal reset

    /// Focuses the name, or the way back where the name cannot be changed.
    function focus() {
        (editable ? field : back).forceActiveFocus();
    }

    /// Shows the beginning of a name that is longer than the bar.
    function showBeginning() {
        field.cursorPosition = 0;
    }

    color: Palette.nameBar
    height: Metrics.barHeight

    onEditableChanged: if (!editable) focus()

    ImageButton {
        id: back

        cursorShape: Qt.ArrowCursor
        height: parent.height
        hoveredOpacity: 1
        idleOpacity: 0.5
        image: "../images/back.png"
        name: qsTr("Retour")
        pressedOpacity: 0.8
        // It saves nothing, but users know the arrow by this word, and the manual explains it.
        tooltip: qsTr("Enregistrer")
        width: height

        onTriggered: root.reset()
    }

    InputField {
        id: field

        anchors {
            left: back.right
            right: gender.left
            verticalCenter: parent.verticalCenter
        }
        bold: true
        enabled: root.editable
        name: qsTr("Nom du patient")
        placeholderColor: Palette.namePlaceholder
        placeholderText: qsTr("NOM Prénom")
        selectedTextColor: Palette.nameBar
    }

    ImageButton {
        id: gender

        anchors.right: parent.right
        enabled: root.editable
        height: parent.height
        hoveredOpacity: 0.6
        image: root.genderMale ? "../images/male-big.png" : "../images/female-big.png"
        name: root.genderMale ? qsTr("Sexe : homme") : qsTr("Sexe : femme")
        width: height

        onTriggered: root.genderMale = !root.genderMale
    }
}
