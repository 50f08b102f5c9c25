import QtQuick 2.2
import QtQuick.Window 2.2

// The contact popup imports no controls.
Rectangle {
    color: "transparent"
    height: 450
    width: 500

    TextInput {
        width: parent.width
    }
}
