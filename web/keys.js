"use strict";

// The row of keys: what a keyboard can do on the screen that is shown, as buttons.

// What a button says, with a longer name for those who do not see it; the key that it presses, its
// place on a keyboard, and the one held with it; the screens that have it. It rests where none of
// the words after `needs` holds. The first line of a key counts whose words hold, and else its
// first. Some open the field for texts, one is down until it is pressed again; rare ones are left
// out where it is narrow, and there are others there: the game's own buttons are too small to be hit.
const keys = [
    {says: "Back", key: "Escape", place: "Escape", on: "seats maps game editor replay"},
    {says: "Continue", key: " ", place: "Space", on: "game", needs: "covered"},
    {says: "Play again", key: " ", place: "Space", on: "game", needs: "won"},
    {says: "Pause", name: "Pause or go on", key: " ", place: "Space", on: "replay"},
    {says: "◀", name: "One act back", key: "ArrowLeft", place: "ArrowLeft", on: "replay"},
    {says: "▶", name: "One act on", key: "ArrowRight", place: "ArrowRight", on: "replay"},
    {says: "◁", name: "Ring to the left", key: "ArrowLeft", place: "ArrowLeft",
        on: "seats editor", narrow: true},
    {says: "▷", name: "Ring to the right", key: "ArrowRight", place: "ArrowRight",
        on: "seats editor", narrow: true},
    {says: "△", name: "Ring up", key: "ArrowUp", place: "ArrowUp",
        on: "seats editor", narrow: true},
    {says: "▽", name: "Ring down", key: "ArrowDown", place: "ArrowDown",
        on: "seats editor", narrow: true},
    {says: "Press", name: "Press what the ring is on", key: "Enter", place: "Enter",
        on: "seats editor", narrow: true},
    {says: "Next map", key: "n", place: "KeyN", on: "next"},
    {says: "+ State", name: "Add a state", key: "1", place: "Digit1", on: "editor"},
    {says: "+ Arrow", name: "Add an arrow", key: "2", place: "Digit2", on: "editor", needs: "pair"},
    {says: "+ Stone", name: "Add a stone", key: "3", place: "Digit3", on: "editor", needs: "state"},
    {says: "Remove", key: "Delete", place: "Delete", on: "editor", needs: "state arrow"},
    {says: "− Stone", name: "Remove a stone", key: "Delete", place: "Delete", held: "Shift",
        on: "editor", needs: "state"},
    {says: "←", name: "Move left", key: "j", place: "KeyJ", on: "editor", needs: "state label"},
    {says: "↓", name: "Move down", key: "k", place: "KeyK", on: "editor", needs: "state label"},
    {says: "↑", name: "Move up", key: "i", place: "KeyI", on: "editor", needs: "state label"},
    {says: "→", name: "Move right", key: "l", place: "KeyL", on: "editor", needs: "state label"},
    {says: "Accept", name: "Make it accepting", key: "u", place: "KeyU", on: "editor", needs: "state"},
    {says: "Turn ↺", name: "Turn to the left", key: "u", place: "KeyU", on: "editor", needs: "arrow"},
    {says: "Reject", name: "Make it not accepting", key: "o", place: "KeyO", on: "editor",
        needs: "state"},
    {says: "Turn ↻", name: "Turn to the right", key: "o", place: "KeyO", on: "editor", needs: "arrow"},
    {says: "Rule", name: "Type the arrow's rule", key: "4", place: "Digit4", on: "editor",
        needs: "arrow", types: true},
    {says: "Labels", name: "Put the labels beside their arrows", key: "5", place: "Digit5",
        on: "editor", rare: true},
    {says: "Copy", key: "c", place: "KeyC", on: "editor", needs: "state arrow", rare: true},
    {says: "Paste", key: "v", place: "KeyV", on: "editor", rare: true},
    {says: "Undo", key: "z", place: "KeyZ", held: "Control", on: "game editor"},
    {says: "Redo", key: "y", place: "KeyY", held: "Control", on: "game editor"},
    {says: "Play it", name: "Play the map", key: "F9", place: "F9", on: "editor", needs: "playable"},
    {says: "Edit it", name: "Back to the editor", key: "F9", place: "F9", on: "trial"},
    {says: "Back to the game", key: "F4", place: "F4", on: "left"},
    {says: "Show again", name: "Show the game from its deal", key: "F4", place: "F4", held: "Shift",
        on: "again"},
    {says: "Load", key: "o", place: "KeyO", held: "Control", on: "editor"},
    {says: "Save", key: "s", place: "KeyS", held: "Control", on: "editor", types: true},
    {says: "Reset view", key: "r", place: "KeyR", on: "game editor"},
    {says: "Nimbers", key: "N", place: "KeyN", held: "Shift", on: "nimbers"},
    {says: "Show", name: "Show what can be done", key: "F2", place: "F2",
        on: "game editor", lasts: true},
    {says: "Hint", key: "F2", place: "F2", held: "Shift", on: "game"},
    {says: "Help", key: "F1", place: "F1", on: "title seats maps game editor replay"},
];

