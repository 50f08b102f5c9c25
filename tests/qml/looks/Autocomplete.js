// The search bar, alone.
var type = "Autocomplete";
var properties = { placeholder: "NOM Prénom", width: 275 };

var states = {
    "empty": {},
    "typed": { steps: [["set", "text", "du"]] },
    "magnifier hovered": { steps: [["hover", "control Rechercher"]] },
    "cancel hovered": { steps: [["hover", "control Effacer la recherche"]] }
};

// state | item | property | expected
var rows = [
    ["empty", "", "height", 53],
    ["empty", "", "color", "#8192ad"],
    ["empty", "parent of picture loop.png", "left", 0],
    ["empty", "parent of picture loop.png", "top", 0],
    ["empty", "parent of picture loop.png", "width", 53],
    ["empty", "parent of picture loop.png", "height", 53],
    ["empty", "parent of picture loop.png", "color", "#405b82"],
    ["empty", "control Rechercher", "left", 0],
    ["empty", "control Rechercher", "width", 53],
    ["empty", "control Rechercher", "height", 53],
    ["empty", "picture loop.png", "opacity", 0.6],
    ["empty", "picture loop.png", "centreX", 26.5],
    ["empty", "picture loop.png", "centreY", 26.5],
    ["empty", "control Rechercher un patient", "placeholderText", "NOM Prénom"],
    ["empty", "control Rechercher un patient", "centreY", 26.5],
    ["empty", "control Rechercher un patient", "left", [">=", "right", "parent of picture loop.png"]],
    ["empty", "control Rechercher un patient", "right", ["<=", "left", "control Effacer la recherche"]],
    ["empty", "control Rechercher un patient", "rectangles", 0],
    ["empty", "text NOM Prénom in control Rechercher un patient", "color", "#cbd2dd"],
    ["empty", "text NOM Prénom in control Rechercher un patient", "points", 10],
    ["empty", "input", "points", 10],
    ["empty", "input", "font.bold", false],
    ["empty", "input", "color", "#ffffff"],
    ["empty", "input", "selectionColor", "#ffffff"],
    ["empty", "input", "selectedTextColor", "#8192ad"],
    ["empty", "control Effacer la recherche", "width", 40],
    ["empty", "control Effacer la recherche", "height", 53],
    ["empty", "control Effacer la recherche", "right", 275],
    ["empty", "picture cross.png", "opacity", 0.33],
    ["empty", "picture cross.png", "centreX", 255],
    ["empty", "picture cross.png", "centreY", 26.5],
    ["typed", "input", "text", "du"],
    ["typed", "text NOM Prénom in control Rechercher un patient", "opacity", 0],
    ["magnifier hovered", "picture loop.png", "opacity", 1],
    ["magnifier hovered", "picture cross.png", "opacity", 0.33],
    ["cancel hovered", "picture cross.png", "opacity", 1],
    ["cancel hovered", "picture loop.png", "opacity", 0.6]
];
