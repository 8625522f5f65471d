"use strict";

// A text field for what the game asks for, so that a tablet raises its keyboard, with the pictures
// of a rule's letters beside it. What it holds is typed into the game key by key.

const typed = element("typed");
let typed_sent = ""; // what the game has of it
let typed_screen = ""; // what it is typed for: "rule", "name", or nothing

const untypable = /[^!#-_a-~]/g; // what no key of the game types: blanks, double quotes, accents
const colours = ["#ff0000", "#0000ff", "#00ff00", "#ffff00", "#9400ff", "#ff9400"];
const colour_names = ["red", "blue", "green", "yellow", "purple", "orange"];
const shapes = ["circle", "triangle", "square", "pentagon", "hexagon", "star"];

// By the letter: its picture, the picture's colour, its name.
const pictures = {
    T: ["eye", "white", "of the top card"],
    "~": ["similarity", "white", "same as the top card"],
};
shapes.forEach((shape, i) => {
    pictures["abcdef"[i]] = [shape, "white", shape];
    pictures["ABCDEF"[i]] = ["circle", colours[i], colour_names[i]];
});
const letter_names = {"!": "not", "&": "and", "|": "or", "^": "either or", "*": "any card"};
const rule_letters = "ABCDEFabcdef123456~T!&|^(),*";
const action_letters = "ABCDEFabcdef123456LR";

// A picture of the game in a colour, as a canvas that is filled when it has been decoded.
function picture_make(name, colour) {
    const picture = document.createElement("canvas");
    picture.width = picture.height = 48;
    const bytes = Module.FS.readFile(`/shipped/resources/${name}.png`);
    createImageBitmap(new Blob([bytes], {type: "image/png"})).then(bitmap => {
        const pen = picture.getContext("2d");
        pen.drawImage(bitmap, 0, 0, 48, 48);
        pen.globalCompositeOperation = "source-in";
        pen.fillStyle = colour;
        pen.fillRect(0, 0, 48, 48);
    });
    return picture;
}

function letter_type(letter) {
    typed.setRangeText(letter, typed.selectionStart, typed.selectionEnd, "end");
    typed_send();
}

function letter_erase() {
    const end = typed.selectionEnd;
    const start = typed.selectionStart < end ? typed.selectionStart : Math.max(0, end - 1);
    typed.setRangeText("", start, end, "end");
    typed_send();
}

function letters_show(letters) {
    element("letters").replaceChildren(...[...letters].map(letter => {
        const [picture, colour, name] = pictures[letter] || [];
        const content = picture ? picture_make(picture, colour) : letter;
        return button_make(content, name || letter_names[letter] || letter, () => letter_type(letter));
    }), button_make("⌫", "Erase", letter_erase));
}

// The game has a text that only grows and shrinks at its end: what differs is erased and typed anew.
function typed_send(event) {
    const text = typed.value.replace(/[‘’]/g, "'").replace(untypable, "");
    if (text !== typed.value && !event?.isComposing) {
        typed.value = text;
    }
    let same = 0;
    while (same < typed_sent.length && typed_sent[same] === text[same]) {
        ++same;
    }
    for (let left = typed_sent.length - same; left > 0; --left) {
        key_press({key: "Backspace", place: "Backspace"});
    }
    for (const letter of text.slice(same)) {
        key_press({key: letter});
    }
    typed_sent = text;
}

function typing_begin(screen) {
    typed.value = typed_sent = "";
    document.querySelector("#typing label").textContent =
        typed_screen === "name" ? "Map name" : "Type a rule";
    letters_show(typed_screen === "name" ? "" : screen.has("action") ? action_letters : rule_letters);
}

// At once, within the tap that asks for it, or some tablets raise no keyboard.
function typing_open() {
    element("typing").hidden = false;
    typed.focus();
}

// Shows the field while the game asks for a text and the page is made for fingers.
function typing_show(screen) {
    const asked = ["rule", "name"].find(word => screen.has(word)) || "";
    if (asked !== typed_screen) {
        typed_screen = asked;
        typing_begin(screen);
    }
    const shown = asked !== "" && page_touched();
    if (shown && element("typing").hidden) {
        typing_open();
    } else if (!shown && !element("typing").hidden) {
        element("typing").hidden = true;
        canvas_focus();
    }
}

// Keys that were typed into the canvas meanwhile are the game's, too.
typed.onfocus = () => {
    typed_sent = Module.ccall("page_typed", "string");
    typed.value = typed_sent;
};
typed.oninput = typed_send;
typed.onkeydown = event => {
    if (event.key === "Escape") {
        key_press({key: "Escape", place: "Escape"});
    }
};
element("typing").onsubmit = event => {
    event.preventDefault();
    key_press({key: "Enter", place: "Enter"});
};
