import QtQuick 2.2
import "support"

Item {
    id: desk

    width: 520
    height: 460

    DocumentTestCase {
        name: "ContactPopup"
        stage: desk
        when: windowShown

        function test_plain_lines_open_nothing() {
            var popup = load("ContactPopup");

            ["Pharmacovigilance", "Service client"].forEach(function (heading) {
                where(textItem(popup, heading).parent, isText).forEach(click);
            });
            click(textItem(popup, "Sites internet"));
            compare(Native.takeOpenedAddresses(), []);
        }

        function test_each_text_is_in_the_accessibility_tree_and_a_site_only_as_its_link() {
            var texts = where(load("ContactPopup"), isText);

            compare(texts.length, 12);
            texts.forEach(function (text) {
                var accessible = Native.accessible(text);

                compare([accessible.role, accessible.name], ["StaticText", text.text]);
                compare(text.Accessible.ignored, Native.typeName(text) === "SiteLink");
            });
        }

        function test_a_press_on_the_header_starts_dragging_at_once_data() {
            return [
                { tag: "left edge", x: 1, y: 1, drags: 1 },
                { tag: "title", x: 90, y: 28, drags: 1 },
                { tag: "extra area's end", x: 461, y: 40, drags: 1 },
                { tag: "beside the cross", x: 467, y: 21, drags: 0 },
                { tag: "cross", x: 480, y: 21, drags: 0 },
                { tag: "content", x: 100, y: 44, drags: 0 }
            ];
        }

        function test_a_press_on_the_header_starts_dragging_at_once(data) {
            var popup = load("ContactPopup");
            var dragged = spy(popup, "enableDragging");

            mousePress(popup, data.x, data.y);
            compare(dragged.count, data.drags);
            mouseRelease(popup, data.x, data.y);
        }
    }
}
