import QtQuick 2.2

// A test of the whole main widget.
DocumentTestCase {
    property Item main

    /// Starts the main document with the patients of the store.
    function start() {
        main = load("main");
        return main;
    }

    function frame() { return ofType(main, "Container")[0]; }
    function detail() { return ofType(main, "Detail")[0]; }
    function listPane() { return part(main, "part listPane"); }
    /// The loader of the results, active from the first letter on.
    function results() { return part(main, "part results"); }
    function searchBar() { return ofType(main, "Autocomplete")[0]; }
    function nameBar() { return ofType(main, "NameStatus")[0]; }
    function search() { return named(main, "Rechercher un patient"); }
    function nameField() { return named(main, "Nom du patient"); }

    /// The frame's menu, and one of its items.
    function menu() {
        return only(listOf(frame().resources).filter(function (each) { return each.items !== undefined; }), "menu");
    }

    function menuItem(text) {
        return only(listOf(menu().items).filter(function (each) { return each.text === text; }), "menu item " + text);
    }

    function timer(interval) {
        return only(listOf(main.resources).filter(function (each) { return each.interval === interval; }),
                    "timer of " + interval + " ms");
    }

    function listOf(list) {
        return Array.prototype.slice.call(list);
    }

    /// Names in the result rows, from top to bottom.
    function found() {
        return ofType(results(), "PatientsItem").sort(function (a, b) { return a.y - b.y; })
            .map(function (row) { return row.text; });
    }

    /// Waits until the editor or the list has finished sliding.
    function settle() {
        tryCompare(nameBar(), "opacity", main.state === "open" ? 1 : 0);
        tryCompare(frame(), "height", frame().internalHeight);
    }

    /// Opens a stored patient, like a click on its row.
    function openFile(id) {
        main.openPatient(id);
        compare(detail().loaded, true);
        settle();
    }
}
