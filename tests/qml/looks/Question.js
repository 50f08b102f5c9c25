// One question of the pathway. "Oui" and "Non" occur twice in it: "in control Oui" is the text of the answer box.
var type = "Question";
var properties = { text: "Avez-vous compris ?" };

var states = {
    "collapsed": {},
    "expanded": { properties: { checked: true } },
    "missing": { properties: { displayed: false } },
    "missing though expanded": { properties: { displayed: false, checked: true } },
    "yes": { properties: { checked: true }, steps: [["set", "yes.checked", true]] },
    "no": { properties: { checked: true }, steps: [["set", "no.checked", true]] },
    "collapsed, yes": { steps: [["set", "yes.checked", true]] },
    "collapsed, no": { steps: [["set", "no.checked", true]] }
};

// state, item or items, {property: expected}
var rows = [
    ["collapsed", "", { state: "base", width: 275, height: 60, internalHeight: 60, clip: true, changed: false, date: "",
     checked: false, displayed: true, "yes.checked": false, "no.checked": false, behavior: "smoothed 300 InOutQuad" }],
    ["collapsed", "part bar", { color: "#002559", left: 0, width: 4, height: 40 }],
    ["collapsed", "part topRow", { top: 10, height: 40 }],
    ["collapsed", "text Avez-vous compris ?", { points: 9, "font.bold": false, color: "#405a82",
     textFormat: Text.RichText, wrapMode: Text.WordWrap, left: 14, right: ["left", "part shortAnswer", -6] }],
    ["collapsed", "picture next.png", { right: 261, rotation: 0, behavior: "smoothed 300 InOutQuad" }],
    ["expanded", "", { state: "buttons", height: 100, internalHeight: 100 }],
    ["expanded", "picture next.png", { rotation: 90 }],
    ["expanded", "part topRow", { height: 40 }],
    ["expanded", "part answerRow", { left: 30, height: 40, top: ["bottom", "part topRow", 0],
     bottom: ["<=", "bottom", ""], visible: true }],
    ["expanded", "control Oui", { left: 30 }],
    ["expanded", "control Non", { left: ["right", "control Oui", 30], top: ["top", "control Oui", 0] }],
    ["expanded", "type TickMark in control Oui", { width: 18, height: 18, left: 30 }],
    ["expanded", "type TickMark in control Non", { width: 18, height: 18 }],
    ["expanded", "picture tiny-tick.png in control Oui", { visible: false }],
    ["expanded", "picture tiny-tick.png in control Non", { visible: false }],
    ["expanded", "text Oui in control Oui", { "font.bold": true, points: 11, color: "#002458",
     left: ["right", "type TickMark in control Oui", 8] }],
    ["expanded", "text Non in control Non", { "font.bold": true, points: 11, color: "#002458" }],
    ["missing", "", { state: "missing", height: 0, internalHeight: 0, visible: false }],
    ["missing", "picture next.png", { rotation: 0 }],
    ["missing though expanded", "", { state: "missing", height: 0 }],
    ["missing though expanded", "picture next.png", { rotation: 0 }],
    ["yes", "type TickMark in control Oui", { color: "#68c268" }],
    ["yes", "picture tiny-tick.png in control Oui", { visible: true }],
    ["yes", "picture tiny-tick.png in control Non", { visible: false }],
    ["yes", "part shortAnswer", { opacity: 0 }],
    ["no", "type TickMark in control Non", { color: "#e02b0e" }],
    ["no", "picture tiny-tick.png in control Non", { visible: true }],
    ["no", "picture tiny-tick.png in control Oui", { visible: false }],
    ["no", "part shortAnswer", { opacity: 0 }],
    ["collapsed, yes", "part shortAnswer", { text: "Oui", opacity: 1, color: "#67c265", "font.bold": true, points: 11,
     right: ["left", "picture next.png", -8],
     behavior: "smoothed 300 InOutQuad" }],
    ["collapsed, no", "part shortAnswer", { text: "Non", opacity: 1, color: "#e12c0d", "font.bold": true, points: 11 }]
];
