// The bar at the bottom of the editor that opens the SMS service.
var type = "SMSSend";
var properties = {};

var states = {
    "shown": {},
    "hovered": { steps: [["hover", ""]] },
    "hidden": { properties: { displayed: false } }
};

// state, item or items, {property: expected}
var rows = [
    ["shown", "", { displayed: true, internalHeight: 38, height: 38, width: 275, clip: true, color: "#6989ba",
     behavior: "number 300 InOutQuad" }],
    ["shown", "picture next-white.png", { right: 265, top: 0, height: 38, fillMode: Image.PreserveAspectFit }],
    ["shown", "text Envoyer le SMS de rappel", { color: "#ffffff", "font.bold": true, points: 11,
     renderType: Text.NativeRendering, centreX: 137.5, centreY: 19 }],
    ["shown", "control Envoyer le SMS de rappel", { cursorShape: Qt.PointingHandCursor, width: 275, height: 38,
     focusColor: "#ffffff" }],
    ["hovered", "", { color: "#4f79b8" }],
    ["hovered", "text Envoyer le SMS de rappel", { color: "#ffffff" }],
    ["hidden", "", { internalHeight: 0, height: 0, visible: false }]
];
