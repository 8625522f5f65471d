"use strict";

// While nothing moves the game asks for no pictures. Here is what makes it ask again: whatever the
// player or the browser does that its next step may see.

const wakers = "keydown keyup mousedown mousemove mouseup wheel pointerdown pointermove pointerup " +
    "pointercancel lostpointercapture focus blur resize pageshow gamepadconnected";

function game_wake() {
    if (game_runs()) {
        Module._page_wake();
    }
}

for (const type of wakers.split(" ")) {
    addEventListener(type, game_wake, {capture: true, passive: true});
}
document.addEventListener("visibilitychange", game_wake);
matchMedia("(prefers-reduced-motion: reduce)").addEventListener("change", game_wake);
new ResizeObserver(game_wake).observe(canvas);