let screen_words = ""; // what the game told last

// The key reaches the game as those of a keyboard do.
function key_send(type, key, place) {
    canvas.dispatchEvent(new KeyboardEvent(type, {key, code: place, cancelable: true}));
}

function key_press({key, place = "", held}) {
    const places = held ? [[held, `${held}Left`], [key, place]] : [[key, place]];
    places.forEach(pressed => key_send("keydown", ...pressed));
    places.reverse().forEach(pressed => key_send("keyup", ...pressed));
}

function holds(words, screen) {
    return words.split(" ").some(word => screen.has(word));
}

// A button on the page that leaves the focus where it is, unless a keyboard presses it.
function button_make(content, name, act) {
    const button = document.createElement("button");
    button.type = "button";
    button.append(content);
    button.setAttribute("aria-label", name);
    button.onmousedown = event => event.preventDefault();
    button.onclick = act;
    return button;
}

const is_down = button => button.getAttribute("aria-pressed") === "true";

// Keeps the key down until the button is pressed again.
function key_hold(button, down) {
    const {key, place} = button.lines[0];
    button.setAttribute("aria-pressed", down);
    key_send(down ? "keydown" : "keyup", key, place);
}

// The lines of one key share a button.
function key_buttons_make() {
    const buttons = new Map();
    for (const line of keys) {
        const sort = `${line.place} ${line.held}`;
        if (!buttons.has(sort)) {
            const button = button_make(line.says, line.name || line.says, () => {
                key_press(line);
                if (line.types) {
                    typing_open();
                }
            });
            button.classList.toggle("rare", line.rare === true);
            if (line.lasts) {
                button.onclick = () => key_hold(button, !is_down(button));
            }
            button.lines = [];
            buttons.set(sort, button);
            element("keys").append(button);
        }
        buttons.get(sort).lines.push(line);
    }
}

// While the help lies over everything there is only the way back from it.
function key_button_show(button, screen) {
    const can_act = line => holds(line.on, screen) && (!line.needs || holds(line.needs, screen));
    const line = button.lines.find(can_act) || button.lines[0];
    button.hidden = screen.has("help") ? line.key !== "F1" : !holds(line.on, screen);
    if (button.hidden && is_down(button)) {
        key_hold(button, false);
    }
    button.disabled = !can_act(line);
    button.classList.toggle("narrow", line.narrow === true);
    button.textContent = line.says;
    button.setAttribute("aria-label", line.name || line.says);
}

function screen_show() {
    const screen = new Set(screen_words.split(" "));
    for (const button of element("keys").children) {
        key_button_show(button, screen);
    }
    typing_show(screen);
    element("keys").hidden = !element("typing").hidden;
    element("resume").hidden = !screen.has("left");
}

// Called by the game, with words for what is shown and what can be done there.
function page_screen(words) {
    screen_words = words;
    screen_show();
}

// Whether the page is made for fingers: it has the row of keys, and a picture that fills what is left.
function page_touched() {
    return document.body.classList.contains("touched");
}

function page_touched_set(touched) {
    document.body.classList.toggle("touched", touched);
    element("touched").setAttribute("aria-pressed", touched);
    screen_show();
}

key_buttons_make();
element("resume").onclick = () => {
    key_press({key: "F4", place: "F4"});
    canvas_focus();
};
element("touched").onclick = () => page_touched_set(!page_touched());
page_touched_set(matchMedia("(pointer: coarse)").matches);
