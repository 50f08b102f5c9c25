// One tab of the patient list.
var type = "TabPopup";
var properties = { title: "Onglet", width: 200, height: 42 };

var states = {
    "base": {},
    "hovered": { steps: [["hover", ""]] },
    "checked": { properties: { checked: true } },
    "checked, hovered": { properties: { checked: true }, steps: [["hover", ""]] },
    "given": { properties: { normalColor: "#112233", textColor: "#010203" } }
};

// state, item or items, {property: expected}
var rows = [
    ["base", "", { state: "base", checked: false, hovered: false, color: "#c8dcfc" }],
    ["base", "text Onglet", { color: "#002357", "font.bold": true, points: 11, centreX: 100, centreY: 21 }],
    ["base", "control Onglet", { cursorShape: Qt.PointingHandCursor }],
    ["hovered", "", { state: "hovered", hovered: true, color: "#b0ccfd" }],
    ["checked", "", { state: "checked", color: "#f9f9f9" }],
    ["checked", "control Onglet", { cursorShape: Qt.ArrowCursor }],
    ["checked, hovered", "", { hovered: true, state: "checked", color: "#f9f9f9" }],
    ["given", "", { color: "#112233" }],
    ["given", "text Onglet", { color: "#010203" }]
];
