import QtQuick 2.2
import QtQuick.Window 2.2

// Loads its content when its window is first shown: the program's start does not wait for what nobody sees yet.
Loader {
    readonly property bool shown: Window.visibility !== Window.Hidden

    active: false

    onShownChanged: active = true
}
