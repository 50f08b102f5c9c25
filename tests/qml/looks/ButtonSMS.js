// The SMS button of a table row, alone.
var type = "ButtonSMS";
var properties = {};

var states = {
    "default": {},
    "wide": { properties: { width: 120 } }
};

// state | item | property | expected
var rows = [
    ["default", "", "width", 80],
    ["default", "", "height", 26.667],
    ["default", "", "radius", 3],
    ["default", "", "color", "#ffffff"],
    ["default", "type BorderImage", "source", "qrc:/images/sms-border.png"],
    ["default", "type BorderImage", "status", Image.Ready],
    ["default", "type BorderImage", "border.left", 3],
    ["default", "type BorderImage", "border.right", 3],
    ["default", "type BorderImage", "border.top", 3],
    ["default", "type BorderImage", "border.bottom", 3],
    ["default", "type BorderImage", "left", 0],
    ["default", "type BorderImage", "right", 80],
    ["default", "type BorderImage", "top", 0],
    ["default", "type BorderImage", "bottom", 26.667],
    ["default", "text Envoi SMS", "color", "#002357"],
    ["default", "text Envoi SMS", "points", 9.4118],
    ["default", "text Envoi SMS", "font.bold", false],
    ["default", "text Envoi SMS", "centreX", 40],
    ["default", "text Envoi SMS", "left", [">=", "left", "type BorderImage"]],
    ["default", "text Envoi SMS", "centreY", 13.333],
    ["default", "control Envoi SMS", "cursorShape", Qt.PointingHandCursor],
    ["default", "control Envoi SMS", "width", 80],
    ["default", "control Envoi SMS", "height", 26.667],
    ["wide", "", "height", 40],
    ["wide", "text Envoi SMS", "points", 14.1176],
    ["wide", "type BorderImage", "right", 120],
    ["wide", "text Envoi SMS", "centreX", 60]
];
