import QtQuick 2.2
import "base"
import "style"

// The title of one column of the patient table. A title may be wider than its column, it then uses the gaps beside it.
Item {
    property alias text: title.text

    height: parent ? parent.height : 0

    WidgetText {
        id: title

        anchors.centerIn: parent
        color: Palette.white
        font.bold: true
        growth: 1
        horizontalAlignment: Text.AlignHCenter
        points: 8
        textFormat: Text.RichText

        Accessible.name: Columns.spoken(text)
        Accessible.role: Accessible.StaticText
    }
}
