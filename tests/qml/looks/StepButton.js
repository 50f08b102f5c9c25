// A gate of the pathway.
var type = "StepButton";
var properties = {};

var states = {
    "shown": {},
    "hovered": { steps: [["hover", ""]] },
    "hidden": { properties: { displayed: false } }
};

// state, item or items, {property: expected}
var rows = [
    ["shown", "", { displayed: true, height: 38, clip: true, behavior: "number 200 Linear" }],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", { textFormat: Text.RichText, "font.bold": true,
     points: 9, color: "#405a82", horizontalAlignment: Text.AlignHCenter, centreX: 137.5, centreY: 19, opacity: 1 }],
    ["hovered", "text Si la consultation continue,<br/>cliquez ici", { opacity: 0.7 }],
    ["hovered", "", { height: 38 }],
    ["hidden", "", { internalHeight: 0, height: 0, visible: false }]
];
