// The patient editor below its name bar. Each patient has reached a different step of the pathway.
var type = "Detail";
var properties = {};
var patients = [
    { id: 1, name: "DUPONT Marie", genderMale: 1, phone: "0612", created: "2014-04-10" },
    { id: 2, name: "DURAND Paul", created: "2014-04-10", test: 0, test_date: "2014-05-01", rdv1: 1,
      date1: "2014-05-02" },
    { id: 3, name: "MARTIN Anne", created: "2014-04-10", test: 1, test_date: "2014-05-01", confirmation: 1,
      confirmation_date: "2014-05-02", rdv2: 1, date2: "2014-05-03" }
];
var edited = [["call", "load", "1", ""], ["type", "control Téléphone", "07"],
              ["until", "type PatientFields", "height", 138]];
var emptied = [["call", "load", "1", ""], ["set", "nameStatus.name", ""]];
var validate = ["hover", "part validate"];

var states = {
    "stored": { steps: [["call", "load", "1", ""]] },
    "new": { steps: [["call", "load", "", ""]] },
    "edited, save hovered": { steps: edited.concat([validate]) },
    "edited, cancel hovered": { steps: edited.concat([["hover", "part cancel"]]) },
    "new, named": { steps: [["call", "load", "", "DUPONT"]] },
    "new, named, then not": { steps: [["call", "load", "", "DUPONT"], ["set", "nameStatus.name", ""]] },
    "emptied": { steps: emptied },
    "emptied, hovered": { steps: emptied.concat([["until", "type PatientFields", "height", 138], validate]) },
    "gate 1 open": { steps: [["call", "load", "2", ""]] },
    "gate 1 closed": { steps: [["set", "stepPassed", false], ["call", "load", "2", ""]] },
    "gate 2 open": { steps: [["call", "load", "3", ""]] },
    "gate 2 closed": { steps: [["set", "step2Passed", false], ["call", "load", "3", ""]] },
    "gate 2 hovered": { steps: [["set", "step2Passed", false], ["call", "load", "3", ""],
                                ["until", "part gate2", "height", 38], ["until", "part rdv2", "height", 100],
                                ["until", "part test", "height", 60], ["hover", "part gate2"]] }
};

var fields = "type PatientFields";
var dateLabel = "text Date du 1<sup>er</sup> rendez-vous :";
var gate1 = "text Si vous avez les résultats du bilan,<br/>cliquez ici";
var gate2 = "text Si la 1<sup>ère</sup> prise au cabinet a été effectuée,<br/>cliquez ici";
var question1 = "text Avez-vous pratiqué des tests cutanés sur le patient ?";
var question2 = "text Le patient souhaite-t-il prendre rdv pour son bilan allergologique ?";
var question3 = "text Confirmation de l'allergie au pollen de graminés ?";
var question4 = "text Le patient souhaite-t-il prendre rdv pour la première prise au cabinet ?";
var question5 = "text Le patient souhaite-t-il prendre rdv pour son bilan de fin de saison ?";
var shortAnswer = "part shortAnswer in part ";

