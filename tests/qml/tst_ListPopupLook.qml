import QtQuick 2.2

Item {
    id: desk

    width: 820
    height: 670

    ListTestCase {
        name: "ListPopupLook"
        stage: desk
        when: windowShown

        function test_look_data() {
            return lookRows([
                ["", "", "width", 800],
                ["", "", "height", 650],
                ["", "", "color", "#00000000"],
                ["", "type PopupContainer", "width", 800],
                ["", "type PopupContainer", "height", 650],
                ["", "type PopupContainer", "color", "#002457"],
                ["", "type PopupContainer", "radius", 4],
                ["", "type PopupContainer", "border.width", 1],
                ["", "type PopupContainer", "border.color", "#ffffff"],
                ["", "picture logo-vesk.jpg", "left", 10],
                ["", "picture logo-vesk.jpg", "top", 10],
                ["", "picture logo-vesk.jpg", "bottom", 32],
                ["", "text Tandry", "color", "#7c879c"],
                ["", "text Tandry", "font.pointSize", 11.7],
                ["", "text Tandry", "bottom", 30],
                ["", "control Fermer", "left", 772],
                ["", "control Fermer", "right", 788],
                ["", "control Fermer", "top", 13],
                ["", "control Fermer", "cursorShape", Qt.PointingHandCursor],
                ["", "first TabPopup", "left", 1],
                ["", "first TabPopup", "top", 42],
                ["", "first TabPopup", "height", 42],
                ["", "first TabPopup", "width", 399],
                ["", "first TabPopup", "title", waitingTitle],
                ["", "first TabPopup", "color", "#f8f8f8"],
                ["", "first TabPopup", "normalColor", "#fcbbc3"],
                ["", "first TabPopup", "hoveredColor", "#ffb4bd"],
                ["", "last TabPopup", "left", 400],
                ["", "last TabPopup", "right", 799],
                ["", "last TabPopup", "title", allTitle],
                ["", "last TabPopup", "color", "#c8dcfc"],
                ["", "last TabPopup", "hoveredColor", "#b0ccfd"],
                ["all", "first TabPopup", "color", "#fcbbc3"],
                ["all", "last TabPopup", "color", "#f9f9f9"],
                ["", "type WaitingBadge", "width", 24],
                ["", "type WaitingBadge", "height", 24],
                ["", "type WaitingBadge", "opacity", 1],
                ["", "type WaitingBadge", "status", Image.Ready],
                ["", "type WaitingBadge", "source", "qrc:/images/counter-big.png"],
                ["", "text 2", "color", "#ffffff"],
                ["", "text 2", "font.bold", true],
                ["", "text 2", "font.pointSize", 11.7],
                ["", "type TableHeader", "left", 1],
                ["", "type TableHeader", "top", 84],
                ["", "type TableHeader", "height", 53],
                ["", "type TableHeader", "width", 798],
                ["", "type TableHeader", "color", "#e44d5f"],
                ["all", "type TableHeader", "color", "#6888ba"],
                ["", "type PatientTable", "top", 137],
                ["", "type PatientTable", "bottom", 607],
                ["", "type PatientTable", "width", 798],
                ["", "type PatientTable", "color", "#f9f9f9"],
                ["all", "type PatientTable", "color", "#c0cded"],
                ["", "type TableFooter", "top", 607],
                ["", "type TableFooter", "bottom", 649],
                ["", "type TableFooter", "color", "#009cff"],
                ["", "control Imprimer", "left", 1],
                ["", "control Imprimer", "right", 757],
                ["", "control Imprimer", "top", 609],
                ["", "control Imprimer", "bottom", 649],
                ["", "control Imprimer", "cursorShape", Qt.PointingHandCursor],
                ["", "parent of control Imprimer", "color", "#002457"],
                ["", "picture printer.png", "width", 18],
                ["", "picture printer.png", "height", 18],
                ["", "picture printer.png", "status", Image.Ready],
                ["", "text Imprimer", "color", "#ffffff"],
                ["", "text Imprimer", "font.bold", true],
                ["", "text Imprimer", "font.pointSize", 14.3],
                ["", "control Supprimer les patients sélectionnés", "left", 757],
                ["", "control Supprimer les patients sélectionnés", "width", 42],
                ["", "control Supprimer les patients sélectionnés", "height", 42],
                ["", "control Supprimer les patients sélectionnés", "cursorShape", Qt.PointingHandCursor],
                ["", "picture trash.png", "left", 769],
                ["", "picture trash.png", "width", 18],
                ["", "picture trash.png", "status", Image.Ready],
                ["", "control Tout sélectionner", "left", 1],
                ["", "control Tout sélectionner", "top", 84],
                ["selected", "first TickMark", "color", "#95a3b8"],
                ["", "first TickMark", "left", 16],
                ["", "first TickMark", "color", "#ffffff"]
            ]);
        }

        function test_look(data) {
            givenNames(["A", "B"], ["C"]);
            var popup = load("ListPopup");

            if (data.state === "all") {
                openTab(popup, allTitle);
                hover(desk);
            } else if (data.state === "selected") {
                selectAll(popup);
            }
            compareLook(popup, data);
        }

        function test_column_titles_data() {
            return [
                { tag: "name", number: 0, text: "Nom du patient", left: 48.88, width: 151.62, name: "Nom du patient" },
                { tag: "first appointment", number: 1, text: "Date<br/>1<sup>er</sup> RDV", left: 212.47, width: 71.82,
                  name: "Date 1er RDV" },
                { tag: "skin tests", number: 2, text: "Tests<br/>cutanés", left: 296.26, width: 55.86,
                  name: "Tests cutanés" },
                { tag: "work-up", number: 3, text: "RDV bilan<br/>allergo.", left: 364.09, width: 55.86,
                  name: "RDV bilan allergo." },
                { tag: "allergy", number: 4, text: "Allergie<br/>confirmée", left: 431.92, width: 55.86,
                  name: "Allergie confirmée" },
                { tag: "first intake", number: 5, text: "RDV<br/>1<sup>ère</sup> prise", left: 499.75, width: 55.86,
                  name: "RDV 1ère prise" },
                { tag: "review", number: 6, text: "RDV bilan<br/>fin de saison", left: 567.58, width: 55.86,
                  name: "RDV bilan fin de saison" },
                { tag: "phone", number: 7, text: "Téléphone", left: 635.41, width: 71.82, name: "Téléphone" },
                { tag: "SMS", number: 8, text: "Rappel SMS", left: 719.2, width: 71.82, name: "Rappel SMS" }
            ];
        }

        function test_column_titles(data) {
            givenNames([]);
            var popup = load("ListPopup");
            var title = ofType(popup, "TableTitle")[data.number];
            var text = where(title, isText)[0];

            tryVerify(function () { return Math.abs(look(popup, title, "left") - data.left) < 0.001; });
            fuzzyCompare(title.width, data.width, 0.001);
            compare(title.text, data.text);
            compare(text.color.toString(), "#ffffff");
            compare(text.font.bold, true);
            fuzzyCompare(text.font.pointSize, 10.4, 0.001);
            compare(text.textFormat, Text.RichText);
            fuzzyCompare(text.x + text.width / 2, title.width / 2, 1);
            fuzzyCompare(look(title, text, "top") + text.height / 2, 26.5, 1);
            compare(Native.accessible(text).name, data.name);
        }

        function test_titles_do_not_touch() {
            givenNames([]);
            var popup = load("ListPopup");
            var texts = ofType(popup, "TableTitle").map(function (each) { return where(each, isText)[0]; });

            tryVerify(function () { return look(popup, texts[8], "left") > 700; });
            texts.slice(1).forEach(function (text, index) {
                verify(look(popup, texts[index], "right") + 2 <= look(popup, text, "left"), text.text);
            });
        }

        function test_rows_in_both_palettes_data() {
            return [
                { tag: "waiting, even", title: waitingTitle, number: 0, color: "#ffeff1", hovered: "#ffcccc", red: true },
                { tag: "waiting, odd", title: waitingTitle, number: 1, color: "#fcdfdf", hovered: "#ffcccc", red: true },
                { tag: "all, even", title: allTitle, number: 2, color: "#f9f9f9", hovered: "#d8e0ed", red: false },
                { tag: "all, odd", title: allTitle, number: 1, color: "#e5e8ed", hovered: "#d8e0ed", red: false }
            ];
        }

        function test_rows_in_both_palettes(data) {
            givenNames(["A", "B", "C"]);
            var popup = load("ListPopup");

            openTab(popup, data.title);
            var row = rows(popup)[data.number];
            compare(row.width, 798);
            compare(row.height, 42);
            compare(look(popup, row, "left"), 1);
            compare(look(popup, row, "top"), 137 + 42 * data.number);
            compare(row.color.toString(), data.color);
            compare(row.red, data.red);
            hover(named(row, "Ouvrir " + row.iname));
            tryVerify(function () { return row.color.toString() === data.hovered; });
        }

        function test_hovering_dims_the_cross_the_trash_and_the_print_group_data() {
            return [
                { tag: "cross", control: "Fermer", part: "picture cross.png", opacity: 0.66 },
                { tag: "trash", control: "Supprimer les patients sélectionnés", part: "picture trash.png", opacity: 0.6 },
                { tag: "print", control: "Imprimer", part: "parent of picture printer.png", opacity: 0.6 }
            ];
        }

        function test_hovering_dims_the_cross_the_trash_and_the_print_group(data) {
            givenNames([]);
            var popup = load("ListPopup");
            var item = part(popup, data.part);

            compare(item.opacity, 1);
            hover(named(popup, data.control));
            tryCompare(item, "opacity", data.opacity);
            hover(textItem(popup, waitingTitle));
            tryCompare(item, "opacity", 1);
        }

        function test_print_group_is_centred_with_the_text_5_right_of_the_icon() {
            givenNames([]);
            var popup = load("ListPopup");
            var icon = picture(popup, "printer.png");
            var text = textItem(popup, "Imprimer");

            compare(look(popup, text, "left"), look(popup, icon, "right") + 5);
            fuzzyCompare((look(popup, icon, "left") + look(popup, text, "right")) / 2, 379, 1);
        }

        function test_badge_hangs_5_left_of_the_centred_title_and_holds_its_number() {
            givenNames(["A", "B"]);
            var popup = load("ListPopup");
            var badge = ofType(popup, "WaitingBadge")[0];
            var title = textItem(popup, waitingTitle);
            var number = textItem(popup, "2");

            fuzzyCompare(look(popup, title, "left") + title.width / 2, 200.5, 1);
            compare(look(popup, badge, "right"), look(popup, title, "left") - 5);
            fuzzyCompare(look(popup, number, "left") + number.width / 2, look(popup, badge, "left") + 12, 1);
            fuzzyCompare(look(popup, number, "top") + number.height / 2, look(popup, badge, "top") + 12, 1);
        }

        function test_scroll_bar_is_thin_and_always_there_data() {
            return [{ tag: "empty list", count: 0 }, { tag: "long list", count: 100 }];
        }

        function test_scroll_bar_is_thin_and_always_there(data) {
            var i;
            var list = [];

            for (i = 0; i < data.count; ++i) {
                list.push("PATIENT " + i);
            }
            givenNames(list);
            var popup = load("ListPopup");
            var track = only(where(popup, function (each) {
                return each.color !== undefined && each.color.toString() === "#8192ac" && each.visible;
            }), "track");
            var handle = only(where(popup, function (each) {
                return each.color !== undefined && each.color.toString() === "#405c83" && each.visible;
            }), "handle");
            var dot = handle.children[0];

            compare(track.width, 4);
            fuzzyCompare(look(popup, track, "right"), 799, 1);
            compare(handle.width, 4);
            compare(dot.color.toString(), "#556e91");
            compare([dot.width, dot.height], [2, 2]);
            fuzzyCompare(dot.y + 1, handle.height / 2, 1);
        }
    }
}
