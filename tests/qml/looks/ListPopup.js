// The patient list: two of its four patients are waiting, the first of them without an answer.
var type = "ListPopup";
var properties = {};
var patients = [
    { name: "A", created: "2014-04-10", notification_date: "2014-05-12" },
    { name: "B", created: "2014-04-10", notification_date: "2014-05-12", test: 0, test_date: "2014-05-01", rdv1: 0,
      date1: "2014-05-02" },
    { name: "C", created: "2014-04-10", notification_date: "2050-01-01" },
    { name: "D", created: "2014-04-10", notification_date: "2050-01-01" }
];
var many = "ABCDEFGHIJKLMNOPQRST".split("").map(function (name) {
    return { name: name, created: "2014-04-10", notification_date: "2014-05-12" };
});
var allTab = ["click", "part allTab"];
var elsewhere = ["hover", "text Nom du patient"];

var states = {
    "waiting tab": {},
    "no patient waits": { patients: [] },
    "more than fit wait": { patients: many },
    "waiting tab, its tab hovered": { steps: [["hover", "part waitingTab"]] },
    "waiting tab, other tab hovered": { steps: [["hover", "part allTab"]] },
    "waiting tab, selected": { steps: [["click", "control Tout sélectionner"], elsewhere] },
    "waiting tab, even row hovered": { steps: [["hover", "control Ouvrir A"]] },
    "waiting tab, odd row hovered": { steps: [["hover", "control Ouvrir B"]] },
    "all tab": { steps: [allTab, elsewhere] },
    "all tab, other tab hovered": { steps: [allTab, ["hover", "part waitingTab"]] },
    "all tab, even row hovered": { steps: [allTab, ["hover", "control Ouvrir C"]] },
    "all tab, odd row hovered": { steps: [allTab, ["hover", "control Ouvrir D"]] },
    "cross hovered": { steps: [["hover", "control Fermer"]] },
    "trash hovered": { steps: [["hover", "control Supprimer les patients sélectionnés"]] },
    "print hovered": { steps: [["hover", "control Imprimer"]] }
};

var frame = "type PopupContainer";
var extra = "part headerArea";
var content = "part contentArea";
var trash = "control Supprimer les patients sélectionnés";
var printBar = "part printBar";
var rowA = "row A";
var rowB = "row B";
var rowC = "row C";
var rowD = "row D";
var created = "text Date<br/>1<sup>er</sup> RDV";
var tests = "text Tests<br/>cutanés";
var workUp = "text RDV bilan<br/>allergo.";
var allergy = "text Allergie<br/>confirmée";
var intake = "text RDV<br/>1<sup>ère</sup> prise";
var review = "text RDV bilan<br/>fin de saison";

