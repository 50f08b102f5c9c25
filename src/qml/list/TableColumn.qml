import QtQuick 2.2

// One column of the patient table. Places and widths are fractions of the table's width.
QtObject {
    /// The objectName of its cells.
    property string key
    property string title
    property real width
    /// Where its left edge is; Columns sets it.
    property real left

    /// What the model keeps of a patient for it: the store's names, each with what stands for NULL.
    property var roles: ({})
    /// The text of a row's cell: text(row). A column without it has no text cells.
    property var text: null
    /// Whether a row's cell, which shows that text, is bold, and red in the list of the waiting: emphasised(row, text).
    property var emphasised: null

    property int alignment: Text.AlignHCenter
    property bool bold: false
    property real growth: 1.5
    property real points: 8
    /// How far a text may reach into the gap on either side.
    property real overhang: 0

    /// The title without its markup.
    readonly property string spokenTitle: title.replace("<br/>", " ").replace(/<[^>]*>/g, "")
}
