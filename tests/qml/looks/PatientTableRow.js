// One row of the patient table. Its columns are fractions of its width of 798.
var type = "PatientTableRow";
var properties = { iid: "7", iname: "DUPONT Marie", icreated: "10/04/2014", iphone: "06 11 22 33 44" };
var coloured = { rowColor: "#111111", pairRowColor: "#222222", rowColorHovered: "#333333",
                 pairRowColorHovered: "#444444" };
var colouredPair = { rowColor: "#111111", pairRowColor: "#222222", rowColorHovered: "#333333",
                     pairRowColorHovered: "#444444", pair: true };
var answered = { itest: 1, itest_date: "2014-05-12", iconfirmation: 0, iconfirmation_date: "2014-05-12" };

var states = {
    "new patient": {},
    "new patient, red": { properties: { red: true } },
    "answered": { properties: answered },
    "ticked": { steps: [["set", "ichecked", true]] },
    "odd": { properties: coloured },
    "even": { properties: colouredPair },
    "odd, hovered": { properties: coloured, steps: [["hover", "control Ouvrir DUPONT Marie"]] },
    "even, hovered": { properties: colouredPair, steps: [["hover", "control Sélectionner DUPONT Marie"]] },
    "long name": { properties: { iname: "CHEVALIER Marie-Antoinette de la Tour du Pin" } }
};

var name = "part name";
var created = "part firstAppointment";
var phone = "part phone";

// state, item or items, {property: expected}
var rows = [
    ["new patient", "", { width: 798, height: 42, itest: 0, irdv1: 0, iconfirmation: 0, irdv2: 0, irdv3: 0,
     itest_date: null, idate1: null, iconfirmation_date: null, idate2: null, idate3: null, state: "base" }],
    ["new patient", "control Sélectionner DUPONT Marie", { left: 0, right: 39.9, height: 42 }],
    ["new patient", "control Ouvrir DUPONT Marie", { left: 39.9, right: 694.26, height: 42 }],
    ["new patient", "type TickMark", { centreX: 23.94, centreY: 21, width: 18, height: 18, radius: 2,
     color: "#ffffff" }],
    ["new patient", "picture tiny-tick.png", { visible: false }],
    ["new patient", name, { text: "DUPONT Marie", left: 47.88, width: 151.62, horizontalAlignment: Text.AlignLeft,
     centreY: 21, "font.bold": true, points: 9, color: "#002357", elide: Text.ElideRight, maximumLineCount: 1,
     textFormat: Text.PlainText }],
    ["new patient", created, { text: "10/04/2014", left: 211.47, width: 71.82, "font.bold": false, color: "#002357" }],
    ["new patient", "part test", { left: 295.26, width: 55.86, text: "?", "font.bold": true, color: "#002357" }],
    ["new patient", "part rdv1", { left: 363.09, width: 55.86, text: "" }],
    ["new patient", "part confirmation", { left: 430.92, width: 55.86, text: "" }],
    ["new patient", "part rdv2", { left: 498.75, width: 55.86, text: "" }],
    ["new patient", "part rdv3", { left: 566.58, width: 55.86, text: "" }],
    // A number may use the gaps beside its column, which is 71.82 wide.
    ["new patient", phone, { text: "06 11 22 33 44", left: 628.425, width: 83.79, centreX: 670.32,
     "font.bold": false, color: "#002357", truncated: false }],
    ["new patient", "type ButtonSMS", { left: 718.2, width: 71.82, height: 23.94, centreY: 21 }],
    ["new patient", "text Envoi SMS", { points: 8.4494 }],
    ["new patient", "type BorderImage", { width: 71.82 }],
    ["new patient", [created, "part test", "part rdv1", "part confirmation", "part rdv2", "part rdv3", phone], {
     horizontalAlignment: Text.AlignHCenter, points: 8 }],
    ["new patient, red", "part test", { color: "#e50000", "font.bold": true }],
    ["new patient, red", name, { color: "#002357" }],
    ["new patient, red", created, { color: "#002357" }],
    ["new patient, red", phone, { color: "#002357" }],
    ["answered", "part test", { text: "Oui", "font.bold": false, color: "#002357" }],
    ["answered", "part rdv1", { text: "-", "font.bold": false }],
    ["answered", "part confirmation", { text: "Non", "font.bold": false }],
    ["ticked", "type TickMark", { color: "#6888b9" }],
    ["ticked", "picture tiny-tick.png", { visible: true, centreX: ["centreX", "type TickMark", 0],
     centreY: ["centreY", "type TickMark", 0] }],
    ["odd", "", { color: "#111111" }],
    ["even", "", { color: "#222222" }],
    ["odd, hovered", "", { state: "hovered", color: "#333333" }],
    ["even, hovered", "", { state: "hovered", color: "#444444" }],
    ["long name", name, { truncated: true, lineCount: 1, width: 151.62 }]
];
