import QtQuick 2.2
import "base"
import "contact"
import "style"
import "../js/BuildSettings.js" as BuildSettings

// The contact popup: the brand's telephone, addresses and web sites.
Rectangle {
    id: root

    signal closeContact
    signal enableDragging

    color: Palette.transparent
    height: 450
    width: 500

    PopupContainer {
        anchors.fill: parent
        title: qsTr("Tandry")

        onClose: root.closeContact()
        onEnableDragging: root.enableDragging()

        DeferredLoader {
            anchors.fill: parent

            onShownChanged: loadNow()

            sourceComponent: Item {
                WidgetText {
                    id: pageTitle

                    anchors {
                        horizontalCenter: parent.horizontalCenter
                        top: parent.top
                        topMargin: 20
                    }
                    color: Palette.contactHeading
                    font.bold: true
                    maximumTextScale: 1.2
                    points: 25
                    text: qsTr("Contacts VESK")

                    Accessible.name: text
                    Accessible.role: Accessible.StaticText
                }

                Column {
                    anchors {
                        left: parent.left
                        leftMargin: 20
                        right: parent.right
                        rightMargin: 20
                        top: pageTitle.bottom
                        topMargin: 45
                    }
                    spacing: 20

                    ContactSection {
                        heading: qsTr("Pharmacovigilance")
                        height: 70
                        width: parent.width

                        ContactText {
                            text: BuildSettings.contactPhone
                        }
                        ContactText {
                            text: BuildSettings.pharmacovigilanceEmail
                        }
                    }
                    ContactSection {
                        heading: qsTr("Service client")
                        height: 80
                        width: parent.width

                        ContactText {
                            font.bold: false
                            maximumTextScale: 1.05
                            points: 9
                            text: qsTr("Du lundi au vendredi de 8h30 à 18h00 et le samedi de 9h00 à 12h00")
                        }
                        ContactText {
                            text: BuildSettings.contactPhone
                        }
                        ContactText {
                            text: BuildSettings.customerEmail
                        }
                    }
                    ContactSection {
                        heading: qsTr("Sites internet")
                        height: 70
                        width: parent.width

                        SiteLink {
                            site: BuildSettings.informationSite
                        }
                        SiteLink {
                            site: BuildSettings.brandSite
                        }
                    }
                }
            }
        }
    }
}
