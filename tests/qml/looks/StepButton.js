// A gate of the pathway, alone.
var type = "StepButton";
var properties = {};

var states = {
    "shown": {},
    "hovered": { steps: [["hover", ""]] },
    "hidden": { properties: { displayed: false } }
};

// state | item | property | expected
var rows = [
    ["shown", "", "displayed", true],
    ["shown", "", "height", 38],
    ["shown", "", "behavior", "number 200 Linear"],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "textFormat", Text.RichText],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "font.bold", true],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "points", 9],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "color", "#405a82"],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "horizontalAlignment", Text.AlignHCenter],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "centreX", 137.5],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "centreY", 19],
    ["shown", "text Si la consultation continue,<br/>cliquez ici", "opacity", 1],
    ["hovered", "text Si la consultation continue,<br/>cliquez ici", "opacity", 0.7],
    ["hovered", "", "height", 38],
    ["hidden", "", "internalHeight", 0],
    ["hidden", "", "height", 0],
    ["hidden", "", "visible", false]
];
