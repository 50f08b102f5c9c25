import QtQml 2.12
import QtQuick.LocalStorage 2.0

// Gives access to the storage that the store of the same engine uses.
QtObject {
    property string version: "1.3"
    property string failing
    property var nextVersion
    property var rows: []

    /// The journal since the last call.
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
