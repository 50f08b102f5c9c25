import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 820
    height: 670

    ListTestCase {
        name: "ListPopupLook"
        stage: desk
        when: windowShown

        function test_accessible_names_of_titles_have_no_markup() {
            givenNames([]);
            var popup = load("ListPopup");

            compare(ofType(popup, "TableTitle").map(function (title) {
                return Native.accessible(where(title, isText)[0]).name;
            }), ["Nom du patient", "Date 1er RDV", "Tests cutanés", "RDV bilan allergo.", "Allergie confirmée",
                 "RDV 1ère prise", "RDV bilan fin de saison", "Téléphone", "Rappel SMS"]);
        }

        function test_the_accessible_name_of_the_badge_is_a_sentence_data() {
            return [{ tag: "1", names: ["A"], name: "1 patient en attente" },
                    { tag: "2", names: ["A", "B"], name: "2 patients en attente" }];
        }

        function test_the_accessible_name_of_the_badge_is_a_sentence(data) {
            givenNames(data.names);
            compare(Native.accessible(textItem(load("ListPopup"), data.tag)).name, data.name);
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
    }
}
