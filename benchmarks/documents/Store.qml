import QtQuick 2.2
import "qrc:/js/Bdd.js" as Bdd

// The store alone: one answer as the editor hands it over.
Item {
    property bool done: false

    function open() {
        Bdd.init();
    }

    function answer(data) {
        done = false;
        Bdd.update(data, function () {
            done = true;
        });
    }
}
