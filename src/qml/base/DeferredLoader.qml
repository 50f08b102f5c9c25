import QtQuick 2.2
import QtQuick.Window 2.2

// Loads its content after the first frame of its window, or soon after the start in a hidden one: the window appears
// without waiting for what cannot be seen yet, and no click waits for a load. Set the content's properties in onLoaded:
// loadNow() restarts a load that is under way, and the toolkit then loses the properties of setSource().
Loader {
    id: root

    readonly property bool shown: Window.visibility !== Window.Hidden
    /// The window whose next frame starts the loading.
    property var awaitedWindow: null

    /// Loads the content at once, if it is not there yet, and returns it.
    function loadNow() {
        asynchronous = false;
        active = true;
        return item;
    }

    function waitForFrame() {
        awaitedWindow = Window.window;
        awaitedWindow.frameSwapped.connect(loadAfterFrame);
        awaitedWindow.update();
    }

    function loadAfterFrame() {
        stopWaiting();
        active = true;
    }

    function stopWaiting() {
        if (awaitedWindow) {
            awaitedWindow.frameSwapped.disconnect(loadAfterFrame);
            awaitedWindow = null;
        }
    }

    active: false
    asynchronous: true

    Component.onDestruction: stopWaiting()

    Timer {
        // A fallback: a window that is minimised or has just been hidden paints no frame.
        interval: root.awaitedWindow ? 500 : 100
        repeat: true
        running: !root.active

        onTriggered: root.shown && !root.awaitedWindow ? root.waitForFrame() : root.loadAfterFrame()
    }
}
