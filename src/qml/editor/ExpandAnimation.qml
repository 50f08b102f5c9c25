import QtQuick 2.2
import "../style"

// The animation by which parts of the editor expand and collapse.
SmoothedAnimation {
    duration: Metrics.expandDuration
    easing.type: Easing.InOutQuad
    velocity: -1
}
