import QtQuick 2.2

// One column of the patient table. Places and widths are fractions of the table's width.
QtObject {
    /// The objectName of its cells.
    property string key
    property string title
    property real width
    /// The left edge; Columns sets it.
    property real left

    /// The model's roles for it: names of the store, each with the value that stands for NULL.
    property var roles: ({})
    /// text(row): the text of a row's cell; null in a column without text cells.
    property var text: null
    /// emphasised(row, text): whether a row's cell is bold, and red in the list of the waiting.
    property var emphasised: null

    property int alignment: Text.AlignHCenter
    property bool bold: false
    property real maximumTextScale: 1.5
    property real points: 8
    /// How far a text may extend into the gap on either side.
    property real overhang: 0

    /// The title without its markup.
    readonly property string spokenTitle: title.replace("<br/>", " ").replace(/<[^>]*>/g, "")
}
