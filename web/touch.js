"use strict";

// Fingers and pens on the canvas, told to the game, which finds out what they do.

const finger_phases = {
    pointerdown: 0,
    pointermove: 1,
    pointerup: 2,
    pointercancel: 3,
    lostpointercapture: 3,
};
const palm_size = 160; // units of the page, about 4 cm: no finger touches that much

function finger_tell(event) {
    const is_palm = Math.max(event.width, event.height) > palm_size;
    const phase = is_palm ? finger_phases.pointercancel : finger_phases[event.type];
    const corner = canvas.getBoundingClientRect();
    Module._page_finger(event.pointerId, phase, event.clientX - corner.left,
        event.clientY - corner.top, event.timeStamp);
}

function pointer_event(event) {
    if (event.type === "pointerdown") {
        canvas.setPointerCapture(event.pointerId); // to hear of it wherever it goes up
    }
    if (event.pointerType === "mouse" || !game_runs()) {
        return;
    }
    if (event.type === "pointerdown") {
        event.preventDefault(); // or a mouse event follows
        page_touched_set(true);
    }
    finger_tell(event);
}

for (const type in finger_phases) {
    canvas.addEventListener(type, pointer_event);
}
// A middle button that is held drags the board, and not the page.
canvas.addEventListener("mousedown", event => event.button === 1 && event.preventDefault());