// state, item or items, {property: expected}
var rows = [
    ["stored", "", { width: 275, height: 239, state: "base" }],
    ["stored", fields, { top: 0, left: 0, width: 275, height: 100, color: "#f0f0f0", clip: true,
     behavior: "smoothed 300 InOutQuad", inputs: 1 }],
    ["stored", "picture phone.png", { centreX: 22, centreY: ["centreY", "text Téléphone :", 0] }],
    ["stored", "text Téléphone :", { left: 42, points: 10, bottom: ["<=", "top", dateLabel] }],
    ["stored", "input in control Téléphone", { text: "0612", "font.bold": true, points: 11, color: "#405b82" }],
    ["stored", "control Téléphone", { placeholderText: "06...", maximumLength: 14,
     centreY: ["centreY", "text Téléphone :", 0], left: ["right", "text Téléphone :", 8], right: 265, rectangles: 0 }],
    ["stored", "picture calendar.png", { centreX: 22 }],
    ["stored", dateLabel, { left: 42, points: 10, textFormat: Text.RichText, bottom: ["top", "text 10/04/2014", 0] }],
    ["stored", "text 10/04/2014", { "font.bold": true, bottom: 89, left: ["left", dateLabel, 0] }],
    ["stored", "part validate", { visible: false }],
    ["stored", "part cancel", { visible: false }],
    ["stored", "part test", { top: 101, left: 0, width: 275, height: 100 }],
    ["stored", "picture next.png in part test", { rotation: 90 }],
    ["stored", "type SMSSend", { left: 0, width: 275, top: 201, height: 38 }],
    ["stored", ["picture phone.png", "picture calendar.png", question1 + " in part test",
                "text Oui in control Oui in part test", "text Non in control Non in part test",
                "text Envoyer le SMS de rappel", "picture next-white.png"], { visible: true }],
    ["stored", ["part rdv1", "part confirmation", "part rdv2", "part rdv3", "part gate1", "part gate2"], { height: 0 }],
    ["new", "text 06... in control Téléphone", { visible: true }],
    ["new", "", { height: 100 }],
    ["new", fields, { height: 100 }],
    ["new", "text {today}", { "font.bold": true, points: 11 }],
    ["new", "part test", { height: 0 }],
    ["new", "type SMSSend", { height: 0 }],
    ["new", "part validate", { text: "Enregistrer", disabled: true }],
    ["edited, cancel hovered", "", { state: "buttons", height: 176 }],
    ["edited, cancel hovered", fields, { height: 138 }],
    ["edited, cancel hovered", "text 10/04/2014", { bottom: 89 }],
    ["edited, cancel hovered", "part validate", { visible: true, left: 0, top: 100, height: 38, centreX: 68.75,
     color: "#68c268", disabledBackgroundColor: "#a9a9a9" }],
    ["edited, cancel hovered", "text Enregistrer", { color: "#ffffff", "font.bold": true,
     left: ["right", "picture yes-white.png", 20] }],
    ["edited, cancel hovered", "picture yes-white.png", { left: 14, visible: true }],
    ["edited, cancel hovered", "part cancel", { left: ["right", "part validate", 0], right: 275, top: 100, height: 38,
     image: "", color: "#5b5b5b" }],
    ["edited, cancel hovered", "text Annuler", { "font.bold": false, horizontalAlignment: Text.AlignHCenter }],
    ["edited, cancel hovered", "part test", { height: 0 }],
    ["edited, cancel hovered", "type SMSSend", { top: 138, height: 38 }],
    ["edited, save hovered", "part validate", { color: "#4ac74a" }],
    ["edited, save hovered", "part cancel", { color: "#7d7d7d" }],
    ["new, named", "part validate", { text: "Enregistrer", color: "#68c268", disabled: false }],
    ["new, named", "", { height: 138 }],
    ["new, named, then not", "part validate", { text: "Enregistrer", color: "#a9a9a9" }],
    ["new, named, then not", "picture yes-white.png", { visible: true }],
    ["emptied", "text Supprimer", { color: "#ffffff", "font.bold": true }],
    ["emptied", "part validate", { color: "#f04014" }],
    ["emptied", "picture no-white.png", { visible: true, left: 14 }],
    ["emptied, hovered", "part validate", { color: "#da1f0a" }],
    ["gate 1 open", question1 + " in part test", { visible: true }],
    ["gate 1 open", shortAnswer + "test", { opacity: 1 }],
    ["gate 1 open", "part test", { height: 60 }],
    ["gate 1 open", question2 + " in part rdv1", { visible: true }],
    ["gate 1 open", "part rdv1", { top: 161, height: 60 }],
    ["gate 1 open", shortAnswer + "rdv1", { opacity: 1 }],
    ["gate 1 open", "part gate1", { height: 0 }],
    ["gate 1 open", question3 + " in part confirmation", { visible: true }],
    ["gate 1 open", "part confirmation", { top: 221, height: 100 }],
    ["gate 1 open", "text Oui in control Oui in part confirmation", { visible: true }],
    ["gate 1 open", "text Non in control Non in part confirmation", { visible: true }],
    ["gate 1 open", "picture next.png in part rdv1", { rotation: 0 }],
    ["gate 1 open", "picture next.png in part confirmation", { rotation: 90 }],
    ["gate 1 open", "type SMSSend", { top: 321 }],
    ["gate 1 closed", "part test", { height: 60 }],
    ["gate 1 closed", "part rdv1", { height: 100 }],
    ["gate 1 closed", "text Oui in control Oui in part rdv1", { visible: true }],
    ["gate 1 closed", "text Non in control Non in part rdv1", { visible: true }],
    ["gate 1 closed", "picture tiny-tick.png in control Oui in part rdv1", { visible: true }],
    ["gate 1 closed", gate1 + " in part gate1", { visible: true, "font.bold": true, centreX: 137.5 }],
    ["gate 1 closed", "part gate1", { top: 261, width: 275, height: 38 }],
    ["gate 1 closed", "part confirmation", { height: 0 }],
    ["gate 1 closed", "type SMSSend", { top: 299 }],
    ["gate 2 open", shortAnswer + "test", { opacity: 1 }],
    ["gate 2 open", shortAnswer + "confirmation", { opacity: 1 }],
    ["gate 2 open", "part rdv1", { height: 0 }],
    ["gate 2 open", "part confirmation", { top: 161 }],
    ["gate 2 open", question4 + " in part rdv2", { visible: true }],
    ["gate 2 open", "part rdv2", { top: 221 }],
    ["gate 2 open", shortAnswer + "rdv2", { opacity: 1 }],
    ["gate 2 open", "picture next.png in part rdv2", { rotation: 0 }],
    ["gate 2 open", "part gate2", { height: 0 }],
    ["gate 2 open", question5 + " in part rdv3", { visible: true }],
    ["gate 2 open", "part rdv3", { top: 281, height: 100 }],
    ["gate 2 open", "text Oui in control Oui in part rdv3", { visible: true }],
    ["gate 2 open", "text Non in control Non in part rdv3", { visible: true }],
    ["gate 2 open", "picture next.png in part rdv3", { rotation: 90 }],
    ["gate 2 open", "type SMSSend", { top: 381 }],
    ["gate 2 closed", "part rdv2", { height: 100 }],
    ["gate 2 closed", "text Oui in control Oui in part rdv2", { visible: true }],
    ["gate 2 closed", "text Non in control Non in part rdv2", { visible: true }],
    ["gate 2 closed", "picture tiny-tick.png in control Oui in part rdv2", { visible: true }],
    ["gate 2 closed", gate2 + " in part gate2", { visible: true, "font.bold": true, opacity: 1 }],
    ["gate 2 closed", "part gate2", { top: 321, width: 275, height: 38 }],
    ["gate 2 closed", "part rdv3", { height: 0 }],
    ["gate 2 closed", "type SMSSend", { top: 359 }],
    ["gate 2 hovered", gate2 + " in part gate2", { opacity: 0.7 }]
];
