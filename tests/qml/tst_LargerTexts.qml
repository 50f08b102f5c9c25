import QtQuick 2.2
import "support"

// Every text can be read in full, at 72 dots per inch and with larger texts: none is clipped, none overlaps another. Qt
// reads the resolution at the start: each resolution needs a separate run.
Item {
    id: desk

    height: 1000
    width: 820

    EditorTestCase {
        id: testCase

        name: "LargerTexts"
        stage: desk
        when: windowShown

        readonly property string longNumber: "06.39.98.12.04"

        /// The painted area of the text in the window, without its box and margins.
        function painted(text) {
            var free = Math.max(text.width, text.contentWidth) - text.contentWidth;
            var freeBelow = Math.max(text.height, text.contentHeight) - text.contentHeight;
            var x = text.horizontalAlignment === Text.AlignHCenter ? free / 2 : 0;
            var y = text.verticalAlignment === Text.AlignVCenter ? freeBelow / 2 : 0;

            return text.mapToItem(desk, x, y, text.contentWidth, text.contentHeight);
        }

        function isShown(text) {
            return isText(text) && text.visible && text.text !== "" && fades(text) === 0;
        }

        /// The number of parent items that make the text invisible.
        function fades(item) {
            return !item ? 0 : (item.opacity === 0 ? 1 : 0) + fades(item.parent);
        }

        function describe(text) {
            var box = painted(text);

            return "\"" + text.text + "\" at " + [box.x, box.y, box.width, box.height].map(Math.round).join(" ");
        }

        /// The texts that are elided, or painted outside the document or their clipping items.
        function cutOff(document) {
            return where(document, isShown).filter(function (text) {
                return text.truncated || !liesIn(painted(text), text, document);
            }).map(describe);
        }

        function liesIn(box, item, document) {
            var around = item.parent.mapToItem(desk, 0, 0, item.parent.width, item.parent.height);
            var inside = !item.parent.clip && item.parent !== document
                      || box.x >= around.x - 1 && box.x + box.width <= around.x + around.width + 1
                         && box.y >= around.y - 1 && box.y + box.height <= around.y + around.height + 1;

            return inside && (item.parent === document || liesIn(box, item.parent, document));
        }

        /// Pairs of overlapping texts. The empty space above and below letters may overlap.
        function collisions(document) {
            var texts = where(document, isShown);
            var boxes = texts.map(painted);
            var found = [];

            boxes.forEach(function (one, i) {
                boxes.slice(i + 1).forEach(function (other, j) {
                    if (overlap(one.x, one.width, other.x, other.width) > 1
                            && overlap(one.y, one.height, other.y, other.height) > Math.min(one.height, other.height) / 4) {
                        found.push(describe(texts[i]) + " and " + describe(texts[i + 1 + j]));
                    }
                });
            });
            return found;
        }

        function overlap(start, length, otherStart, otherLength) {
            return Math.min(start + length, otherStart + otherLength) - Math.max(start, otherStart);
        }

        function checkTexts(document, least) {
            verify(where(document, isShown).length >= least, "there are texts to look at");
            compare(cutOff(document), []);
            compare(collisions(document), []);
        }

        function test_every_contact_can_be_read() {
            checkTexts(load("ContactPopup"), 12);
        }

        function test_the_patient_list_can_be_read() {
            var popup;

            givenPatients([
                { name: "BERNARD Louis", phone: "06 39 98 12 04", created: "2014-04-07", notification_date: "2014-05-01" },
                { name: "BONNET Élise", phone: longNumber, created: "2014-12-28", test: 0, test_date: "2014-12-28",
                  rdv1: 1, date1: "2014-12-28", confirmation: 1, confirmation_date: "2014-12-28", rdv2: 1,
                  date2: "2014-12-28", rdv3: 0, date3: "2014-12-28", notification_date: "2014-05-01" }
            ]);
            popup = load("ListPopup");
            ofType(popup, "ListView")[0].forceLayout();
            compare(ofType(popup, "PatientTableRow").length, 2);
            tryVerify(function () {
                return ofType(popup, "TableTitle").concat(ofType(popup, "ButtonSMS")).every(function (item) {
                    return item.parent.children[0] === item || item.x > 0;
                });
            });
            checkTexts(popup, 28);
        }

        function test_links_and_names_of_the_search_can_be_read_data() {
            return [
                { tag: "the new record", properties: { text: "Nouvelle fiche patient", alwaysBold: true } },
                { tag: "the typed name", properties: { text: "Créer la fiche patient", alwaysBold: true } },
                { tag: "the waiting list", properties: { text: "Liste des patients en attente", alwaysBold: true, number: 128 } },
                { tag: "a patient", properties: { text: "BERNARD Louis" } }
            ];
        }

        function test_links_and_names_of_the_search_can_be_read(data) {
            data.properties.width = 275;
            checkTexts(load("PatientsItem", data.properties), 1);
        }

        function test_the_editor_can_be_read_data() {
            return [
                { tag: "nothing answered", answers: {} },
                { tag: "no tests", answers: { test: 0 } },
                { tag: "the first gate", answers: { test: 0, rdv1: 1 }, gates: [false, false] },
                { tag: "the results", answers: { test: 0, rdv1: 1 }, gates: [true, false] },
                { tag: "allergic", answers: { test: 1, confirmation: 1 }, gates: [true, false] },
                { tag: "the second gate", answers: { test: 1, confirmation: 1, rdv2: 1 }, gates: [true, false] },
                { tag: "the review", answers: { test: 0, rdv1: 1, confirmation: 1, rdv2: 1, rdv3: 0 }, gates: [true, true] }
            ];
        }

        function test_the_editor_can_be_read(data) {
            var record = { phone: longNumber };

            keys.forEach(function (key, i) {
                if (data.answers[key] !== undefined) {
                    record[key] = data.answers[key];
                    record[dates[i]] = "2014-04-10";
                }
            });
            openPatient(record);
            if (data.gates) {
                detail.stepPassed = data.gates[0];
                detail.step2Passed = data.gates[1];
            }
            rest();
            checkTexts(pane, 5);
        }

        function test_each_expanded_question_can_be_read_data() {
            return keys.map(function (key) { return { tag: key }; });
        }

        function test_each_expanded_question_can_be_read(data) {
            openPatient({ test: 0, test_date: "2014-04-10", rdv1: 1, date1: "2014-04-10", confirmation: 1,
                          confirmation_date: "2014-04-10", rdv2: 1, date2: "2014-04-10" });
            detail.stepPassed = true;
            detail.step2Passed = true;
            question(data.tag).checked = true;
            rest();
            tryCompare(question(data.tag), "height", 100);
            checkTexts(pane, 8);
        }

        function test_the_answer_leaves_the_first_question_its_two_lines() {
            openPatient({ test: 0, test_date: "2014-04-10" });
            rest();
            verify(textItem(question("test"), question("test").text).contentHeight < 40);
        }

        function test_a_phone_number_of_full_length_is_shown_in_full() {
            var line;

            openPatient({ phone: longNumber });
            rest();
            line = part(phone(), "input");
            verify(line.contentWidth <= line.width, line.contentWidth + " in " + line.width);
        }

        function test_the_buttons_of_an_edited_record_can_be_read_data() {
            return [{ tag: "save", edited: "DUPONT Marie-Anne" }, { tag: "delete", edited: "" }];
        }

        function test_the_buttons_of_an_edited_record_can_be_read(data) {
            openPatient();
            nameBar.name = data.edited;
            rest();
            checkTexts(pane, 5);
        }
    }
}
