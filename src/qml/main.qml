import QtQuick 2.2
import "base"
import "style"
import "../js/Bdd.js" as Bdd

// The main widget: search, results and the patient editor that slides in from the right.
Rectangle {
    id: root

    property int number: 0
    property int total: 0
    property int internalHeight: container.internalHeight
    /// Whether the counts have been read: a store that did not open at the start has none.
    property bool counted: false

    signal openContact
    signal openList
    signal close
    signal hide
    signal openAbout
    signal enableDragging
    signal needRefresh
    signal ready
    signal autorun(bool autorun)

    /// Reads the number of waiting patients and of all patients.
    function refresh() {
        Bdd.getWaitingNumber(function (row) {
            number = row.count;
        });
        Bdd.getNumber(function (row) {
            total = row.count;
            counted = true;
        });
    }

    /// Reads the counts, and the list, that the start could not read.
    function catchUp() {
        if (!counted) {
            needRefresh();
        }
    }

    /// Takes deleted patients out of the results, and leaves the editor when its patient is among them.
    function removedPatients(list) {
        if (!list) {
            return;
        }
        autocomplete.drop(list);
        // Loosely: an id comes as a number or as text.
        if (editor.item && list.some(function (id) { return id == editor.item.currentId; })) {
            leaveEditor();
        }
    }

    /// Opens the patient of that id in the editor.
    function openPatient(iid) {
        openEditor(iid, "");
    }

    /// Sets the tick of "Lancer au démarrage".
    function setAutorun(autorun) {
        container.launchOnStart = autorun;
    }

    function openEditor(id, name) {
        editor.need().load(id, name);
        state = "open";
        nameBar.focus();
    }

    function leaveEditor() {
        editor.need().reset();
        autocomplete.reset();
        state = "close";
        autocomplete.focus();
    }

    /// Grows at once, and shrinks only when the frame inside has finished its animation.
    function followFrame() {
        shrinkTimer.stop();
        if (internalHeight < height) {
            shrinkTimer.start();
        } else {
            height = internalHeight;
        }
    }

    function openMenuByKey(event) {
        if (event.key === Qt.Key_Menu || event.key === Qt.Key_F10) {
            container.openContextMenuByKey();
            event.accepted = true;
        }
    }

    color: Palette.transparent
    height: 174
    width: Metrics.widgetWidth

    onHeightChanged: console.log(height)
    onInternalHeightChanged: followFrame()
    Component.onCompleted: {
        try {
            Bdd.init(refresh);
        } finally {
            // A store that does not open leaves a widget that lives and tries again.
            readyTimer.start();
            autocomplete.focus();
        }
    }
    Keys.onPressed: openMenuByKey(event)

    Timer {
        id: readyTimer

        interval: 2000

        onTriggered: {
            root.catchUp();
            root.ready();
        }
    }

    Timer {
        id: shrinkTimer

        interval: 1000

        onTriggered: root.height = root.internalHeight
    }

    Container {
        id: container

        internalContentHeight: editor.height
        internalContentInternalHeight: editor.item ? editor.item.internalHeight : 0
        internalState: root.state === "open" ? "detail" : autocomplete.hasResults ? "results" : "base"
        title: qsTr("Tandry")

        onAbout: root.openAbout()
        onClose: root.close()
        onEnableDragging: root.enableDragging()
        onHide: root.hide()
        onLaunchOnStartChanged: root.autorun(launchOnStart)
        onOpenContact: root.openContact()
        onOpenList: root.openList()

        Autocomplete {
            id: autocomplete

            placeholder: qsTr("NOM Prénom")
            visible: root.state !== "open" || opacity > 0
            width: Metrics.widgetWidth
            z: 1

            onChanged: {
                root.state = "close";
                root.catchUp();
            }
            onActiveChanged: results.need()
            onFirstResultWanted: if (hasResults) results.item.selectFirst()
            onResultsWanted: hasResults ? results.item.focusFirst() : createLink.focusLink()
        }

        NameStatus {
            id: nameBar

            editable: !editor.item || !editor.item.missing
            opacity: 0
            visible: root.state === "open" || opacity > 0
            width: Metrics.widgetWidth

            onReset: root.leaveEditor()
        }

        Item {
            id: listPane

            anchors {
                bottom: parent.bottom
                left: parent.left
                top: autocomplete.bottom
            }
            objectName: "listPane"
            visible: root.state !== "open" || anchors.leftMargin > -width
            width: Metrics.widgetWidth

            PatientsItem {
                id: createLink

                alwaysBold: true
                image: "../images/add.png"
                text: autocomplete.active ? qsTr("Créer la fiche patient") : qsTr("Nouvelle fiche patient")
                width: parent.width

                onClicked: root.openEditor("", autocomplete.text)
            }

            DeferredLoader {
                id: results

                anchors {
                    bottom: waitingLink.top
                    left: parent.left
                    right: parent.right
                    top: createLink.bottom
                }
                objectName: "results"
                opacity: autocomplete.hasResults ? 1 : 0
                source: "PatientsResults.qml"
                visible: opacity > 0

                Behavior on opacity {
                    NumberAnimation {
                        duration: 500
                        easing.type: Easing.InOutQuad
                    }
                }

                onLoaded: {
                    item.model = autocomplete.model;
                    item.selected.connect(root.openEditor);
                }
            }

            PatientsItem {
                id: waitingLink

                alwaysBold: true
                anchors {
                    bottom: parent.bottom
                    bottomMargin: -2
                }
                image: "../images/tab-button.png"
                number: root.number
                text: qsTr("Liste des patients en attente")
                width: parent.width

                onClicked: root.openList()
            }
        }

        DeferredLoader {
            id: editor

            anchors {
                left: listPane.right
                top: autocomplete.bottom
            }
            source: "Detail.qml"
            visible: root.state === "open" || listPane.anchors.leftMargin < 0

            onLoaded: {
                item.nameStatus = nameBar;
                item.externalGenderMale = Qt.binding(function () { return nameBar.genderMale; });
                item.externalName = Qt.binding(function () { return nameBar.name; });
                item.canceled.connect(root.leaveEditor);
                item.needRefresh.connect(root.needRefresh);
            }
        }
    }

    states: [
        State {
            name: "close"
        },
        State {
            name: "open"

            PropertyChanges {
                target: listPane.anchors
                leftMargin: -root.width
            }
            PropertyChanges {
                target: autocomplete
                opacity: 0
                z: 0
            }
            PropertyChanges {
                target: nameBar
                opacity: 1
                z: 1
            }
        }
    ]

    transitions: Transition {
        NumberAnimation {
            duration: Metrics.slideDuration
            easing.type: Easing.InOutQuad
            properties: "leftMargin,opacity"
        }
    }
}
