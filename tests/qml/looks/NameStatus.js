// The name bar of the editor, alone.
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

// state | item | property | expected
var rows = [
    ["man", "", "height", 53],
    ["man", "", "color", "#66c2b7"],
    ["man", "", "genderMale", true],
    ["man", "control Retour", "left", 0],
    ["man", "control Retour", "top", 0],
    ["man", "control Retour", "width", 53],
    ["man", "control Retour", "height", 53],
    ["man", "control Retour", "tooltip", "Enregistrer"],
    ["man", "picture back.png", "opacity", 0.5],
    ["man", "picture back.png", "centreX", 26.5],
    ["man", "picture back.png", "centreY", 26.5],
    ["man", "control Nom du patient", "placeholderText", "NOM Prénom"],
    ["man", "control Nom du patient", "left", 53],
    ["man", "control Nom du patient", "right", 222],
    ["man", "control Nom du patient", "centreY", 26.5],
    ["man", "control Nom du patient", "rectangles", 0],
    ["man", "text NOM Prénom in control Nom du patient", "color", "#befff8"],
    ["man", "text NOM Prénom in control Nom du patient", "points", 10],
    ["man", "input", "color", "#ffffff"],
    ["man", "input", "font.bold", true],
    ["man", "input", "points", 10],
    ["man", "control Sexe : homme", "right", 275],
    ["man", "control Sexe : homme", "width", 53],
    ["man", "control Sexe : homme", "height", 53],
    ["man", "control Sexe : homme", "cursorShape", Qt.PointingHandCursor],
    ["man", "picture male-big.png", "opacity", 1],
    ["man", "picture male-big.png", "centreX", 248.5],
    ["man", "picture male-big.png", "centreY", 26.5],
    ["woman", "picture female-big.png", "opacity", 1],
    ["woman", "picture female-big.png", "centreX", 248.5],
    ["woman", "control Sexe : femme", "cursorShape", Qt.PointingHandCursor],
    ["named", "input", "text", "DUPONT Marie"],
    ["named", "text NOM Prénom in control Nom du patient", "opacity", 0],
    ["back hovered", "picture back.png", "opacity", 1],
    ["back pressed", "picture back.png", "opacity", 0.8],
    ["gender hovered", "picture male-big.png", "opacity", 0.6],
    ["woman hovered", "picture female-big.png", "opacity", 0.6]
];
