import QtQuick 2.2
import "support"

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
            Native.holdAnimations();
        }

        function finish() {
            Native.releaseAnimations();
        }

        /// The list's horizontal offset, and the opacity of the search bar and the name bar.
        function shown() {
            return [listPane().anchors.leftMargin, searchBar().opacity, nameBar().opacity];
        }

        function test_changes_of_state_are_animated() {
            start();
            compare(main.transitions.length, 1);
            compare(Native.transitionAnimations(main.transitions[0]).map(function (each) {
                return [each.kind, each.duration, each.easing].join(" ");
            }), ["number 600 InOutQuad"]);
            givenPatients([{ id: 1, name: "DUPONT Marie" }]);
            main.openPatient("1");
            compare(shown(), [0, 1, 0]);
            Native.passTime(300);
            compare(shown(), [-137.5, 0.5, 0.5]);
            Native.passTime(150);
            compare(shown(), [-240.625, 0.125, 0.875]);
            Native.passTime(150);
            compare(shown(), [-275, 0, 1]);
        }

        function test_the_frame_animates_toward_its_height() {
            givenPatients([{ id: 1, name: "DUPONT" }]);
            start();
            search().text = "d";
            compare(frame().internalHeight, 326);
            compare(frame().height, 174);
            Native.passTime(300);
            compare(frame().height, 250);
            Native.passTime(300);
            compare(frame().height, 326);
        }

        function test_results_fade_in_and_out() {
            givenPatients([{ id: 1, name: "DUPONT" }]);
            start();
            search().text = "d";
            compare(results().opacity, 0);
            Native.passTime(250);
            compare(results().opacity, 0.5);
            Native.passTime(250);
            compare(results().opacity, 1);
            search().text = "";
            compare(results().opacity, 1);
            Native.passTime(250);
            compare(results().opacity, 0.5);
            Native.passTime(250);
            compare(results().opacity, 0);
            compare(results().visible, false);
        }
    }
}
