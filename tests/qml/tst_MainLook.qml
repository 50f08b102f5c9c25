import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainLook"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([]);
        }

        function test_start_data() {
            return lookRows([
                ["", "", "width", 275],
                ["", "", "height", 174],
                ["", "", "color", "#00000000"],
                ["", "", "number", 0],
                ["", "", "total", 0],
                ["frame", "type Container", "width", 275],
                ["frame", "type Container", "height", 174],
                ["frame", "type Container", "color", "#002457"],
                ["frame", "type Container", "radius", 4],
                ["frame", "type Container", "border.color", "#ffffff"],
                ["frame", "type Container", "border.width", 1],
                ["frame", "type Container", "behavior", "smoothed 600 InOutQuad"],
                ["header", "picture logo-vesk.jpg", "status", Image.Ready],
                ["header", "picture logo-vesk.jpg", "left", 10],
                ["header", "text Tandry", "color", "#7c879c"],
                ["header", "text Tandry", "font.family", "Arial"],
                ["header", "text Tandry", "font.pointSize", 11.7],
                ["header", "control Contacts VESK", "width", 16],
                ["header", "control Contacts VESK", "height", 16],
                ["header", "control Contacts VESK", "left", 205],
                ["header", "control Contacts VESK", "tooltip", "Contacts VESK"],
                ["header", "picture contact-button.png", "status", Image.Ready],
                ["header", "picture contact-button.png", "opacity", 1],
                ["header", "control Liste de tous les patients", "width", 16],
                ["header", "control Liste de tous les patients", "height", 16],
                ["header", "control Liste de tous les patients", "left", 226],
                ["header", "control Liste de tous les patients", "tooltip", "Liste de tous les patients"],
                ["header", "picture table.png", "status", Image.Ready],
                ["header", "picture table.png", "opacity", 1],
                ["header", "control Fermer", "width", 16],
                ["header", "control Fermer", "height", 16],
                ["header", "control Fermer", "left", 247],
                ["header", "control Fermer", "right", 263],
                ["header", "picture cross.png in control Fermer", "status", Image.Ready],
                ["header", "picture cross.png in control Fermer", "opacity", 1],
                ["content", "parent of type Autocomplete", "color", "#f9f9f9"],
                ["content", "parent of type Autocomplete", "left", 1],
                ["content", "parent of type Autocomplete", "right", 274],
                ["content", "parent of type Autocomplete", "top", 42],
                ["content", "parent of type Autocomplete", "bottom", 169],
                ["content", "parent of type Autocomplete", "clip", true],
                ["content", "type Autocomplete", "top", 42],
                ["content", "type Autocomplete", "height", 53],
                ["content", "type NameStatus", "top", 42],
                ["content", "type NameStatus", "height", 53],
                ["content", "parent of type PatientsResults", "top", 95],
                ["content", "parent of type PatientsResults", "left", 1],
                ["content", "parent of type PatientsResults", "width", 275],
                ["content", "type Detail", "top", 95],
                ["content", "type Detail", "left", 276],
                ["content", "type Detail", "width", 275],
                ["creation link", "control Nouvelle fiche patient", "top", 95],
                ["creation link", "parent of control Nouvelle fiche patient", "height", 38],
                ["creation link", "text Nouvelle fiche patient", "font.bold", true],
                ["creation link", "text Nouvelle fiche patient", "font.family", "Arial"],
                ["creation link", "picture add.png", "status", Image.Ready],
                ["results", "type PatientsResults", "opacity", 0],
                ["results", "type PatientsResults", "behavior", "number 500 InOutQuad"],
                ["results", "type PatientsResults", "top", 133],
                ["waiting link", "parent of control Liste des patients en attente", "height", 38],
                ["waiting link", "parent of control Liste des patients en attente", "top", 133],
                ["waiting link", "parent of control Liste des patients en attente", "bottom", 171],
                ["waiting link", "control Liste des patients en attente", "bottom", 169],
                ["waiting link", "text Liste des patients en attente", "font.bold", true],
                ["waiting link", "picture tab-button.png", "status", Image.Ready],
                ["search bar", "type Autocomplete", "color", "#8192ad"],
                ["search bar", "type Autocomplete", "opacity", 1],
                ["search bar", "type Autocomplete", "z", 1],
                ["search bar", "type Autocomplete", "placeholder", "NOM Prénom"],
                ["name bar", "type NameStatus", "opacity", 0],
                ["name bar", "type NameStatus", "z", 0]
            ]);
        }

        function test_start(data) {
            keep("start", function () {});
            compareLook(main, data);
        }

        function test_title_stands_on_the_logos_bottom() {
            start();
            compare(look(main, textItem(main, "Tandry"), "bottom"), look(main, picture(main, "logo-vesk.jpg"), "bottom"));
            verify(look(main, textItem(main, "Tandry"), "left") > look(main, picture(main, "logo-vesk.jpg"), "right"));
        }

        function test_bars_fill_the_content_areas_width() {
            start();
            verify(searchBar().width >= 273);
            verify(nameBar().width >= 273);
        }

        function test_header_buttons_fade_data() {
            return [
                { tag: "contact", control: "Contacts VESK", file: "contact-button.png" },
                { tag: "list", control: "Liste de tous les patients", file: "table.png" },
                { tag: "close", control: "Fermer", file: "cross.png" }
            ];
        }

        function test_header_buttons_fade(data) {
            var button = named(start(), data.control);
            var image = picture(button, data.file);

            hover(button);
            tryCompare(image, "opacity", 0.66);
            mousePress(button, 8, 8);
            compare(image.opacity, 0.5);
            mouseRelease(button, 8, 8);
            compare(image.opacity, 0.66);
            mouseMove(desk, 390, 700);
            tryCompare(image, "opacity", 1);
        }

        function test_results_data() {
            return lookRows([
                ["results", "", "height", 326],
                ["results", "type Container", "height", 326],
                ["results", "parent of type Autocomplete", "bottom", 321],
                ["results", "type PatientsResults", "opacity", 1],
                ["results", "type PatientsResults", "top", 133],
                ["results", "type PatientsResults", "bottom", 285],
                ["results", "type PatientsResults", "visible", true],
                ["results", "parent of control Liste des patients en attente", "top", 285],
                ["results", "control Liste des patients en attente", "bottom", 321],
                ["results", "parent of control DUPONT Marie", "height", 38]
            ]);
        }

        function test_results(data) {
            keep("results", function () {
                givenPatients([{ id: 1, name: "DUPONT Marie" }]);
                search().text = "d";
                tryCompare(frame(), "height", 326);
                tryCompare(results(), "opacity", 1);
            });
            compareLook(main, data);
        }

        function test_editor_data() {
            return lookRows([
                ["open", "parent of type PatientsResults", "left", -274],
                ["open", "type Detail", "left", 1],
                ["open", "type Detail", "top", 95],
                ["open", "type NameStatus", "opacity", 1],
                ["open", "type NameStatus", "z", 1],
                ["open", "type Autocomplete", "opacity", 0],
                ["open", "type Autocomplete", "z", 0],
                ["open", "", "height", 339],
                ["open", "type Container", "height", 339]
            ]);
        }

        function test_editor(data) {
            keep("editor", function () {
                givenPatients([{ id: 1, name: "DUPONT Marie" }]);
                openFile("1");
                tryCompare(listPane().anchors, "leftMargin", -275);
            });
            compareLook(main, data);
        }

        function test_changes_of_state_are_animated() {
            start();
            compare(main.transitions.length, 1);
            compare(Native.transitionAnimations(main.transitions[0]).map(function (each) {
                return [each.kind, each.duration, each.easing].join(" ");
            }), ["number 600 InOutQuad"]);
            givenPatients([{ id: 1, name: "DUPONT Marie" }]);
            main.openPatient("1");
            compare(listPane().anchors.leftMargin, 0);
            compare(searchBar().opacity, 1);
            compare(nameBar().opacity, 0);
            tryVerify(function () {
                return listPane().anchors.leftMargin < 0 && listPane().anchors.leftMargin > -275
                    && searchBar().opacity > 0 && searchBar().opacity < 1
                    && nameBar().opacity > 0 && nameBar().opacity < 1;
            });
            settle();
        }

        function test_the_frame_animates_toward_its_height() {
            givenPatients([{ id: 1, name: "DUPONT" }]);
            start();
            search().text = "d";
            compare(frame().height, 174);
            compare(frame().internalHeight, 326);
            tryVerify(function () { return frame().height > 174 && frame().height < 326; });
            tryCompare(frame(), "height", 326);
        }

        function test_results_fade_in_and_out() {
            givenPatients([{ id: 1, name: "DUPONT" }]);
            start();
            search().text = "d";
            compare(results().opacity, 0);
            tryVerify(function () { return results().opacity > 0 && results().opacity < 1; });
            tryCompare(results(), "opacity", 1);
            search().text = "";
            compare(results().opacity, 1);
            tryCompare(results(), "opacity", 0);
            compare(results().visible, false);
        }
    }
}
