import QtQml 2.12
import QtQml.Models 2.12
import "qrc:/js/AutocompleteLogic.js" as AutocompleteLogic
import "qrc:/js/Bdd.js" as Bdd

// The environment that the search bar provides for its script: a model and a store.
QtObject {
    property ListModel rows: ListModel { id: model }

    function open() {
        Bdd.init();
    }

    function filter(input) {
        AutocompleteLogic.filter(input);
    }

    function names() {
        var names = [];
        var i;

        for (i = 0; i < model.count; ++i) {
            names.push(model.get(i).name);
        }
        return names;
    }

    function row(index) {
        return JSON.stringify(model.get(index));
    }
}
