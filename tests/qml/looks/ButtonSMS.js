// The SMS button of a table row.
var type = "ButtonSMS";
var properties = {};

var states = {
    "default": {},
    "wide": { properties: { width: 120 } }
};

// state, item or items, {property: expected}
var rows = [
    ["default", "", { width: 80, height: 26.667, radius: 3, color: "#ffffff" }],
    ["default", "type BorderImage", { source: "qrc:/images/sms-border.png", status: Image.Ready, "border.left": 3,
     "border.right": 3, "border.top": 3, "border.bottom": 3, left: 0, right: 80, top: 0, bottom: 26.667 }],
    ["default", "text Envoi SMS", { color: "#002357", points: 9.4118, "font.bold": false, centreX: 40,
     left: [">=", "left", "type BorderImage"], centreY: 13.333 }],
    ["default", "control Envoi SMS", { cursorShape: Qt.PointingHandCursor, width: 80, height: 26.667 }],
    ["wide", "", { height: 40 }],
    ["wide", "text Envoi SMS", { points: 14.1176, centreX: 60 }],
    ["wide", "type BorderImage", { right: 120 }]
];
