"use strict";

// The page's life beside the game's: it is hidden, frozen and left, loses the GPU, fills the screen,
// and is kept for a start without a network.

const gpu_patience = 10000; // milliseconds that the browser may take to give the GPU back
const worker_delay = 1000; // milliseconds between the first picture and the worker

// In somebody else's page the focus stays where it is until this one is touched.
function canvas_focus() {
    if (self === top || document.hasFocus()) {
        canvas.focus({preventScroll: true});
    }
}

// Keeps the map under work: what comes next may be the end.
function work_keep() {
    if (game_runs()) {
        Module.ccall("page_leave");
    }
}

document.addEventListener("visibilitychange", () => document.hidden && work_keep());
document.addEventListener("freeze", work_keep);
addEventListener("pagehide", work_keep);
addEventListener("beforeunload", event => {
    work_keep();
    if (store.writing > 0) {
        event.preventDefault();
    }
});

let gpu_timer = 0;

canvas.addEventListener("webglcontextlost", () => {
    gpu_timer = setTimeout(() => {
        work_keep();
        game_over("The browser took the graphics away from the game and did not give them back.");
    }, gpu_patience);
});
canvas.addEventListener("webglcontextrestored", () => clearTimeout(gpu_timer));

const is_fullscreen = () => Boolean(document.fullscreenElement);

function fullscreen_tell() {
    if (game_runs()) {
        Module.ccall("page_fullscreen_changed", null, ["boolean"], [is_fullscreen()]);
    }
}

// The game waits for the answer, so it must not come before this has returned.
async function fullscreen_set(wanted) {
    await null;
    const shown = page_touched() ? document.documentElement : canvas; // with or without the keys
    try {
        await (wanted ? shown.requestFullscreen() : document.exitFullscreen());
    } catch (error) {
        notice_show("The browser does not let the game fill the screen.");
        fullscreen_tell();
        return;
    }
    if (wanted) {
        navigator.keyboard?.lock?.(["Escape"]).catch(() => {}); // where it may, Escape stays the game's
    }
}

document.addEventListener("fullscreenchange", fullscreen_tell);

// Keeps the page for a start without a network. The game is to be seen first: fetching all files
// once more would hold it up.
function worker_begin() {
    requestAnimationFrame(() => setTimeout(() => {
        try {
            navigator.serviceWorker?.register("worker.js").catch(() => {});
        } catch (error) {
            console.info(error); // a frame without rights plays on without it
        }
    }, worker_delay));
}
