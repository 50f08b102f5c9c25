// The contact popup. It shows the telephone number twice.
var type = "ContactPopup";
var properties = {};

var states = {
    "shown": {},
    "cross hovered": { steps: [["hover", "control Fermer"]] }
};

var page = "part contentArea";
var pharmacovigilance = "section Pharmacovigilance";
var customers = "section Service client";
var sites = "section Sites internet";
var hours = "text Du lundi au vendredi de 8h30 à 18h00 et le samedi de 9h00 à 12h00";
var phone1 = "text 01 99 00 00 00 in " + pharmacovigilance;
var phone2 = "text 01 99 00 00 00 in " + customers;
var email1 = "text pharmacovigilance@olmeric.example";
var email2 = "text service.client@olmeric.example";
var site1 = "text www.allergies-info.example";
var site2 = "text www.vesk.example";

// state, item or items, {property: expected}
var rows = [
    ["shown", "", { width: 500, height: 450, color: "#00000000" }],
    ["shown", "type PopupContainer", { width: 500, height: 450, color: "#002457", radius: 4, "border.width": 1,
     "border.color": "#ffffff", noFooterBorder: false }],
    ["shown", "picture logo-vesk.jpg", { left: 10, centreY: 21 }],
    ["shown", "text Tandry", { color: "#7c879c", points: 9, "font.bold": false,
     bottom: ["bottom", "picture logo-vesk.jpg", -2], left: [">=", "right", "picture logo-vesk.jpg"] }],
    ["shown", "part headerArea", { left: ["right", "text Tandry", 10], right: ["left", "control Fermer", -10], top: 5,
     bottom: 37 }],
    ["shown", "part dragZone", { left: 0, top: 0, bottom: 42, right: ["right", "part headerArea", 0] }],
    ["shown", "picture cross.png", { right: 488, centreY: 21, opacity: 1 }],
    ["shown", "control Fermer", { right: 488, width: 16, height: 16, cursorShape: Qt.PointingHandCursor,
     focusColor: "#ffffff" }],
    ["shown", page, { left: 1, top: 42, width: 498, height: 403, color: "#f0f0f0", clip: true }],
    ["shown", "text Contacts VESK", { top: 62, centreX: 250, points: 25, color: "#002257" }],
    ["shown", pharmacovigilance, { right: 479, height: 70, top: ["bottom", "text Contacts VESK", 45] }],
    ["shown", "text Pharmacovigilance", { top: ["top", pharmacovigilance, 0], points: 12, "font.bold": false,
     color: "#002257" }],
    ["shown", phone1, { top: ["bottom", "text Pharmacovigilance", 5] }],
    ["shown", email1, { top: ["bottom", phone1, 5], bottom: ["<=", "bottom", pharmacovigilance] }],
    ["shown", customers, { right: 479, height: 80, top: ["bottom", pharmacovigilance, 20] }],
    ["shown", "text Service client", { top: ["top", customers, 0], points: 12, "font.bold": false, color: "#002257" }],
    ["shown", hours, { top: ["bottom", "text Service client", 5], right: ["<=", "right", customers], "font.bold": false,
     points: 9 }],
    ["shown", phone2, { top: ["bottom", hours, 5] }],
    ["shown", email2, { top: ["bottom", phone2, 5], bottom: ["<=", "bottom", customers] }],
    ["shown", sites, { right: 479, height: 70, top: ["bottom", customers, 20] }],
    ["shown", "text Sites internet", { top: ["top", sites, 0], points: 12, "font.bold": false, color: "#002257" }],
    ["shown", site1, { top: ["bottom", "text Sites internet", 5] }],
    ["shown", site2, { top: ["bottom", site1, 5], bottom: ["<=", "bottom", sites] }],
    ["shown", "control www.allergies-info.example", { left: 69, top: ["top", site1, -2], right: ["right", site1, 2],
     bottom: ["bottom", site1, 2], cursorShape: Qt.PointingHandCursor }],
    ["shown", "control www.vesk.example", { cursorShape: Qt.PointingHandCursor }],
    ["shown", ["text Contacts VESK", phone1, email1, phone2, email2, site1, site2], { "font.bold": true }],
    ["shown", ["text Contacts VESK", "text Pharmacovigilance", phone1, email1, "text Service client", hours, phone2,
               email2, "text Sites internet", site1, site2], { renderType: Text.NativeRendering }],
    ["shown", [pharmacovigilance, "text Pharmacovigilance", customers, "text Service client", sites,
               "text Sites internet"], { left: 21 }],
    ["shown", [phone1, email1, hours, phone2, email2, site1, site2], { left: 71, color: "#405b82" }],
    ["shown", [phone1, email1, phone2, email2, site1, site2], { points: 10 }],
    ["cross hovered", "picture cross.png", { opacity: 0.66 }]
];
