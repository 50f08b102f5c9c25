import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 400
    height: 760

    // The only test in its process: a document that was loaded once loads at once the next time.
    MainTestCase {
        name: "MainLoading"
        stage: desk
        when: windowShown

        function test_parts_needed_during_their_loading_show_their_patients() {
            var loaders;
            var begun = 0;

            givenPatients([{ id: 1, name: "Dupont" }, { id: 2, name: "Adu" }]);
            start();
            loaders = ofType(main, "DeferredLoader");
            compare(loaders.length, 2);
            loaders.forEach(function (loader) {
                compare(loader.active, false);
                loader.activeChanged.connect(function () {
                    begun += loader.status === Loader.Loading;
                    if (loader === results()) {
                        search().text = "du";
                    } else {
                        main.openPatient(1);
                    }
                });
            });
            tryVerify(function () { return loaders.every(function (loader) { return loader.item !== null; }); });
            compare(begun, 2);
            search().text = "d";
            tryVerify(function () { return found().length === 2; });
            main.openPatient(2);
            compare(nameField().text, "Adu");
        }
    }
}
