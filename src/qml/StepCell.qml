import QtQuick 2.2
import "base"
import "style"

// The cell of one step of the pathway: bold when it wants attention, and red too where the list is the waiting one.
TableCell {
    property bool emphasised: false
    property bool red: false

    color: emphasised && red ? Palette.tableEmphasis : Palette.tableText
    font.bold: emphasised
}
