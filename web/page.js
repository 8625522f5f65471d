"use strict";

// Joins the game to the page around it.

// What the player is told of the store: maps that are not kept, and files that are of no use.
function store_show() {
    const maps = [...store.unkept].filter(path => /\/custom_[^/]*\/[^.]/.test(path))
        .map(path => path.replace(/.*\//, ""));
    const reason = store.reason || (maps.length > 0 && "the browser has no room for more");
    const names = maps.length > 0 ? `: ${maps.join(", ")}. Export what you want to keep.` : ".";
    warning_set("kept", reason && `Maps that you make are not kept, because ${reason}${names}`);
    warning_set("bad", store.bad.length > 0 &&
        `Left out, since they cannot be read: ${store.bad.join(", ")}.`);
}

let persistence_is_asked = false;

// The browser may clear what it keeps unless it is asked not to.
function persistence_ask() {
    const has_made = [...store.known.keys()].some(path => /\/(custom_|kept)/.test(path));
    if (has_made && !persistence_is_asked) {
        persistence_is_asked = true;
        navigator.storage?.persist?.().catch(() => {});
    }
}

store.changed = () => {
    store_show();
    persistence_ask();
};
store.replaced = () => {
    element("without").hidden = store.known.size === 0;
    if (game_runs()) {
        Module.ccall("page_files_changed");
    }
};

// Called by the game.

function page_started() {
    game_state = "running";
    clearTimeout(silence_timer);
    curtain_show("");
    element("choices").hidden = true;
    element("without").hidden = true;
    buttons_enable(true);
    element("fullscreen").hidden = !canvas.requestFullscreen;
    canvas_focus();
    link_open();
    worker_begin();
}

function page_ended() {
    game_over("Quorrel has ended.");
}

function page_fullscreen(wanted) {
    if (wanted !== is_fullscreen()) {
        fullscreen_set(wanted);
    }
}

// What the game tells of itself, until it is something else.
function page_stood(line) {
    element("line").textContent = line;
}

function page_told(line) {
    notice_show(line);
}

// Buttons and what is dropped.

element("fullscreen").onclick = () => {
    page_fullscreen(!is_fullscreen());
    canvas_focus();
};
element("export_map").onclick = () => goods_export().catch(() => notice_show("Nothing could be exported."));
element("import_map").onclick = () => element("file").click();
element("file").onchange = event => {
    files_take([...event.target.files]);
    event.target.value = "";
};
element("bring_back").onclick = kept_offer;
element("kept").onclose = kept_bring_back;
element("copy_link").onclick = () => link_copy().catch(() => notice_show("No link could be made."));

document.addEventListener("dragover", event => event.preventDefault());
document.addEventListener("drop", event => {
    event.preventDefault();
    if (game_runs()) {
        files_take([...event.dataTransfer.files]);
    }
});
canvas.addEventListener("contextmenu", event => event.preventDefault());
addEventListener("hashchange", () => game_runs() && link_open());

game_load();
