"use strict";

// What the page says, in two places: warnings, which stay until their cause is gone, and notices,
// which pass.

const notice_time = 20000; // milliseconds
const warnings = new Map(); // by their cause
let notice_timer = 0;

// Says one line in place of the one before.
function notice_show(text) {
    element("notice").textContent = text;
    clearTimeout(notice_timer);
    notice_timer = setTimeout(() => element("notice").textContent = "", notice_time);
}

// Warns of a cause; without a text no more.
function warning_set(cause, text) {
    if (text && warnings.get(cause) === text) {
        return;
    }
    if (text) {
        warnings.set(cause, text);
    } else if (!warnings.delete(cause)) {
        return;
    }
    element("warnings").replaceChildren(...[...warnings.values()].map(warning => {
        const line = document.createElement("p");
        line.textContent = warning;
        return line;
    }));
}
