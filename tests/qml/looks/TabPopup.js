// One tab of the patient list, alone.
var type = "TabPopup";
var properties = { title: "Onglet", width: 200, height: 42 };

var states = {
    "base": {},
    "hovered": { steps: [["hover", ""]] },
    "checked": { properties: { checked: true } },
    "checked, hovered": { properties: { checked: true }, steps: [["hover", ""]] },
    "given": { properties: { normalColor: "#112233", textColor: "#010203" } }
};

// state | item | property | expected
var rows = [
    ["base", "", "state", "base"],
    ["base", "", "checked", false],
    ["base", "", "hovered", false],
    ["base", "", "color", "#c8dcfc"],
    ["base", "text Onglet", "color", "#002357"],
    ["base", "text Onglet", "font.bold", true],
    ["base", "text Onglet", "points", 11],
    ["base", "text Onglet", "centreX", 100],
    ["base", "text Onglet", "centreY", 21],
    ["base", "control Onglet", "cursorShape", Qt.PointingHandCursor],
    ["hovered", "", "state", "hovered"],
    ["hovered", "", "hovered", true],
    ["hovered", "", "color", "#b0ccfd"],
    ["checked", "", "state", "checked"],
    ["checked", "", "color", "#f9f9f9"],
    ["checked", "control Onglet", "cursorShape", Qt.ArrowCursor],
    ["checked, hovered", "", "hovered", true],
    ["checked, hovered", "", "state", "checked"],
    ["checked, hovered", "", "color", "#f9f9f9"],
    ["given", "", "color", "#112233"],
    ["given", "text Onglet", "color", "#010203"]
];
