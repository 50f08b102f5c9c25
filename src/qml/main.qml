import QtQuick 2.2
import "base"
import "main"
import "style"
import "../js/Bdd.js" as Bdd

// The main widget: search, results and the patient editor that slides in from the right.
Rectangle {
    id: root

    property int number: 0
    property int total: 0
    property int internalHeight: container.internalHeight
    /// Whether the counts have been read; they have not when the store did not open at the start.
    property bool counted: false
    /// From the start to the first refresh, in milliseconds.
    readonly property int firstRefreshDelay: 2000
    /// From a smaller height of the frame to the window's, in milliseconds: longer than the frame's animation.
    readonly property int shrinkDelay: 1000

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
        Bdd.getWaitingNumber(function (row) { number = row.count; });
        Bdd.getNumber(function (row) {
            total = row.count;
            counted = true;
        });
    }

    function openStore() {
        try {
            Bdd.init(refresh);
        } finally {
            // Even when the store does not open: catchUp() tries again.
            readyTimer.start();
            autocomplete.focus();
        }
    }

    /// Refreshes the views if the start could not read the store.
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
        autocomplete.removePatients(list);
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
        editor.loadNow().load(id, name);
        state = "open";
        nameBar.focus();
    }

    function leaveEditor() {
        editor.loadNow().reset();
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

    color: Palette.transparent
    // Metrics.searchHeight as a number: the first value of a binding would be logged as a change.
    height: 174
    width: Metrics.widgetWidth

    // In the log of a fault these lines show when the window grew and shrank.
    onHeightChanged: console.log(height)
    onInternalHeightChanged: followFrame()
    Component.onCompleted: openStore()
    Keys.onPressed: container.openContextMenuByKey(event)

    Timer {
        id: readyTimer

        interval: root.firstRefreshDelay

        onTriggered: {
            root.catchUp();
            root.ready();
        }
    }

    Timer {
        id: shrinkTimer

        interval: root.shrinkDelay

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
            onActiveChanged: listPane.loadResults()
            onFirstResultWanted: listPane.openFirst()
            onResultsWanted: listPane.focusFirst()
        }

        NameStatus {
            id: nameBar

            editable: !editor.item || !editor.item.missing
            opacity: 0
            visible: root.state === "open" || opacity > 0
            width: Metrics.widgetWidth

            onReset: root.leaveEditor()
        }

        SearchPane {
            id: listPane

            anchors {
                bottom: parent.bottom
                left: parent.left
                top: autocomplete.bottom
            }
            hasResults: autocomplete.hasResults
            objectName: "listPane"
            results: autocomplete.model
            searching: autocomplete.active
            visible: root.state !== "open" || anchors.leftMargin > -width
            waitingNumber: root.number
            width: Metrics.widgetWidth

            onCreatePatient: root.openEditor("", autocomplete.text)
            onOpenPatient: root.openEditor(id, name)
            onOpenWaitingList: root.openList()
        }

        DeferredLoader {
            id: editor

            function connectEditor() {
                item.nameStatus = nameBar;
                item.externalGenderMale = Qt.binding(function () { return nameBar.genderMale; });
                item.externalName = Qt.binding(function () { return nameBar.name; });
                item.canceled.connect(root.leaveEditor);
                item.needRefresh.connect(root.needRefresh);
            }

            anchors {
                left: listPane.right
                top: autocomplete.bottom
            }
            source: "Detail.qml"
            visible: root.state === "open" || listPane.anchors.leftMargin < 0

            onLoaded: connectEditor()
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
