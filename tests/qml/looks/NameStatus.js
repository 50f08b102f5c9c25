// The name bar of the editor.
var type = "NameStatus";
var properties = { width: 275 };

var states = {
    "man": {},
    "woman": { properties: { genderMale: false } },
    "named": { properties: { name: "DUPONT Marie" } },
    "back hovered": { steps: [["hover", "control Retour"]] },
    "back pressed": { steps: [["hover", "control Retour"], ["press", "control Retour"]] },
    "gender hovered": { steps: [["hover", "control Sexe : homme"]] },
    "woman hovered": { properties: { genderMale: false }, steps: [["hover", "control Sexe : femme"]] }
};

// state, item or items, {property: expected}
var rows = [
    ["man", "", { height: 53, color: "#66c2b7", genderMale: true }],
    ["man", "control Retour", { left: 0, top: 0, width: 53, height: 53, tooltip: "Enregistrer" }],
    ["man", "picture back.png", { opacity: 0.5, centreX: 26.5, centreY: 26.5 }],
    ["man", "control Nom du patient", { placeholderText: "NOM Prénom", left: 53, right: 222, centreY: 26.5,
     rectangles: 0 }],
    ["man", "text NOM Prénom in control Nom du patient", { color: "#befff8", points: 10 }],
    ["man", "input", { color: "#ffffff", "font.bold": true, points: 10 }],
    ["man", "control Sexe : homme", { right: 275, width: 53, height: 53, cursorShape: Qt.PointingHandCursor,
     focusColor: "#ffffff" }],
    ["man", "picture male-big.png", { opacity: 1, centreX: 248.5, centreY: 26.5 }],
    ["woman", "picture female-big.png", { opacity: 1, centreX: 248.5 }],
    ["woman", "control Sexe : femme", { cursorShape: Qt.PointingHandCursor }],
    ["named", "input", { text: "DUPONT Marie" }],
    ["named", "text NOM Prénom in control Nom du patient", { opacity: 0 }],
    ["back hovered", "picture back.png", { opacity: 1 }],
    ["back pressed", "picture back.png", { opacity: 0.8 }],
    ["gender hovered", "picture male-big.png", { opacity: 0.6 }],
    ["woman hovered", "picture female-big.png", { opacity: 0.6 }]
];
