import QtQuick 2.2
import "support"
import "looks/ActionButton.js" as ActionButtonLook
import "looks/Autocomplete.js" as AutocompleteLook
import "looks/ButtonSMS.js" as ButtonSMSLook
import "looks/ContactPopup.js" as ContactPopupLook
import "looks/Detail.js" as DetailLook
import "looks/ListPopup.js" as ListPopupLook
import "looks/NameStatus.js" as NameStatusLook
import "looks/PatientTableRow.js" as PatientTableRowLook
import "looks/PatientsItem.js" as PatientsItemLook
import "looks/Question.js" as QuestionLook
import "looks/SMSSend.js" as SMSSendLook
import "looks/StepButton.js" as StepButtonLook
import "looks/TabPopup.js" as TabPopupLook
import "looks/main.js" as MainLook

Item {
    id: desk

    width: 840
    height: 860

    // Compares every text, colour and number of the windows with hand-written tables: one file in looks/ for each
    // document, one row for each item or group of equal items in a state. follow() performs the steps to a state;
    // candidates() in DocumentTestCase.qml resolves item names.
    DocumentTestCase {
        name: "Looks"
        stage: desk
        when: windowShown

        readonly property int patienceMs: 20000
        readonly property var tables: [
            ActionButtonLook, AutocompleteLook, ButtonSMSLook, ContactPopupLook, DetailLook, ListPopupLook, MainLook,
            NameStatusLook, PatientTableRowLook, PatientsItemLook, QuestionLook, SMSSendLook, StepButtonLook, TabPopupLook
        ]
        // The item that the running test holds pressed.
        property Item pressed

        function finish() {
            if (pressed) {
                mouseRelease(pressed, pressed.width + 200, pressed.height + 200);
            }
            pressed = null;
        }

        function test_the_look_matches_its_table_data() {
            return tables.reduce(function (found, table) {
                return found.concat(Object.keys(table.states).map(function (state) {
                    return { tag: table.type + ", " + state, table: table, state: state };
                }));
            }, []);
        }

        function test_the_look_matches_its_table(data) {
            var state = data.table.states[data.state];
            var document = bring(data.table, state);
            var rows = facts(data.table).filter(function (row) { return row[0] === data.state; });
            var until = Date.now() + patienceMs;
            var wrong;

            verify(rows.length > 0);
            (state.steps || []).forEach(function (step) { follow(document, step); });
            // Text that is still loading has no font yet.
            for (wrong = faults(document, rows); wrong.length > 0 && Date.now() < until;) {
                wait(10);
                wrong = faults(document, rows);
            }
            compare(wrong, []);
            compare(unlisted(document, facts(data.table)), [], "texts and pictures without a row");
        }

        /// The rows of a table, one for each property: [state, item, property, expected].
        function facts(table) {
            var found = [];

            table.rows.forEach(function (row) {
                [].concat(row[1]).forEach(function (item) {
                    Object.keys(row[2]).forEach(function (property) {
                        found.push([row[0], item, property, row[2][property]]);
                    });
                });
            });
            return found;
        }

        function test_every_row_of_a_table_has_a_state_and_is_unique_data() {
            return tables.map(function (table) { return { tag: table.type, table: table }; });
        }

        function test_every_row_of_a_table_has_a_state_and_is_unique(data) {
            var seen = {};

            facts(data.table).forEach(function (row) {
                var place = row.slice(0, 3).join(" | ");

                verify(data.table.states[row[0]] !== undefined, place);
                verify(!seen[place], place);
                seen[place] = true;
            });
        }

        /// Creates the document of a table with the properties of the state.
        function bring(table, state) {
            var properties = {};

            if (state.patients || table.patients) {
                givenPatients(state.patients || table.patients);
            }
            [table.properties, state.properties || {}].forEach(function (some) {
                Object.keys(some).forEach(function (key) { properties[key] = some[key]; });
            });
            return table.type === "Detail" ? editor() : load(table.type, properties);
        }

        function editor() {
            var component = Qt.createComponent("support/EditorPane.qml");

            compare(component.errorString(), "");
            return createTemporaryObject(component, stage).detail;
        }

        function follow(document, step) {
            switch (step[0]) {
            case "set":
                set(document, step[1], step[2]);
                break;
            case "call":
                document[step[1]].apply(document, step.slice(2));
                break;
            case "type":
                awaited(document, step[1]).forceActiveFocus();
                type(step[2]);
                break;
            case "hover":
                hover(awaited(document, step[1]));
                break;
            case "click":
                click(awaited(document, step[1]));
                break;
            case "press":
                pressed = awaited(document, step[1]);
                mousePress(pressed, pressed.width / 2, pressed.height / 2);
                break;
            case "until":
                tryCompare(awaited(document, step[1]), step[2], step[3], patienceMs);
                break;
            default:
                fail("Unknown step: " + step);
            }
        }

        /// Waits for the part with that path: a list creates its rows when it is painted.
        function awaited(document, path) {
            tryVerify(function () { return findPart(document, path) !== null; }, patienceMs, path);
            return part(document, path);
        }

        function set(document, property, value) {
            var names = property.split(".");
            var last = names.pop();

            names.reduce(function (item, each) { return item[each]; }, document)[last] = value;
        }

        function faults(document, rows) {
            return differences(document, rows).concat(otherFonts(document));
        }

        /// The rows that do not match, each as a line with the actual value.
        function differences(document, rows) {
            return rows.map(function (row) { return difference(document, row); }).filter(function (text) {
                return text !== "";
            });
        }

        function difference(document, row) {
            var place = row.slice(1, 3).join(" | ");
            var item = findPart(document, row[1]);
            var value;

            if (!item) {
                return place + ": there is no such item, or more than one";
            }
            value = look(document, item, row[2]);
            return holds(document, value, row[2], row[3]) ? "" : place + ": " + shown(value) + ", not " + shown(row[3]);
        }

        /// Whether a value matches: `expected` is a plain value, or an array that refers to another item, such as
        /// ["right", "picture cross.png", 20] (its right edge and 20) or ["<=", "left", "picture cross.png"].
        function holds(document, value, property, expected) {
            if (Array.isArray(expected)) {
                return holdsBeside(document, value, property, expected);
            }
            if (typeof expected === "number") {
                return Math.abs(value - expected) <= tolerance(property);
            }
            return expected === null ? value === null
                                     : typeof value === "object" ? value.toString() === expected : value === expected;
        }

        function holdsBeside(document, value, property, expected) {
            var comparing = typeof expected[2] === "string";
            var item = findPart(document, expected[comparing ? 2 : 1]);
            var other = item ? look(document, item, expected[comparing ? 1 : 0]) : NaN;

            switch (expected[0]) {
            case "<=": return value <= other + 0.001;
            case ">=": return value >= other - 0.001;
            case "bigger": return value > other;
            }
            return Math.abs(value - other - expected[2]) <= tolerance(property);
        }

        /// A centre may be half a pixel off, because centred items are placed on whole pixels.
        function tolerance(property) {
            return property.indexOf("centre") === 0 ? 0.51 : 0.001;
        }

        function shown(value) {
            return value === undefined ? "undefined" : value !== null && value.toString && !Array.isArray(value)
                                         ? value.toString() : JSON.stringify(value);
        }

        function otherFonts(document) {
            return where(document, function (each) {
                return (isText(each) || isInput(each)) && each.font.family !== "Arial";
            }).map(function (each) { return each.text + ": in " + each.font.family; });
        }

        /// Visible items that no row of the table covers, except inside documents that have a table of their own.
        function unlisted(document, rows) {
            var parts = rows.map(function (row) { return row[1]; });
            var listed = parts.filter(function (path, index) { return parts.indexOf(path) === index; })
                .map(function (path) { return findPart(document, path); });

            return own(document, tables.map(function (table) { return table.type; })).filter(function (each) {
                return each.visible && (isText(each) && each.text !== "" || Native.typeName(each) === "Image")
                    && listed.indexOf(each) < 0;
            }).map(function (each) { return JSON.stringify(each.text || each.source.toString()); });
        }

        /// The item and all items below it, without items of those types and their children.
        function own(item, types) {
            return Array.prototype.slice.call(item.children).reduce(function (found, each) {
                return types.indexOf(Native.typeName(each)) < 0 ? found.concat(own(each, types)) : found;
            }, [item]);
        }
    }
}
