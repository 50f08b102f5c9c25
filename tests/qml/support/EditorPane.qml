import QtQuick 2.2
import "qrc:/qml"

// The patient editor below its name bar, bound to it as in the main document.
Item {
    property alias detail: detail
    property alias nameBar: nameBar

    height: 760
    width: 275

    NameStatus {
        id: nameBar

        editable: !detail.missing
        width: parent.width
    }

    Detail {
        id: detail

        externalGenderMale: nameBar.genderMale
        externalName: nameBar.name
        nameStatus: nameBar
        y: 53
    }
}
