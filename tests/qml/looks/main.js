// The main widget without patients, with one waiting and one other patient, with five women, and with its editor open.
var type = "main";
var properties = {};
var waiting = [{ id: 1, name: "DUPONT Marie", created: "2014-04-10", notification_date: "2014-05-12" },
               { id: 2, name: "DURAND Paul", created: "2014-04-10", notification_date: "2050-01-01" }];
var five = ["DUA", "DUB", "DUC", "DUD", "DUE"].map(function (name) { return { name: name, genderMale: 0 }; });
var found = [["type", "control Rechercher un patient", "du"], ["until", "type Container", "height", 326]];
var open = [["call", "openPatient", "1"], ["until", "type Container", "height", 339]];

var states = {
    "start": { patients: [] },
    "one waits": { patients: waiting },
    "no match": { patients: waiting, steps: [["type", "control Rechercher un patient", "x"]] },
    "found": { patients: five, steps: found.concat([["hover", "control DUB"]]) },
    "creation link hovered": { patients: [], steps: [["hover", "control Nouvelle fiche patient"]] },
    "waiting link hovered": { patients: waiting, steps: [["hover", "control Liste des patients en attente (1)"]] },
    "editor": { patients: waiting, steps: open },
    "contact hovered": { patients: [], steps: [["hover", "control Contacts VESK"]] },
    "contact pressed": { patients: [], steps: [["hover", "control Contacts VESK"],
                                               ["press", "control Contacts VESK"]] },
    "list hovered": { patients: [], steps: [["hover", "control Liste de tous les patients"]] },
    "list pressed": { patients: [], steps: [["hover", "control Liste de tous les patients"],
                                            ["press", "control Liste de tous les patients"]] },
    "cross hovered": { patients: [], steps: [["hover", "control Fermer"]] },
    "cross pressed": { patients: [], steps: [["hover", "control Fermer"], ["press", "control Fermer"]] }
};

var frame = "type Container";
var content = "part contentArea";
var listPane = "part listPane";
var resultsPane = "part results";
var contact = "control Contacts VESK";
var list = "control Liste de tous les patients";
var cross = "picture cross.png in control Fermer";
var creation = "item Nouvelle fiche patient";
var waitingLink = "item Liste des patients en attente";
var busyLink = "item Liste des patients en attente";

