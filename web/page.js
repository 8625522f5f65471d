"use strict";

// The page around the game: loading, notices, buttons, maps that come and go.

const element = id => document.getElementById(id);
const canvas = element("canvas");
const map_file_limit = 4 * 1024 * 1024; // bytes

// What the page has to say: one line, the newest.
function notice_show(text) {
    element("notice").textContent = text;
    element("notice").title = text;
}

// Covers the game with a text; without a text shows the game.
function curtain_show(text) {
    element("curtain").hidden = text === "";
    element("curtain_text").textContent = text;
}

function game_over(text) {
    curtain_show(text);
    element("progress").hidden = true;
    element("again").hidden = false;
    element("again").focus();
}

// Emscripten reports the download as "Downloading data... (bytes/bytes)".
function progress_show(status) {
    const bytes = status.match(/\((\d+)\/(\d+)\)/);
    if (bytes) {
        element("progress").value = bytes[1];
        element("progress").max = bytes[2];
    }
}

function unkept_show() {
    const maps = [...store.unkept].filter(path => /\/custom_[^/]*\/[^.]/.test(path))
        .map(path => path.replace(/.*\//, ""));
    if (maps.length > 0) {
        const reason = store.reason || "the browser has no room for more";
        notice_show(`Not kept, because ${reason}: ${maps.join(", ")}. ` +
            "Export what you want to keep before you close the page.");
    }
}

var Module = {
    preRun: [() => {
        Module.addRunDependency("store");
        store_load(Module.FS).then(() => Module.removeRunDependency("store"));
    }],
    setStatus: progress_show,
    // What the game says stays in the console; why it refused a map or stopped is shown, too.
    printErr(line) {
        console.info(line);
        notice_show(line.replace(/^quorrel: (\/incoming\/)?/, ""));
    },
    quit(status, stop) {
        game_over(canvas.getContext("webgl2") ? "Quorrel has stopped." :
            "Quorrel draws with WebGL 2, which this browser does not have or has switched off. " +
            "Any current browser has it, where the graphics of the computer are not blocked.");
        throw stop;
    },
    onAbort() {
        game_over("Quorrel has stopped: the browser gave it too little memory.");
    },
};

function fullscreen_tell() {
    Module.ccall("page_fullscreen_changed", null, ["boolean"],
        [document.fullscreenElement !== null]);
}

// Called by the game.

function page_started() {
    curtain_show("");
    canvas.focus();
    if (store.reason) {
        notice_show(`Maps that you make are not kept, because ${store.reason}.`);
    }
    link_open();
}

function page_ended() {
    game_over("Quorrel has ended.");
}

function page_fullscreen(wanted) {
    if (wanted === (document.fullscreenElement !== null)) {
        return;
    }
    const changed = wanted ? canvas.requestFullscreen() : document.exitFullscreen();
    // Where the browser allows it, Escape stays the game's.
    changed.then(() => wanted && navigator.keyboard?.lock(["Escape"])).catch(fullscreen_tell);
}

function page_told(line) {
    notice_show(line);
}

// Maps that come.

// Asks the player; state when the question is left without an answer.
function family_ask(name) {
    const dialog = element("families");
    element("families_name").textContent = name;
    dialog.showModal();
    return new Promise(resolve => {
        dialog.onclose = () => resolve(Number(dialog.returnValue));
    });
}

function map_show(path, family) {
    if (Module.ccall("page_map_take", "boolean", ["string", "number"], [path, family])) {
        notice_show("The map is in your list.");
        canvas.focus();
    }
}

// Adds a map to the player's and shows it in the list. A family below 0 is found out.
async function map_take(name, bytes, family) {
    const path = `/incoming/${name.replace(/[^\w.-]/g, "_").slice(0, 64) || "map"}`;
    Module.FS.mkdirTree("/incoming");
    Module.FS.writeFile(path, bytes);
    if (family < 0) {
        family = Module.ccall("page_file_family", "number", ["string"], [path]);
    }
    if (family < 0) {
        family = await family_ask(name);
    }
    map_show(path, family);
    Module.FS.unlink(path);
}

async function file_take(file) {
    if (file.size > map_file_limit) {
        notice_show(`${file.name} is too large for a map.`);
        return;
    }
    await map_take(file.name, new Uint8Array(await file.arrayBuffer()), -1);
}

async function link_open() {
    const letters = location.hash.match(/^#map=(.*)$/);
    if (!letters) {
        return;
    }
    history.replaceState(null, "", location.pathname + location.search);
    try {
        const map = await link_unpack(letters[1]);
        await map_take(map.name, map.text, map.family);
    } catch (error) {
        notice_show("The link holds no map that can be read.");
    }
}

// Maps that go.

// Offers what the game has kept of replaced, deleted and unsaved maps, the newest first.
function kept_offer() {
    const folder = `${store.directory}/kept`;
    const names = Module.FS.analyzePath(folder).exists ? Module.FS.readdir(folder) : [];
    const date = name => name.replace(/.*\.(?=\d)/, "");
    const choices = names.filter(name => /\.\d{4}-/.test(name))
        .sort((a, b) => date(b).localeCompare(date(a)))
        .map(name => new Option(name, `${folder}/${name}`));
    element("kept_maps").replaceChildren(...choices);
    element("kept_none").hidden = choices.length > 0;
    element("kept").showModal();
}

function kept_bring_back() {
    const path = element("kept_maps").value;
    if (element("kept").returnValue === "bring" && path) {
        map_show(path, -1);
    }
}

// The map that is loaded, or null on the title menu, where none has been chosen yet.
function map_loaded() {
    const family = Module.ccall("page_map_family", "number");
    if (family < 0) {
        notice_show("Choose a map first.");
        return null;
    }
    const path = "/outgoing";
    Module.ccall("page_map_write", null, ["string"], [path]);
    const map = {
        family,
        name: Module.ccall("page_map_name", "string"),
        text: Module.FS.readFile(path),
    };
    Module.FS.unlink(path);
    return map;
}

function map_export() {
    const map = map_loaded();
    if (map) {
        const anchor = document.createElement("a");
        anchor.href = URL.createObjectURL(new Blob([map.text]));
        anchor.download = `${map.name.replace(/[^\w-]/g, "_")}.quorrel`;
        anchor.click();
        setTimeout(() => URL.revokeObjectURL(anchor.href), 60000); // the download has begun by then
    }
}

async function link_copy() {
    const map = map_loaded();
    if (map) {
        const link = `${location.origin}${location.pathname}#map=${await link_pack(map)}`;
        await navigator.clipboard.writeText(link);
        notice_show("The link is copied.");
    }
}

// Events.

store.changed = unkept_show;

element("fullscreen").onclick = () => {
    page_fullscreen(true);
    canvas.focus();
};
element("export_map").onclick = map_export;
element("import_map").onclick = () => element("file").click();
element("file").onchange = async event => {
    for (const file of event.target.files) {
        await file_take(file);
    }
    event.target.value = "";
};
element("bring_back").onclick = kept_offer;
element("kept").onclose = kept_bring_back;
element("copy_link").onclick = () => link_copy().catch(() => notice_show("No link could be copied."));
element("again").onclick = () => location.reload();

document.addEventListener("fullscreenchange", fullscreen_tell);
document.addEventListener("dragover", event => event.preventDefault());
document.addEventListener("drop", async event => {
    event.preventDefault();
    for (const file of [...event.dataTransfer.files]) {
        await file_take(file);
    }
});
canvas.addEventListener("contextmenu", event => event.preventDefault());
addEventListener("hashchange", link_open);
navigator.serviceWorker?.register("worker.js").catch(() => {}); // plays on without it
addEventListener("beforeunload", event => {
    if (Module.calledRun) {
        Module.ccall("page_leave");
    }
    if (store.writing > 0) {
        event.preventDefault();
    }
});
