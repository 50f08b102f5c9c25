pragma Singleton
import QtQuick 2.2

// The titles of the patient table's columns: over them, and said of their cells by a screen reader.
QtObject {
    readonly property string patientName: qsTr("Nom du patient")
    readonly property string firstAppointment: qsTr("Date<br/>1<sup>er</sup> RDV")
    readonly property string test: qsTr("Tests<br/>cutanés")
    readonly property string workUp: qsTr("RDV bilan<br/>allergo.")
    readonly property string allergy: qsTr("Allergie<br/>confirmée")
    readonly property string firstIntake: qsTr("RDV<br/>1<sup>ère</sup> prise")
    readonly property string review: qsTr("RDV bilan<br/>fin de saison")
    readonly property string phone: qsTr("Téléphone")
    readonly property string sms: qsTr("Rappel SMS")

    /// A title without its markup.
    function spoken(title) {
        return title.replace("<br/>", " ").replace(/<[^>]*>/g, "");
    }
}
