// One row of the main widget.
var type = "PatientsItem";
var properties = { text: "DUPONT Marie", width: 275 };

var states = {
    "base": {},
    "hovered": { steps: [["hover", ""]] },
    "woman": { properties: { genderMale: false } },
    "always bold": { properties: { alwaysBold: true } },
    "given icon": { properties: { image: "qrc:/images/add.png", genderMale: false } },
    "3 waiting": { properties: { number: 3 } },
    "3 waiting, hovered": { properties: { number: 3 }, steps: [["hover", ""]] },
    "long text": { properties: { text: "NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM" } }
};

// state, item or items, {property: expected}
var rows = [
    ["base", "", { state: "base", height: 38, genderMale: true, alwaysBold: false, number: 0 }],
    ["base", "part background", { height: 36, top: 0, left: 0, right: 275, color: "#f0f0f0" }],
    ["base", "picture male.png", { centreX: 21, centreY: 18 }],
    ["base", "picture next-grey.png", { right: 265, centreY: 18 }],
    ["base", "picture counter-tiny.png", { visible: false }],
    ["base", "text DUPONT Marie", { left: 40, points: 10, "font.bold": false, elide: Text.ElideRight,
     maximumLineCount: 1, textFormat: Text.PlainText, centreY: 18 }],
    ["base", "control DUPONT Marie", { cursorShape: Qt.PointingHandCursor, height: 36 }],
    ["hovered", "", { state: "hovered", height: 38 }],
    ["hovered", "part background", { height: 36, color: "#dfdfdf" }],
    ["hovered", "picture next.png", { visible: true }],
    ["hovered", "text DUPONT Marie", { "font.bold": true }],
    ["woman", "picture female.png", { visible: true }],
    ["always bold", "text DUPONT Marie", { "font.bold": true }],
    ["always bold", "part background", { color: "#f0f0f0" }],
    ["given icon", "picture add.png", { visible: true }],
    ["3 waiting", "picture counter-tiny.png", { visible: true, left: ["right", "text DUPONT Marie", 6],
     right: ["left", "picture next-grey.png", -6] }],
    ["3 waiting", "text 3", { points: 7, "font.bold": true, color: "#ffffff",
     centreX: ["centreX", "picture counter-tiny.png", 0], centreY: ["centreY", "picture counter-tiny.png", 0],
     width: ["<=", "width", "picture counter-tiny.png"] }],
    ["3 waiting, hovered", "text 3", { color: "#ffffff" }],
    ["3 waiting, hovered", "picture next.png", { visible: true }],
    ["long text", "part label", { truncated: true, lineCount: 1,
     right: ["left", "picture next-grey.png", -6] }]
];
