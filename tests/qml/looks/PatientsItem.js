// One row of the main widget, alone.
var type = "PatientsItem";
var properties = { text: "DUPONT Marie", width: 275 };

var states = {
    "base": {},
    "hovered": { steps: [["hover", ""]] },
    "woman": { properties: { genderMale: false } },
    "always bold": { properties: { alwaysBold: true } },
    "given icon": { properties: { image: "qrc:/images/add.png", genderMale: false } },
    "3 waiting": { properties: { number: 3 } },
    "3 waiting, hovered": { properties: { number: 3 }, steps: [["hover", ""]] },
    "long text": { properties: { text: "NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM NOM" } }
};

// state | item | property | expected
var rows = [
    ["base", "", "state", "base"],
    ["base", "", "height", 38],
    ["base", "", "genderMale", true],
    ["base", "", "alwaysBold", false],
    ["base", "", "number", 0],
    ["base", "first Rectangle", "height", 36],
    ["base", "first Rectangle", "top", 0],
    ["base", "first Rectangle", "left", 0],
    ["base", "first Rectangle", "right", 275],
    ["base", "first Rectangle", "color", "#f0f0f0"],
    ["base", "picture male.png", "right", ["<=", "left", "text DUPONT Marie"]],
    ["base", "picture male.png", "centreY", 18],
    ["base", "picture next-grey.png", "left", [">=", "right", "text DUPONT Marie"]],
    ["base", "picture next-grey.png", "right", ["<=", "right", "first Rectangle"]],
    ["base", "picture next-grey.png", "centreY", 18],
    ["base", "picture counter-tiny.png", "visible", false],
    ["base", "text DUPONT Marie", "font.bold", false],
    ["base", "text DUPONT Marie", "elide", Text.ElideRight],
    ["base", "text DUPONT Marie", "maximumLineCount", 1],
    ["base", "text DUPONT Marie", "textFormat", Text.PlainText],
    ["base", "text DUPONT Marie", "centreY", 18],
    ["base", "control DUPONT Marie", "cursorShape", Qt.PointingHandCursor],
    ["base", "control DUPONT Marie", "height", 36],
    ["hovered", "", "state", "hovered"],
    ["hovered", "", "height", 38],
    ["hovered", "first Rectangle", "height", 36],
    ["hovered", "first Rectangle", "color", "#dfdfdf"],
    ["hovered", "picture next.png", "visible", true],
    ["hovered", "text DUPONT Marie", "font.bold", true],
    ["woman", "picture female.png", "visible", true],
    ["always bold", "text DUPONT Marie", "font.bold", true],
    ["always bold", "first Rectangle", "color", "#f0f0f0"],
    ["given icon", "picture add.png", "visible", true],
    ["3 waiting", "picture counter-tiny.png", "visible", true],
    ["3 waiting", "picture counter-tiny.png", "left", [">=", "right", "text DUPONT Marie"]],
    ["3 waiting", "picture counter-tiny.png", "right", ["<=", "left", "picture next-grey.png"]],
    ["3 waiting", "text 3", "font.bold", true],
    ["3 waiting", "text 3", "color", "#ffffff"],
    ["3 waiting", "text 3", "centreX", ["centreX", "picture counter-tiny.png", 0]],
    ["3 waiting", "text 3", "centreY", ["centreY", "picture counter-tiny.png", 0]],
    ["3 waiting", "text 3", "width", ["<=", "width", "picture counter-tiny.png"]],
    ["3 waiting, hovered", "text 3", "color", "#ffffff"],
    ["3 waiting, hovered", "picture next.png", "visible", true],
    ["long text", "1 WidgetText", "truncated", true],
    ["long text", "1 WidgetText", "lineCount", 1],
    ["long text", "1 WidgetText", "right", ["<=", "left", "picture next-grey.png"]]
];
