import QtQuick 2.2
import QtTest 1.1

// A test of one document: loads it into the window, finds its parts by type, name or text, and fails on warnings.
TestCase {
    id: testCase

    property Item stage
    // Warnings that the running test expects, as parts of their text.
    property var expectedWarnings: []

    function init() {
        expectedWarnings = [];
        Native.startLog();
        Native.takeOpenedAddresses();
        prepare();
    }

    function cleanup() {
        // The offscreen platform logs this when a menu opens; it is not a warning of the program.
        var allowed = expectedWarnings.concat("This plugin does not support grabbing");
        var unexpected = Native.takeWarnings().filter(function (text) {
            return !allowed.some(function (part) { return text.indexOf(part) >= 0; });
        });

        Native.stopLog();
        Native.unlockStore();
        if (qtest_results.failed) {
            saveScreenshot();
        }
        finish();
        mouseMove(stage, stage.width - 1, stage.height - 1);
        compare(unexpected, [], "warnings in the log");
    }

    /// Test files override these to run code before and after each test.
    function prepare() {}
    function finish() {}

    function saveScreenshot() {
        var file = testCase.name + "-" + qtest_results.functionName + ".png";

        if (Native.saveWindow(stage, file)) {
            console.info("Screenshot of the failure: " + file);
        }
    }

    /// Creates the document of that name; deleted after the test.
    function load(name, properties) {
        var component = Qt.createComponent("qrc:/qml/" + name + ".qml");

        compare(component.errorString(), "");
        return createTemporaryObject(component, stage, properties || {});
    }

    /// The item and all items below it, parents first.
    function tree(item) {
        var found = [item];
        var i;

        for (i = 0; i < item.children.length; ++i) {
            found = found.concat(tree(item.children[i]));
        }
        return found;
    }

    function where(item, condition) {
        return tree(item).filter(condition);
    }

    function only(found, what) {
        compare(found.length, 1, what + " found");
        return found[0];
    }

    function isText(item) {
        return ["Text", "WidgetText", "TableCell", "ContactText", "SiteLink"]
            .indexOf(Native.typeName(item)) >= 0;
    }

    /// The only text item with that text.
    function textItem(item, text) {
        return only(where(item, function (each) { return isText(each) && each.text === text; }), "text " + text);
    }

    function hasText(item, text) {
        return where(item, function (each) { return isText(each) && each.text === text && each.visible; }).length > 0;
    }

    function isPicture(item, file) {
        return Native.typeName(item) === "Image" && item.source.toString() === "qrc:/images/" + file;
    }

    /// The only picture of that file.
    function picture(item, file) {
        return only(where(item, function (each) { return isPicture(each, file); }), "picture " + file);
    }

    /// The only control with that accessible name.
    function named(item, name) {
        return only(namedAll(item, name), "control " + name);
    }

    function namedAll(item, name) {
        return where(item, function (each) {
            var accessible = isControl(each) ? Native.accessible(each) : null;
            return accessible && accessible.name === name;
        });
    }

    /// All items of a QML type, in document order.
    function ofType(item, type) {
        return where(item, function (each) { return Native.typeName(each) === type; });
    }

    function isControl(item) {
        return ["Clickable", "TableTick", "ImageButton", "HeaderButton", "InputField", "AnswerBox"]
            .indexOf(Native.typeName(item)) >= 0;
    }

    /// The part of the document with that path, outermost step last: "picture cross.png in control Fermer".
    function part(document, path) {
        return path === "" ? document : path.split(" in ").reduceRight(function (item, name) {
            return only(candidates(item, name), name);
        }, document);
    }

    /// The same, but null instead of a failure when the path matches no item or more than one.
    function findPart(document, path) {
        return path === "" ? document : path.split(" in ").reduceRight(function (item, name) {
            var found = item ? candidates(item, name) : [];

            return found.length === 1 ? found[0] : null;
        }, document);
    }

    /// The items that match one step of a path: "text Oui" and the like by their text, "type Container" by type,
    /// "part topRow" by objectName, "shown groove" by objectName among visible items.
    function candidates(item, name) {
        var words = name.split(" ");
        var rest = words.slice(1).join(" ");

        switch (words[0]) {
        case "text": return where(item, function (each) {
                return isText(each) && each.text === rest.replace("{today}", todayShown());
            });
        case "picture": return where(item, function (each) { return isPicture(each, rest); });
        case "control": return namedAll(item, rest);
        case "type": return ofType(item, rest);
        case "part": return where(item, function (each) { return each.objectName === rest; });
        case "shown": return where(item, function (each) { return each.objectName === rest && each.visible; });
        case "item": return ofType(item, "PatientsItem").filter(function (each) { return each.text === rest; });
        case "row": return ofType(item, "PatientTableRow").filter(function (each) { return each.iname === rest; });
        case "title": return ofType(item, "TableTitle").filter(function (each) { return each.text === rest; });
        case "section": return ofType(item, "ContactSection").filter(function (each) { return each.heading === rest; });
        case "input": return where(item, isInput);
        case "menu": return menuItems(item).slice(words[2] - 1, words[2]);
        }
        fail("Unknown path: " + name);
    }

    /// The items of an item's menu.
    function menuItems(item) {
        return Array.prototype.slice.call(item.resources).reduce(function (found, each) {
            return each.items === undefined ? found : found.concat(Array.prototype.slice.call(each.items));
        }, []);
    }

    /// Whether the item is the TextInput inside a field.
    function isInput(item) {
        return item.hasOwnProperty("echoMode") && item.hasOwnProperty("cursorDelegate");
    }

    /// The value of a property by its dotted name; edges and centres are in document coordinates.
    function look(document, item, property) {
        switch (property) {
        case "left": return item.mapToItem(document, 0, 0).x;
        case "top": return item.mapToItem(document, 0, 0).y;
        case "right": return item.mapToItem(document, 0, 0).x + item.width;
        case "bottom": return item.mapToItem(document, 0, 0).y + item.height;
        case "centreX": return item.mapToItem(document, 0, 0).x + item.width / 2;
        case "centreY": return item.mapToItem(document, 0, 0).y + item.height / 2;
        case "points": return item.font.pointSize / point_factor;
        case "behavior": return behaviorText(item);
        case "rectangles": return ofType(item, "Rectangle").length;
        case "inputs": return where(item, isInput).length;
        case "menuItems": return menuItems(item).length;
        }
        return property.split(".").reduce(function (value, each) { return value[each]; }, item);
    }

    function behaviorText(item) {
        return Native.behaviors(item).map(function (each) {
            return [each.kind, each.duration, each.easing].join(" ");
        }).join(", ");
    }

    function spy(target, signalName) {
        var made = createTemporaryQmlObject("import QtTest 1.1; SignalSpy {}", testCase, "spy");

        made.target = target;
        made.signalName = signalName;
        verify(made.valid, signalName);
        return made;
    }

    function click(item) {
        mouseClick(item, item.width / 2, item.height / 2);
    }

    function hover(item) {
        mouseMove(item, item.width / 2, item.height / 2);
    }

    function hasFocus(item) {
        return Native.focusItem(item) === item;
    }

    /// Types a text into the focused item.
    function type(text) {
        text.split("").forEach(function (letter) { keyClick(letter); });
    }

    /// Replaces the store's patients with these; missing values get the table's defaults.
    function givenPatients(records) {
        load("Autocomplete", { visible: false });
        Native.rows("DELETE FROM Patients");
        records.forEach(function (record) {
            var names = Object.keys(record);

            Native.rows("INSERT INTO Patients (" + names.join() + ") VALUES ("
                        + names.map(function () { return "?"; }).join() + ")",
                        names.map(function (name) { return record[name]; }));
        });
    }

    /// The stored row with that id.
    function stored(id) {
        return Native.rows("SELECT * FROM Patients WHERE id = ?", [id])[0];
    }

    function today() {
        return "2014-05-12"; // see CMakeLists.txt
    }

    function todayShown() {
        return "12/05/2014";
    }
}
