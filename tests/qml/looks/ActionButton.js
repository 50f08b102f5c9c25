// The wide coloured button.
var type = "ActionButton";
var properties = { text: "Enregistrer", width: 138 };
var icon = { image: "qrc:/images/yes-white.png" };

var states = {
    "plain": {},
    "hovered": { steps: [["hover", ""]] },
    "disabled": { properties: { disabled: true } },
    "disabled, hovered": { properties: { disabled: true }, steps: [["hover", ""]] },
    "icon": { properties: icon },
    "icon, hovered": { properties: icon, steps: [["hover", ""]] },
    "given": { properties: { backgroundColor: "#112233", hoveredBackgroundColor: "#445566",
                             disabledBackgroundColor: "#778899", textColor: "#010203", textBold: false } },
    "given, hovered": { properties: { hoveredBackgroundColor: "#445566" }, steps: [["hover", ""]] },
    "given, disabled": { properties: { disabledBackgroundColor: "#778899", disabled: true } }
};

// state, item or items, {property: expected}
var rows = [
    ["plain", "", { height: 38, color: "#55b03b", state: "base", disabled: false, textBold: true, image: "" }],
    ["plain", "text Enregistrer", { "font.bold": true, left: 5, right: 133, horizontalAlignment: Text.AlignHCenter,
     centreY: 19 }],
    ["plain", "control Enregistrer", { focusColor: "#ffffff" }],
    ["hovered", "", { state: "hovered", color: "#7abb67" }],
    ["disabled", "", { state: "disabled", color: "#a9a9a9" }],
    ["disabled, hovered", "", { state: "disabled", color: "#a9a9a9" }],
    ["icon", "picture yes-white.png", { left: 14, visible: true, centreY: 19 }],
    ["icon", "text Enregistrer", { left: ["right", "picture yes-white.png", 20], horizontalAlignment: Text.AlignLeft }],
    ["icon, hovered", "", { color: "#7abb67" }],
    ["given", "", { color: "#112233" }],
    ["given", "text Enregistrer", { color: "#010203", "font.bold": false }],
    ["given, hovered", "", { color: "#445566" }],
    ["given, disabled", "", { color: "#778899" }]
];
