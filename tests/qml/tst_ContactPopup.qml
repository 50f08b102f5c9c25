import QtQuick 2.2

Item {
    id: desk

    width: 520
    height: 460

    DocumentTestCase {
        name: "ContactPopup"
        stage: desk
        when: windowShown

        readonly property string hours: "Du lundi au vendredi de 8h30 à 18h00 et le samedi de 9h00 à 12h00"
        readonly property string phone: "01 99 00 00 00"
        readonly property string email: "pharmacovigilance@olmeric.example"
        readonly property string clientEmail: "service.client@olmeric.example"
        readonly property string informationSite: "www.allergies-info.example"
        readonly property string brandSite: "www.vesk.example"

        function test_look_data() {
            var rows = [
                ["", "", "width", 500],
                ["", "", "height", 450],
                ["", "", "color", "#00000000"],
                ["", "text Tandry", "color", "#7c879c"],
                ["", "parent of text Contacts VESK", "left", 1],
                ["", "parent of text Contacts VESK", "top", 42],
                ["", "parent of text Contacts VESK", "height", 403],
                ["", "parent of text Contacts VESK", "width", 498],
                ["", "parent of text Contacts VESK", "color", "#f0f0f0"],
                ["", "parent of text Contacts VESK", "clip", true],
                ["", "text Contacts VESK", "top", 62],
                ["", "text Contacts VESK", "font.bold", true],
                ["", "text Contacts VESK", "font.pointSize", 32.5],
                ["", "text Contacts VESK", "color", "#002257"],
                ["", "parent of text Pharmacovigilance", "left", 21],
                ["", "parent of text Pharmacovigilance", "right", 479],
                ["", "parent of text Pharmacovigilance", "height", 70],
                ["", "parent of text Service client", "left", 21],
                ["", "parent of text Service client", "right", 479],
                ["", "parent of text Service client", "height", 80],
                ["", "parent of text Sites internet", "left", 21],
                ["", "parent of text Sites internet", "right", 479],
                ["", "parent of text Sites internet", "height", 70],
                ["", "text " + hours, "font.bold", false],
                ["", "text " + hours, "font.pointSize", 11.7],
                ["", "text " + hours, "color", "#405b82"],
                ["", "text " + hours, "left", 71],
                ["", "control " + informationSite, "cursorShape", Qt.PointingHandCursor],
                ["", "control " + brandSite, "cursorShape", Qt.PointingHandCursor]
            ];

            ["Pharmacovigilance", "Service client", "Sites internet"].forEach(function (heading) {
                rows.push(["", "text " + heading, "font.bold", false]);
                rows.push(["", "text " + heading, "font.pointSize", 15.6]);
                rows.push(["", "text " + heading, "color", "#002257"]);
                rows.push(["", "text " + heading, "left", 21]);
            });
            [email, clientEmail, informationSite, brandSite].forEach(function (line) {
                rows.push(["", "text " + line, "font.bold", true]);
                rows.push(["", "text " + line, "font.family", "Arial"]);
                rows.push(["", "text " + line, "font.pointSize", 13]);
                rows.push(["", "text " + line, "color", "#405b82"]);
                rows.push(["", "text " + line, "renderType", Text.NativeRendering]);
                rows.push(["", "text " + line, "left", 71]);
            });
            return lookRows(rows);
        }

        function test_look(data) {
            compareLook(load("ContactPopup"), data);
        }

        function test_sections_follow_each_other() {
            var popup = load("ContactPopup");
            var bottom = look(popup, textItem(popup, "Contacts VESK"), "bottom");

            compare(look(popup, textItem(popup, "Pharmacovigilance"), "top"), bottom + 45);
            compare(look(popup, textItem(popup, "Service client"), "top"), bottom + 45 + 70 + 20);
            compare(look(popup, textItem(popup, "Sites internet"), "top"), bottom + 45 + 70 + 20 + 80 + 20);
        }

        function test_lines_follow_their_heading_5_apart_and_fit_data() {
            return [
                { tag: "Pharmacovigilance", lines: [phone, email] },
                { tag: "Service client", lines: [hours, phone, clientEmail] },
                { tag: "Sites internet", lines: [informationSite, brandSite] }
            ];
        }

        function test_lines_follow_their_heading_5_apart_and_fit(data) {
            var popup = load("ContactPopup");
            var section = textItem(popup, data.tag).parent;
            var texts = where(section, isText);

            compare(texts.map(function (each) { return each.text; }), [data.tag].concat(data.lines));
            texts.slice(1).forEach(function (each, index) {
                compare(look(popup, each, "top"), look(popup, texts[index], "bottom") + 5);
                verify(look(section, each, "bottom") <= section.height);
                verify(look(section, each, "right") <= section.width);
            });
        }

        function test_title_is_centred() {
            var popup = load("ContactPopup");
            var text = textItem(popup, "Contacts VESK");

            fuzzyCompare(look(popup, text, "left") + text.width / 2, 250, 1);
        }

        function test_a_site_opens_in_the_browser_data() {
            return [
                { tag: "information, mouse", site: informationSite },
                { tag: "information, Return", site: informationSite, key: Qt.Key_Return },
                { tag: "brand, mouse", site: brandSite },
                { tag: "brand, Space", site: brandSite, key: Qt.Key_Space },
                { tag: "brand, press action", site: brandSite, press: true }
            ];
        }

        function test_a_site_opens_in_the_browser(data) {
            var link = named(load("ContactPopup"), data.site);

            compare(Native.accessible(link).role, "Link");
            if (data.press) {
                verify(Native.press(link));
            } else if (data.key) {
                link.forceActiveFocus();
                keyClick(data.key);
            } else {
                click(link);
            }
            compare(Native.takeOpenedAddresses(), ["http://" + data.site]);
        }

        function test_plain_lines_open_nothing() {
            var popup = load("ContactPopup");

            ["Pharmacovigilance", "Service client"].forEach(function (heading) {
                where(textItem(popup, heading).parent, isText).forEach(click);
            });
            click(textItem(popup, "Sites internet"));
            compare(Native.takeOpenedAddresses(), []);
        }

        function test_the_cross_closes() {
            var popup = load("ContactPopup");
            var closed = spy(popup, "closeContact");
            var dragged = spy(popup, "enableDragging");

            click(named(popup, "Fermer"));
            compare(closed.count, 1);
            compare(dragged.count, 0);
        }

        function test_a_press_on_the_header_drags_at_once_data() {
            return [
                { tag: "left edge", x: 1, y: 1, drags: 1 },
                { tag: "title", x: 90, y: 28, drags: 1 },
                { tag: "extra area's end", x: 461, y: 40, drags: 1 },
                { tag: "beside the cross", x: 467, y: 21, drags: 0 },
                { tag: "content", x: 100, y: 44, drags: 0 }
            ];
        }

        function test_a_press_on_the_header_drags_at_once(data) {
            var popup = load("ContactPopup");
            var dragged = spy(popup, "enableDragging");

            mousePress(popup, data.x, data.y);
            compare(dragged.count, data.drags);
            mouseRelease(popup, data.x, data.y);
        }
    }
}
