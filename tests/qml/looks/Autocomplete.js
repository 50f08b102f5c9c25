// The search bar.
var type = "Autocomplete";
var properties = { placeholder: "NOM Prénom", width: 275 };

var states = {
    "empty": {},
    "typed": { steps: [["set", "text", "du"]] },
    "magnifier hovered": { steps: [["hover", "control Rechercher"]] },
    "cancel hovered": { steps: [["hover", "control Effacer la recherche"]] }
};

// state, item or items, {property: expected}
var rows = [
    ["empty", "", { height: 53, color: "#8192ad" }],
    ["empty", "part magnifier", { left: 0, top: 0, width: 53, height: 53, color: "#405b82" }],
    ["empty", "control Rechercher", { left: 0, width: 53, height: 53 }],
    ["empty", "picture loop.png", { opacity: 0.6, centreX: 26.5, centreY: 26.5 }],
    ["empty", "control Rechercher un patient", { placeholderText: "NOM Prénom", centreY: 26.5,
     left: ["right", "part magnifier", 12], right: ["left", "control Effacer la recherche", 0], rectangles: 0 }],
    ["empty", "text NOM Prénom in control Rechercher un patient", { color: "#cbd2dd", points: 10 }],
    ["empty", "input", { points: 10, "font.bold": false, color: "#ffffff", selectionColor: "#ffffff",
     selectedTextColor: "#8192ad" }],
    ["empty", "control Effacer la recherche", { width: 40, height: 53, right: 275 }],
    ["empty", "picture cross.png", { opacity: 0.33, centreX: 255, centreY: 26.5 }],
    ["empty", ["control Rechercher", "control Effacer la recherche"], { focusColor: "#ffffff" }],
    ["typed", "input", { text: "du" }],
    ["typed", "text NOM Prénom in control Rechercher un patient", { opacity: 0 }],
    ["magnifier hovered", "picture loop.png", { opacity: 1 }],
    ["magnifier hovered", "picture cross.png", { opacity: 0.33 }],
    ["cancel hovered", "picture cross.png", { opacity: 1 }],
    ["cancel hovered", "picture loop.png", { opacity: 0.6 }]
];
