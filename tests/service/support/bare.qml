import QtQuick 2.2

// A document without the functions and signals that the service uses.
Rectangle {
    height: 50
    width: 275
}
