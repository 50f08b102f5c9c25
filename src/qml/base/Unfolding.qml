import QtQuick 2.2
import "../style"

// How the parts of the editor unfold and fold.
SmoothedAnimation {
    duration: Metrics.unfoldDuration
    easing.type: Easing.InOutQuad
    velocity: -1
}
