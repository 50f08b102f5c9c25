import QtQuick 2.2
import QtQuick.Window 2.2

// The program's contact popup imports no controls either.
Rectangle {
    color: "transparent"
    height: 450
    width: 500

    TextInput {
        width: parent.width
    }
}