// state, item or items, {property: expected}
var rows = [
    ["start", "", { height: 174, internalHeight: 174, color: "#00000000", number: 0, total: 0 }],
    ["start", frame, { left: 0, top: 0, height: 174, color: "#002457", radius: 4, "border.color": "#ffffff",
     "border.width": 1, behavior: "smoothed 600 InOutQuad", launchOnStart: false, menuItems: 3 }],
    ["start", "menu item 1 in " + frame, { text: "Lancer au démarrage", checkable: true }],
    ["start", "menu item 2 in " + frame, { text: "A propos", checkable: false }],
    ["start", "menu item 3 in " + frame, { text: "Quitter", checkable: false }],
    ["start", "part dragZone", { left: 0, top: 0, bottom: 42, right: ["left", contact, 0] }],
    ["start", "picture logo-vesk.jpg", { left: 10, top: [">=", "top", frame], bottom: ["<=", "top", content] }],
    ["start", "text Tandry", { color: "#7c879c", points: 9, "font.bold": false,
     bottom: ["bottom", "picture logo-vesk.jpg", 0], left: ["right", "picture logo-vesk.jpg", 8] }],
    ["start", contact, { left: 205, tooltip: "Contacts VESK" }],
    ["start", "picture contact-button.png", { opacity: 1 }],
    ["start", list, { left: 226, tooltip: "Liste de tous les patients" }],
    ["start", "picture table.png", { opacity: 1 }],
    ["start", "control Fermer", { left: 247, right: 263, focusColor: "#ffffff" }],
    ["start", cross, { right: 263, opacity: 1 }],
    ["start", content, { color: "#f9f9f9", left: 1, right: 274, top: 42, bottom: 169, clip: true }],
    ["start", "type Autocomplete", { top: 42, height: 53, opacity: 1, z: ["bigger", "z", "type NameStatus"] }],
    ["start", "control Rechercher un patient", { placeholderText: "NOM Prénom" }],
    ["start", "type NameStatus", { top: 42, height: 53, opacity: 0 }],
    ["start", listPane, { top: 95, left: 1, bottom: 169 }],
    ["start", creation, { top: 95, left: 1, height: 38 }],
    ["start", "text Nouvelle fiche patient", { "font.bold": true, visible: true }],
    ["start", "picture add.png in " + creation, { visible: true }],
    ["start", waitingLink, { height: 38, left: 1, bottom: 171 }],
    ["start", "text Liste des patients en attente", { "font.bold": true, visible: true }],
    ["start", "picture tab-button.png in " + waitingLink, { visible: true }],
    ["start", "picture counter-tiny.png in " + waitingLink, { visible: false }],
    ["start", ["", frame, "type Autocomplete", "type NameStatus", listPane, creation, waitingLink], { width: 275 }],
    ["start", [contact, list, "control Fermer"], { width: 16, height: 16 }],
    ["one waits", "", { number: 1, total: 2 }],
    ["one waits", "picture counter-tiny.png in " + busyLink, { visible: true }],
    ["one waits", "text 1", { color: "#ffffff", "font.bold": true }],
    ["contact hovered", "picture contact-button.png", { opacity: 0.66 }],
    ["contact hovered", "picture table.png", { opacity: 1 }],
    ["contact hovered", cross, { opacity: 1 }],
    ["contact pressed", "picture contact-button.png", { opacity: 0.5 }],
    ["list hovered", "picture table.png", { opacity: 0.66 }],
    ["list pressed", "picture table.png", { opacity: 0.5 }],
    ["cross hovered", cross, { opacity: 0.66 }],
    ["cross pressed", cross, { opacity: 0.5 }],
    ["no match", "text Créer la fiche patient", { "font.bold": true }],
    ["no match", "picture add.png", { visible: true }],
    ["no match", "", { height: 174 }],
    ["no match", "type PatientsResults", { visible: false }],
    ["no match", resultsPane, { opacity: 0 }],
    ["creation link hovered", "part background in " + creation, { color: "#dfdfdf" }],
    ["creation link hovered", "picture next.png in " + creation, { visible: true }],
    ["found", resultsPane, { behavior: "number 500 InOutQuad", opacity: 1 }],
    ["found", "", { height: 326 }],
    ["found", frame, { height: 326 }],
    ["found", content, { bottom: 321 }],
    ["found", "type PatientsResults", { left: 1, right: 276, top: 133, bottom: 285,
     "__style.transientScrollBars": false, "__style.decrementControl": null, "__style.incrementControl": null }],
    ["found", waitingLink, { top: 285, bottom: 323 }],
    ["found", "item DUA", { top: 133, height: 38 }],
    ["found", "part background in item DUA", { color: "#f0f0f0" }],
    ["found", "picture counter-tiny.png in item DUA", { visible: false }],
    ["found", "text DUA", { "font.bold": false }],
    ["found", "item DUB", { top: 171 }],
    ["found", "text DUB", { "font.bold": true }],
    ["found", "part background in item DUB", { color: "#dfdfdf" }],
    ["found", "item DUC", { top: 209 }],
    ["found", "item DUD", { top: 247 }],
    ["found", "item DUE", { top: 285 }],
    ["found", "shown handle", { width: 4, right: ["right", "shown groove", 0] }],
    ["found", "shown handleMark", { width: 2, height: 2, centreX: ["centreX", "shown handle", 0],
     centreY: ["centreY", "shown handle", 0] }],
    ["found", "shown groove", { width: 4, top: 133, bottom: 285 }],
    ["found", ["type PatientsResults", "text Créer la fiche patient", "picture male.png in item DUA",
               "picture next-grey.png in item DUA", "text DUB", "picture male.png in item DUB",
               "picture next.png in item DUB", "text DUC", "picture male.png in item DUC",
               "picture next-grey.png in item DUC", "text DUD", "picture male.png in item DUD",
               "picture next-grey.png in item DUD", "text DUE", "picture male.png in item DUE",
               "picture next-grey.png in item DUE"], { visible: true }],
    ["waiting link hovered", "part background in " + busyLink, { color: "#dfdfdf" }],
    ["editor", "", { height: 339 }],
    ["editor", frame, { height: 339 }],
    ["editor", listPane, { left: -274 }],
    ["editor", "type Detail", { left: ["right", listPane, 0], width: 275, top: 95, height: 239 }],
    ["editor", "type NameStatus", { opacity: 1, z: ["bigger", "z", "type Autocomplete"] }],
    ["editor", "type Autocomplete", { opacity: 0 }],
    ["editor", "control Nom du patient", { text: "DUPONT Marie" }]
];
