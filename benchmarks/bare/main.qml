import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import QtQuick.LocalStorage 2.0

Rectangle {
    color: "transparent"
    height: 174
    width: 275

    TextField {
        focus: true
        width: parent.width
    }
}
