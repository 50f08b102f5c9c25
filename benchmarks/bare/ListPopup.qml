import QtQuick 2.2
import QtQuick.Controls 1.1
import QtQuick.Controls.Styles 1.1
import QtQuick.LocalStorage 2.0
import QtQuick.Window 2.2

Rectangle {
    color: "transparent"
    height: 650
    width: 800

    TextField {
        focus: true
        width: parent.width
    }
}
