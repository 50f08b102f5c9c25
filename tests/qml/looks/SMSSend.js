// The bar at the foot of the editor that leads to the SMS service, alone.
var type = "SMSSend";
var properties = {};

var states = {
    "shown": {},
    "hovered": { steps: [["hover", ""]] },
    "hidden": { properties: { displayed: false } }
};

// state | item | property | expected
var rows = [
    ["shown", "", "displayed", true],
    ["shown", "", "internalHeight", 38],
    ["shown", "", "height", 38],
    ["shown", "", "width", 275],
    ["shown", "", "clip", true],
    ["shown", "", "color", "#6989ba"],
    ["shown", "", "behavior", "number 300 InOutQuad"],
    ["shown", "picture next-white.png", "right", 265],
    ["shown", "picture next-white.png", "top", 0],
    ["shown", "picture next-white.png", "height", 38],
    ["shown", "picture next-white.png", "fillMode", Image.PreserveAspectFit],
    ["shown", "text Envoyer le SMS de rappel", "color", "#ffffff"],
    ["shown", "text Envoyer le SMS de rappel", "font.bold", true],
    ["shown", "text Envoyer le SMS de rappel", "points", 11],
    ["shown", "text Envoyer le SMS de rappel", "renderType", Text.NativeRendering],
    ["shown", "text Envoyer le SMS de rappel", "centreX", 137.5],
    ["shown", "text Envoyer le SMS de rappel", "centreY", 19],
    ["shown", "control Envoyer le SMS de rappel", "cursorShape", Qt.PointingHandCursor],
    ["shown", "control Envoyer le SMS de rappel", "width", 275],
    ["shown", "control Envoyer le SMS de rappel", "height", 38],
    ["hovered", "", "color", "#4f79b8"],
    ["hovered", "text Envoyer le SMS de rappel", "color", "#ffffff"],
    ["hidden", "", "internalHeight", 0],
    ["hidden", "", "height", 0],
    ["hidden", "", "visible", false]
];
