import QtQuick 2.2
import ".."
import "../base"
import "../style"

// The top block of the editor: phone, first appointment and, once something is edited, the two buttons.
Rectangle {
    id: root

    property string patientId
    property string patientName
    property alias phone: phoneField.text
    property alias firstAppointment: firstAppointmentText.text
    property alias validateDisabled: validate.disabled
    property bool editing: false
    readonly property int internalHeight: editing ? Metrics.fieldsAndButtonsHeight : Metrics.fieldsHeight
    readonly property bool deleteMode: patientId !== "" && patientName === ""

    signal validated
    signal canceled

    /// Focuses the phone number.
    function focusPhone() {
        phoneField.forceActiveFocus();
    }

    clip: true
    color: Palette.editorBlock
    height: internalHeight
    width: Metrics.widgetWidth

    Behavior on height {
        ExpandAnimation {}
    }

    Image {
        id: phoneIcon

        anchors {
            horizontalCenter: parent.left
            horizontalCenterOffset: 22
            verticalCenter: phoneLabel.verticalCenter
        }
        source: "../../images/phone.png"
    }

    WidgetText {
        id: phoneLabel

        color: Palette.editorLabel
        height: 40
        maximumTextScale: 1.2
        points: 10
        text: qsTr("Téléphone :")
        verticalAlignment: Text.AlignVCenter
        x: 42
    }

    InputField {
        id: phoneField

        anchors {
            left: phoneLabel.right
            leftMargin: 8
            right: parent.right
            rightMargin: 10
            verticalCenter: phoneLabel.verticalCenter
        }
        bold: true
        color: Palette.editorText
        maximumLength: 14
        maximumTextScale: 1.2
        name: qsTr("Téléphone")
        placeholderColor: Palette.editorPlaceholder
        placeholderText: qsTr("06...")
        points: 11
        selectedTextColor: Palette.white
        selectionColor: Palette.searchBar
    }

    Image {
        anchors {
            horizontalCenter: parent.left
            horizontalCenterOffset: 22
            verticalCenter: firstAppointmentLabel.bottom
        }
        source: "../../images/calendar.png"
    }

    WidgetText {
        id: firstAppointmentLabel

        anchors {
            bottom: firstAppointmentText.top
            left: phoneLabel.left
        }
        color: Palette.editorLabel
        maximumTextScale: 1.2
        points: 10
        text: qsTr("Date du 1<sup>er</sup> rendez-vous :")
        textFormat: Text.RichText
    }

    WidgetText {
        id: firstAppointmentText

        anchors {
            left: phoneLabel.left
            top: parent.top
            topMargin: Metrics.fieldsHeight - 11 - height
        }
        color: Palette.editorText
        font.bold: true
        maximumTextScale: 1.5
        points: 11

        Accessible.name: qsTr("Date du 1er rendez-vous : %1").arg(text)
        Accessible.role: Accessible.StaticText
    }

    Row {
        anchors {
            top: firstAppointmentText.bottom
            topMargin: 11
        }
        enabled: root.editing
        visible: root.editing

        ActionButton {
            id: validate

            backgroundColor: root.deleteMode ? Palette.remove : Palette.save
            // The first assignment by the editor ends this binding: from then on only the editor knows of a save under way.
            disabled: root.patientId === "" && root.patientName === ""
            hoveredBackgroundColor: root.deleteMode ? Palette.removeHovered : Palette.saveHovered
            image: root.deleteMode ? "../../images/no-white.png" : "../../images/yes-white.png"
            objectName: "validate"
            text: root.deleteMode ? qsTr("Supprimer") : qsTr("Enregistrer")
            width: Math.ceil(root.width / 2)

            onClicked: root.validated()
        }
        ActionButton {
            backgroundColor: Palette.cancel
            hoveredBackgroundColor: Palette.cancelHovered
            objectName: "cancel"
            text: qsTr("Annuler")
            textBold: false
            width: Math.floor(root.width / 2)

            onClicked: root.canceled()
        }
    }
}
