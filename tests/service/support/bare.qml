import QtQuick 2.2

// A document that offers the service nothing.
Rectangle {
    height: 50
    width: 275
}
