import QtQuick 2.2
import QtQuick.Window 2.2

// Loads its content by itself soon after the start, after the first frame of a window that is shown: the widget appears
// without waiting for what cannot be seen yet, and no click waits for its loading. What the content is to know it is given
// in onLoaded: need() during the loading begins it anew, and the toolkit then forgets the properties of setSource().
Loader {
    id: root

    readonly property bool shown: Window.visibility !== Window.Hidden
    /// The window whose next frame starts the loading.
    property var awaited: null

    /// The content, loaded at once if it is not there yet.
    function need() {
        asynchronous = false;
        active = true;
        return item;
    }

    function awaitFrame() {
        awaited = Window.window;
        awaited.frameSwapped.connect(loadAfterFrame);
        awaited.update();
    }

    function loadAfterFrame() {
        stopAwaiting();
        active = true;
    }

    function stopAwaiting() {
        if (awaited) {
            awaited.frameSwapped.disconnect(loadAfterFrame);
            awaited = null;
        }
    }

    active: false
    asynchronous: true

    Component.onDestruction: stopAwaiting()

    Timer {
        // A window that is minimised or has just been hidden paints no frame.
        interval: root.awaited ? 500 : 100
        repeat: true
        running: !root.active

        onTriggered: root.shown && !root.awaited ? root.awaitFrame() : root.loadAfterFrame()
    }
}