// state, item or items, {property: expected}
var rows = [
    ["waiting tab", "", { width: 800, height: 650, color: "#00000000", number: 2 }],
    ["waiting tab", frame, { left: 0, top: 0, width: 800, height: 650, color: "#002457", radius: 4, "border.width": 1,
     "border.color": "#ffffff", noFooterBorder: true }],
    ["waiting tab", "picture logo-vesk.jpg", { left: 10, centreY: 21 }],
    ["waiting tab", "text Tandry", { color: "#7c879c", points: 9, "font.bold": false,
     bottom: ["bottom", "picture logo-vesk.jpg", -2], left: [">=", "right", "picture logo-vesk.jpg"] }],
    ["waiting tab", extra, { left: ["right", "text Tandry", 10], right: ["left", "control Fermer", -10], top: 5,
     bottom: 37 }],
    ["waiting tab", "control Fermer", { right: 788, centreY: 21, cursorShape: Qt.PointingHandCursor }],
    ["waiting tab", "picture cross.png", { right: 788, centreY: 21, opacity: 1 }],
    ["waiting tab", content, { right: 799, top: 42, height: 608, color: "#f0f0f0", clip: true }],
    ["waiting tab", "part waitingTab", { top: 42, width: 399, height: 42, color: "#f8f8f8" }],
    ["waiting tab", "part allTab", { left: 400, right: 799, top: 42, height: 42, color: "#c8dcfc" }],
    ["waiting tab", ["control Fermer", "control Tout sélectionner", "control Imprimer", trash], { focusColor: "#ffffff" }],
    ["waiting tab", "control Patients en attente", { cursorShape: Qt.ArrowCursor }],
    ["waiting tab", "control Liste de tous les patients", { cursorShape: Qt.PointingHandCursor }],
    ["waiting tab", "text Patients en attente", { points: 11, centreX: 200.5, centreY: 63 }],
    ["waiting tab", "text Liste de tous les patients", { points: 11, centreX: 599.5, centreY: 63 }],
    ["waiting tab", "type WaitingBadge", { source: "qrc:/images/counter-big.png", status: Image.Ready, width: 24,
     height: 24, opacity: 1, right: ["left", "text Patients en attente", -5], centreY: 63 }],
    ["waiting tab", "text 2", { points: 9, centreX: ["centreX", "type WaitingBadge", 0],
     centreY: ["centreY", "type WaitingBadge", 0] }],
    ["waiting tab", "type TableHeader", { top: 84, width: 798, height: 53, color: "#e44d5f" }],
    ["waiting tab", "control Tout sélectionner", { left: 12.97, width: 23.94, top: 84, height: 53 }],
    ["waiting tab", "type TickMark in control Tout sélectionner", { centreX: 24.94, radius: 2, "border.width": 0 }],
    ["waiting tab", "type TickMark in control Sélectionner A", { "border.width": 1 }],
    ["waiting tab", "picture tiny-tick.png in control Tout sélectionner", { visible: false }],
    ["waiting tab", "title Nom du patient", { left: 48.88, width: 151.62 }],
    ["waiting tab", "text Nom du patient", { centreX: 124.69 }],
    ["waiting tab", "title Date<br/>1<sup>er</sup> RDV", { left: 212.47, width: 71.82 }],
    ["waiting tab", created, { centreX: 248.38 }],
    ["waiting tab", "title Tests<br/>cutanés", { left: 296.26, width: 55.86 }],
    ["waiting tab", tests, { centreX: 324.19 }],
    ["waiting tab", "title RDV bilan<br/>allergo.", { left: 364.09, width: 55.86 }],
    ["waiting tab", workUp, { centreX: 392.02 }],
    ["waiting tab", "title Allergie<br/>confirmée", { left: 431.92, width: 55.86 }],
    ["waiting tab", allergy, { centreX: 459.85 }],
    ["waiting tab", "title RDV<br/>1<sup>ère</sup> prise", { left: 499.75, width: 55.86 }],
    ["waiting tab", intake, { centreX: 527.68 }],
    ["waiting tab", "title RDV bilan<br/>fin de saison", { left: 567.58, width: 55.86 }],
    ["waiting tab", review, { centreX: 595.51 }],
    ["waiting tab", "title Téléphone", { left: 635.41, width: 71.82 }],
    ["waiting tab", "text Téléphone", { centreX: 671.32 }],
    ["waiting tab", "title Rappel SMS", { left: 719.2, width: 71.82 }],
    ["waiting tab", "text Rappel SMS", { centreX: 755.11 }],
    ["waiting tab", "type PatientTable", { top: 137, bottom: 607, width: 798, color: "#f9f9f9" }],
    ["waiting tab", rowA, { top: 137, width: 798, height: 42, color: "#ffeff1", red: true }],
    ["waiting tab", rowB, { top: 179, color: "#fcdfdf" }],
    ["waiting tab", "part test in " + rowA, { text: "?", color: "#e50000" }],
    ["waiting tab", "part test in " + rowB, { text: "Non", "font.bold": false }],
    ["waiting tab", "part rdv1 in " + rowB, { text: "Non", color: "#e50000" }],
    ["waiting tab", "shown groove", { width: 4, right: 799, top: 137, bottom: 607 }],
    ["waiting tab", "shown handle", { width: 4 }],
    ["waiting tab", "shown handleMark", { width: 2, height: 2, centreX: ["centreX", "shown handle", 0],
     centreY: ["centreY", "shown handle", 0] }],
    ["waiting tab", "type ThinScrollView", { "__style.handleOverlap": 1, "__style.minimumHandleLength": 0,
     "__style.transientScrollBars": false, "__style.decrementControl": null, "__style.incrementControl": null }],
    ["waiting tab", "type TableFooter", { width: 798, height: 42, bottom: 649, color: "#009cff" }],
    ["waiting tab", printBar, { right: 757, top: 609, bottom: 649, color: "#002457" }],
    ["waiting tab", "control Imprimer", { right: 757, top: 609, bottom: 649, cursorShape: Qt.PointingHandCursor }],
    ["waiting tab", "picture printer.png", { centreY: 629 }],
    ["waiting tab", "part printGroup", { centreX: 379, opacity: 1 }],
    ["waiting tab", "text Imprimer", { left: ["right", "picture printer.png", 5],
     right: ["right", "part printGroup", 0], centreY: 629, points: 11 }],
    ["waiting tab", trash, { left: 757, right: 799, top: 607, bottom: 649, cursorShape: Qt.PointingHandCursor }],
    ["waiting tab", "picture trash.png", { centreX: 778, centreY: 628, opacity: 1 }],
    ["waiting tab", [content, "part waitingTab", "type TableHeader", "type PatientTable", rowA, "type TableFooter",
                     printBar, "control Imprimer"], { left: 1 }],
    ["waiting tab", ["text Patients en attente", "text Liste de tous les patients", "text A", "text B",
                     "text 10/04/2014 in " + rowA, "text 10/04/2014 in " + rowB, "text Envoi SMS in " + rowA,
                     "text Envoi SMS in " + rowB, "part test in " + rowB], { color: "#002357" }],
    ["waiting tab", ["text Patients en attente", "text Liste de tous les patients", "text 2", "text Nom du patient",
                     created, tests, workUp, allergy, intake, review, "text Téléphone", "text Rappel SMS",
                     "part test in " + rowA, "part rdv1 in " + rowB, "text Imprimer"], { "font.bold": true }],
    ["waiting tab", ["text 2", "type TickMark in control Tout sélectionner", "text Nom du patient", created, tests,
                     workUp, allergy, intake, review, "text Téléphone", "text Rappel SMS", "text Imprimer"], {
     color: "#ffffff" }],
    ["waiting tab", ["type TickMark in control Tout sélectionner", "text Nom du patient", created, tests, workUp,
                     allergy, intake, review, "text Téléphone", "text Rappel SMS"], { centreY: 110.5 }],
    ["waiting tab", ["type TickMark in control Tout sélectionner", "picture printer.png", "picture trash.png"], {
     width: 18, height: 18 }],
    ["waiting tab", ["text Nom du patient", created, tests, workUp, allergy, intake, review, "text Téléphone",
                     "text Rappel SMS"], { points: 8, textFormat: Text.RichText }],
    ["waiting tab", ["text Nom du patient", created, tests, workUp, allergy, intake, review], {
     horizontalAlignment: Text.AlignHCenter }],
    ["cross hovered", "picture cross.png", { opacity: 0.66 }],
    ["waiting tab, its tab hovered", "part waitingTab", { color: "#f8f8f8" }],
    ["waiting tab, other tab hovered", "part allTab", { color: "#b0ccfd" }],
    ["all tab", "part waitingTab", { color: "#fcbbc3" }],
    ["all tab", "part allTab", { color: "#f9f9f9" }],
    ["all tab", "control Patients en attente", { cursorShape: Qt.PointingHandCursor }],
    ["all tab", "control Liste de tous les patients", { cursorShape: Qt.ArrowCursor }],
    ["all tab", "type TableHeader", { color: "#6888ba" }],
    ["all tab", "type PatientTable", { color: "#c0cded" }],
    ["all tab", rowA, { color: "#f9f9f9", red: false }],
    ["all tab", rowB, { color: "#e5e8ed" }],
    ["all tab", rowC, { top: 221, color: "#f9f9f9" }],
    ["all tab", rowD, { top: 263, color: "#e5e8ed" }],
    ["all tab", "part test in " + rowA, { "font.bold": true }],
    ["all tab", "part test in " + rowC, { text: "?" }],
    ["all tab", "part test in " + rowD, { text: "?" }],
    ["all tab", ["text C", "text D", "text 10/04/2014 in " + rowC, "text 10/04/2014 in " + rowD,
                 "text Envoi SMS in " + rowC, "text Envoi SMS in " + rowD, "part test in " + rowA,
                 "part rdv1 in " + rowB], { color: "#002357" }],
    ["all tab, other tab hovered", "part waitingTab", { color: "#ffb4bd" }],
    ["no patient waits", "type WaitingBadge", { opacity: 0 }],
    ["no patient waits", "text 0", { "font.bold": true }],
    ["no patient waits", "type PatientTable", { color: "#f9f9f9" }],
    ["no patient waits", "shown groove", { width: 4 }],
    ["waiting tab, selected", "type TickMark in control Tout sélectionner", { color: "#95a3b8" }],
    ["waiting tab, selected", "picture tiny-tick.png in control Tout sélectionner", { visible: true }],
    ["waiting tab, selected", "type TickMark in control Sélectionner A", { color: "#6888b9" }],
    ["waiting tab, selected", "picture tiny-tick.png in control Sélectionner A", { visible: true }],
    ["waiting tab, selected", "type TickMark in control Sélectionner B", { color: "#6888b9" }],
    ["waiting tab, selected", "picture tiny-tick.png in control Sélectionner B", { visible: true }],
    ["waiting tab, even row hovered", rowA, { color: "#ffcccc" }],
    ["waiting tab, odd row hovered", rowB, { color: "#ffcccc" }],
    ["all tab, even row hovered", rowC, { color: "#d8e0ed" }],
    ["all tab, odd row hovered", rowD, { color: "#d8e0ed" }],
    ["more than fit wait", "text 20", { points: 9 }],
    ["more than fit wait", "shown groove", { right: 799, bottom: 607 }],
    ["more than fit wait", "shown handle", { width: 4 }],
    ["more than fit wait", "shown handleMark", { centreY: ["centreY", "shown handle", 0] }],
    ["trash hovered", "picture trash.png", { opacity: 0.6 }],
    ["trash hovered", "part printGroup", { opacity: 1 }],
    ["print hovered", "part printGroup", { opacity: 0.6 }],
    ["print hovered", "picture trash.png", { opacity: 1 }]
];
