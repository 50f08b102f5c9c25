import QtQml 2.12
import QtQuick.LocalStorage 2.0

// Reaches the storage that the store of the same engine uses.
QtObject {
    property string version: "1.3"
    property string failing
    property var nextVersion
    property var rows: []

    /// The journal since it was last taken.
    function takeJournal() {
        var journal = LocalStorage.journal;

        LocalStorage.journal = [];
        return journal;
    }

    onVersionChanged: LocalStorage.version = version
    onNextVersionChanged: LocalStorage.nextVersion = nextVersion
    onFailingChanged: LocalStorage.failing = failing
    onRowsChanged: LocalStorage.rows = rows
}
