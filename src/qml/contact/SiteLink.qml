import QtQuick 2.2
import "../base"

// The host name of a web site, which opens that site.
ContactText {
    id: root

    property string site

    text: site

    // The link below has the same name.
    Accessible.ignored: true

    Clickable {
        anchors {
            fill: parent
            margins: -2
        }
        name: root.site

        onTriggered: Qt.openUrlExternally("http://" + root.site)

        Accessible.role: Accessible.Link
    }
}
