import QtQuick 2.2

Item {
    id: desk

    width: 400
    height: 760

    MainTestCase {
        name: "MainAnimations"
        stage: desk
        when: windowShown

        function prepare() {
            givenPatients([]);
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
