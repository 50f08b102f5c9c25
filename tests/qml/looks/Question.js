// One step of the pathway, alone. Unfolded, both answers have the same texts: "in control Oui" is the box's own.
var type = "Question";
var properties = { text: "Avez-vous compris ?" };

var states = {
    "folded": {},
    "unfolded": { properties: { checked: true } },
    "missing": { properties: { displayed: false } },
    "missing though unfolded": { properties: { displayed: false, checked: true } },
    "yes": { properties: { checked: true }, steps: [["set", "yes.checked", true]] },
    "no": { properties: { checked: true }, steps: [["set", "no.checked", true]] },
    "folded, yes": { steps: [["set", "yes.checked", true]] },
    "folded, no": { steps: [["set", "no.checked", true]] }
};

// state, item or items, {property: expected}
var rows = [
    ["folded", "", { state: "base", width: 275, height: 60, internalHeight: 60, changed: false, date: "",
     checked: false, displayed: true, "yes.checked": false, "no.checked": false, behavior: "smoothed 300 InOutQuad" }],
    ["folded", "part bar", { color: "#002559", left: 0, width: 4, height: 40 }],
    ["folded", "part topRow", { height: 40, bottom: ["<=", "bottom", ""] }],
    ["folded", "text Avez-vous compris ?", { points: 9, "font.bold": false, color: "#405a82", textFormat: Text.RichText,
     wrapMode: Text.WordWrap, left: [">=", "right", "part bar"] }],
    ["folded", "picture next.png", { rotation: 0, behavior: "smoothed 300 InOutQuad" }],
    ["unfolded", "", { state: "buttons", height: 100, internalHeight: 100 }],
    ["unfolded", "picture next.png", { rotation: 90 }],
    ["unfolded", "part topRow", { height: 40 }],
    ["unfolded", "part answerRow", { left: 30, height: 40, top: ["bottom", "part topRow", 0],
     bottom: ["<=", "bottom", ""], visible: true }],
    ["unfolded", "control Oui", { left: 30 }],
    ["unfolded", "control Non", { left: [">=", "right", "control Oui"], top: ["top", "control Oui", 0] }],
    ["unfolded", "type TickMark in control Oui", { width: 18, height: 18, left: 30 }],
    ["unfolded", "type TickMark in control Non", { width: 18, height: 18 }],
    ["unfolded", "picture tiny-tick.png in control Oui", { visible: false }],
    ["unfolded", "picture tiny-tick.png in control Non", { visible: false }],
    ["unfolded", "text Oui in control Oui", { "font.bold": true, points: 11, color: "#002458",
     left: [">=", "right", "type TickMark in control Oui"] }],
    ["unfolded", "text Non in control Non", { "font.bold": true, points: 11, color: "#002458" }],
    ["missing", "", { state: "missing", height: 0, internalHeight: 0, visible: false }],
    ["missing", "picture next.png", { rotation: 0 }],
    ["missing though unfolded", "", { state: "missing", height: 0 }],
    ["missing though unfolded", "picture next.png", { rotation: 0 }],
    ["yes", "type TickMark in control Oui", { color: "#68c268" }],
    ["yes", "picture tiny-tick.png in control Oui", { visible: true }],
    ["yes", "picture tiny-tick.png in control Non", { visible: false }],
    ["yes", "part shortAnswer", { opacity: 0 }],
    ["no", "type TickMark in control Non", { color: "#e02b0e" }],
    ["no", "picture tiny-tick.png in control Non", { visible: true }],
    ["no", "picture tiny-tick.png in control Oui", { visible: false }],
    ["no", "part shortAnswer", { opacity: 0 }],
    ["folded, yes", "part shortAnswer", { text: "Oui", opacity: 1, color: "#67c265", "font.bold": true, points: 11,
     left: [">=", "right", "text Avez-vous compris ?"], right: ["<=", "left", "picture next.png"],
     behavior: "smoothed 300 InOutQuad" }],
    ["folded, no", "part shortAnswer", { text: "Non", opacity: 1, color: "#e12c0d", "font.bold": true, points: 11 }]
];
