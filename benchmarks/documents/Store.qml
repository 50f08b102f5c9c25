import QtQuick 2.2
import "qrc:/js/Bdd.js" as Bdd

// The store alone: saves one answer as the editor passes it.
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
