import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 820

    EditorTestCase {
        name: "DetailLook"
        stage: desk
        when: windowShown

        readonly property string dateLabel: "Date du 1<sup>er</sup> rendez-vous :"

        function test_stored_patient_data() {
            return lookRows([
                ["base", "", "width", 275],
                ["base", "type PatientFields", "color", "#f0f0f0"],
                ["base", "type PatientFields", "height", 100],
                ["base", "type PatientFields", "clip", true],
                ["base", "type PatientFields", "top", 0],
                ["base", "type PatientFields", "behavior", "smoothed 300 InOutQuad"],
                ["base", "picture phone.png", "status", Image.Ready],
                ["base", "text Téléphone :", "font.family", "Arial"],
                ["base", "input in control Téléphone", "font.bold", true],
                ["base", "input in control Téléphone", "font.pointSize", 14.3],
                ["base", "input in control Téléphone", "font.family", "Arial"],
                ["base", "input in control Téléphone", "color", "#405b82"],
                ["base", "control Téléphone", "placeholderText", "06..."],
                ["base", "control Téléphone", "maximumLength", 14],
                ["base", "picture calendar.png", "status", Image.Ready],
                ["base", "text " + dateLabel, "textFormat", Text.RichText],
                ["base", "text " + dateLabel, "font.family", "Arial"],
                ["base", "text 10/04/2014", "font.bold", true],
                ["base", "text 10/04/2014", "font.family", "Arial"],
                ["base", "text 10/04/2014", "bottom", 89],
                ["base", "control Annuler", "visible", false],
                ["base", "first Question", "top", 101],
                ["base", "first Question", "height", 100],
                ["base", "type SMSSend", "top", 201],
                ["base", "type SMSSend", "height", 38],
                ["base", "type SMSSend", "width", 275],
                ["base", "", "height", 239]
            ]);
        }

        function test_stored_patient(data) {
            keep(openPatient);
            compareLook(detail, data);
        }

        function test_edited_patient_data() {
            return lookRows([
                ["buttons", "type PatientFields", "height", 138],
                ["buttons", "text 10/04/2014", "bottom", 89],
                ["buttons", "first ActionButton", "top", 100],
                ["buttons", "first ActionButton", "left", 0],
                ["buttons", "first ActionButton", "height", 38],
                ["buttons", "first ActionButton", "color", "#68c268"],
                ["buttons", "first ActionButton", "hoveredBackgroundColor", "#4ac74a"],
                ["buttons", "first ActionButton", "disabledBackgroundColor", "#a9a9a9"],
                ["buttons", "first ActionButton", "textColor", "#ffffff"],
                ["buttons", "text Enregistrer", "font.bold", true],
                ["buttons", "picture yes-white.png", "status", Image.Ready],
                ["buttons", "last ActionButton", "top", 100],
                ["buttons", "last ActionButton", "right", 275],
                ["buttons", "last ActionButton", "height", 38],
                ["buttons", "last ActionButton", "color", "#7d7d7d"],
                ["buttons", "last ActionButton", "hoveredBackgroundColor", "#5b5b5b"],
                ["buttons", "last ActionButton", "image", ""],
                ["buttons", "text Annuler", "font.bold", false],
                ["buttons", "type SMSSend", "height", 38],
                ["buttons", "", "height", 176]
            ]);
        }

        function test_edited_patient(data) {
            keep(function () {
                openPatient();
                phone().text = "07";
            });
            compareLook(detail, data);
        }

        function test_the_two_buttons_share_the_width() {
            compare(look(detail, validate(), "right"), look(detail, cancelButton(), "left"));
            verify(Math.abs(validate().width - 137.5) <= 1);
        }

        function test_picture_stands_left_of_its_label_data() {
            return [{ tag: "phone.png", label: "Téléphone :" }, { tag: "calendar.png", label: dateLabel }];
        }

        function test_picture_stands_left_of_its_label(data) {
            openPatient();
            verify(look(detail, picture(detail, data.tag), "right") <= look(detail, textItem(detail, data.label), "left"));
        }

        function test_the_date_stands_below_its_label_and_cannot_be_edited() {
            openPatient();
            verify(look(detail, textItem(detail, dateLabel), "bottom") <= look(detail, textItem(detail, "10/04/2014"),
                                                                                 "top"));
            compare(where(fields(), isInput).length, 1);
        }

        function test_fields_grow_over_an_animation() {
            openPatient();
            rest();
            phone().text = "07";
            compare(fields().height, 100);
            compare(detail.internalHeight, 176);
            tryVerify(function () { return fields().height > 100 && fields().height < 138; });
            tryCompare(fields(), "height", 138);
        }

        function test_first_question_has_a_margin_of_one_only_while_displayed() {
            detail.load("", "");
            rest();
            compare(detail.internalHeight, 100);
            openPatient();
            compare(detail.internalHeight, 100 + 1 + 100 + 38);
        }

        function test_order_of_the_pathway() {
            var parts;

            openPatient();
            parts = where(detail, function (each) {
                return ["Question", "StepButton", "SMSSend"].indexOf(Native.typeName(each)) >= 0;
            }).map(function (each) { return each.text || "SMS"; });
            compare(parts, [
                "Avez-vous pratiqué des tests cutanés sur le patient ?",
                "Le patient souhaite-t-il prendre rdv pour son bilan allergologique ?",
                "Si vous avez les résultats du bilan,<br/>cliquez ici",
                "Confirmation de l'allergie au pollen de graminés ?",
                "Le patient souhaite-t-il prendre rdv pour la première prise au cabinet ?",
                "Si la 1<sup>ère</sup> prise au cabinet a été effectuée,<br/>cliquez ici",
                "Le patient souhaite-t-il prendre rdv pour son bilan de fin de saison ?",
                "SMS"
            ]);
        }

        function test_validate_modes_data() {
            return [
                { tag: "save", name: "DURAND", text: "Enregistrer", icon: "yes-white.png", shade: "#68c268",
                  hovered: "#4ac74a" },
                { tag: "delete", name: "", text: "Supprimer", icon: "no-white.png", shade: "#f04014",
                  hovered: "#da1f0a" }
            ];
        }

        function test_validate_modes(data) {
            openPatient();
            nameBar.name = data.name;
            rest();
            compare(validate().text, data.text);
            compare(picture(validate(), data.icon).status, Image.Ready);
            compare(validate().color.toString(), data.shade);
            compare(textItem(validate(), data.text).color.toString(), "#ffffff");
            compare(textItem(validate(), data.text).font.bold, true);
            hover(validate());
            tryVerify(function () { return validate().color.toString() === data.hovered; });
            validate().disabled = true;
            compare(validate().color.toString(), "#a9a9a9");
        }

        function test_a_new_patient_without_a_name_is_in_save_mode() {
            detail.load("", "");
            compare(validate().text, "Enregistrer");
            picture(validate(), "yes-white.png");
        }
    }
}
