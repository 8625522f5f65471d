"use strict";

// Maps that come to the page and go from it: files, links, and what was kept of lost ones.

let taking = Promise.resolve(); // of all that came so far, one after the other

// Takes what comes next, once all that came before is taken. What fails is told with these words.
function take_next(take, failure) {
    taking = taking.then(take).catch(error => {
        console.info(error);
        notice_show(failure);
    });
}

// Maps that come.

// Asks the player; the first family when the question is left without an answer.
function family_ask(name) {
    const dialog = element("families");
    element("families_name").textContent = name;
    element("families_choices").replaceChildren(...family_names().map((family, i) => {
        const button = document.createElement("button");
        button.value = i;
        button.textContent = family;
        return button;
    }));
    dialog.returnValue = "";
    dialog.showModal();
    return new Promise(resolve => {
        dialog.onclose = () => resolve(Number(dialog.returnValue));
    });
}

function map_show(path, family) {
    if (Module.ccall("page_map_take", "boolean", ["string", "number"], [path, family])) {
        notice_show("The map is in your list.");
        canvas_focus();
    }
}

// Adds a map to the player's and shows it in the list. A family below 0 is found out.
async function map_take(name, bytes, family) {
    const path = `/incoming/${name.replace(/[^\w.-]/g, "_").replace(/^\.*/, "").slice(0, 64) || "map"}`;
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
    if (file.size > Module.ccall("page_text_limit", "number")) {
        notice_show(`${file.name} is too large for a map.`);
        return;
    }
    await map_take(file.name, new Uint8Array(await file.arrayBuffer()), -1);
}

function files_take(files) {
    for (const file of files) {
        take_next(() => file_take(file), `${file.name} cannot be read.`);
    }
}

// Mail and messengers leave a tail at a link; it ends the letters.
function link_open() {
    const letters = location.hash.match(/^#map=([\w-]*)/);
    if (!letters) {
        return;
    }
    history.replaceState(null, "", location.pathname + location.search);
    take_next(async () => {
        const map = await link_unpack(letters[1]);
        await map_take(map.name, map.text, map.family);
    }, self.DecompressionStream ? "The link holds no map that can be read." :
        "This browser is too old to open links of maps; their files can be imported.");
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
    if (map && map.text.length > Module.ccall("page_text_limit", "number")) {
        notice_show("The map is too large: its file could not be read again.");
    } else if (map) {
        const anchor = document.createElement("a");
        anchor.href = URL.createObjectURL(new Blob([map.text]));
        anchor.download = `${map.name.replace(/[^\w-]/g, "_")}.quorrel`;
        anchor.click();
        setTimeout(() => URL.revokeObjectURL(anchor.href), 60000); // the download has begun by then
    }
}

async function link_copy() {
    const map = map_loaded();
    if (!map) {
        return;
    }
    if (!self.CompressionStream) {
        notice_show("This browser is too old to make links of maps; export the map as a file.");
        return;
    }
    const letters = await link_pack(map);
    if (letters === null) {
        notice_show("The map is too large for a link; export it as a file.");
        return;
    }
    const link = `${location.origin}${location.pathname}#map=${letters}`;
    try {
        await navigator.clipboard.writeText(link);
        notice_show("The link is copied.");
    } catch (error) {
        element("link_text").value = link;
        element("link").showModal();
        element("link_text").select();
    }
}
