"use strict";

// Maps and games that come to the page and go from it: files, links, and what was kept of lost maps.

const endings = {map: "quorrel", game: "quorrel-game"}; // of files
let taking = Promise.resolve(); // of all that came so far, one after the other

// Takes what comes next, once all that came before is taken. What fails is told with these words.
function take_next(take, failure) {
    taking = taking.then(take).catch(error => {
        console.info(error);
        notice_show(failure);
    });
}

// What comes.

let asking = Promise.resolve(); // of all questions so far: two at once would share a dialog's answer

// Shows a dialog, once the one before is answered; its answer.
function dialog_ask(dialog) {
    asking = asking.then(() => new Promise(resolve => {
        dialog.returnValue = "";
        dialog.onclose = () => resolve(dialog.returnValue);
        dialog.showModal();
    }));
    return asking;
}

// Asks the player; the first family when the question is left without an answer.
async function family_ask(name) {
    element("families_name").textContent = name;
    element("families_choices").replaceChildren(...family_names().map((family, i) => {
        const button = document.createElement("button");
        button.value = i;
        button.textContent = family;
        return button;
    }));
    return Number(await dialog_ask(element("families")));
}

function map_show(path, family) {
    const taken = Module.ccall("page_map_take", "boolean", ["string", "number"], [path, family]);
    if (taken) {
        notice_show("The map is in your list.");
        canvas_focus();
    }
    return taken;
}

// Hands bytes to the game as a file, for as long as it takes.
async function file_lend(name, bytes, take) {
    const path = `/incoming/${name.replace(/[^\w.-]/g, "_").replace(/^\.*/, "").slice(0, 64) || "map"}`;
    Module.FS.mkdirTree("/incoming");
    Module.FS.writeFile(path, bytes);
    try {
        return await take(path);
    } finally {
        Module.FS.unlink(path);
    }
}

const file_is_game = path => Module.ccall("page_file_is_game", "boolean", ["string"], [path]);

// Opens a game on the board. What is wrong with it the game says.
function game_show(path) {
    if (Module.ccall("page_game_open", "boolean", ["string"], [path])) {
        canvas_focus();
    }
}

// Adds a map of unknown family to the player's and shows it in the list, or opens a game.
async function file_show(path, name) {
    if (file_is_game(path)) {
        game_show(path);
        return;
    }
    const family = Module.ccall("page_file_family", "number", ["string"], [path]);
    map_show(path, family < 0 ? await family_ask(name) : family);
}

async function file_take(file) {
    if (file.size > Module.ccall("page_text_limit", "number")) {
        notice_show(`${file.name} is too large for a map.`);
        return;
    }
    const bytes = new Uint8Array(await file.arrayBuffer());
    await file_lend(file.name, bytes, path => file_show(path, file.name));
}

function files_take(files) {
    for (const file of files) {
        take_next(() => file_take(file), `${file.name} cannot be read.`);
    }
}

// With seats, the game on it begins at once.
function map_play(seats) {
    if (!Module.ccall("page_map_play", "boolean", ["string"], [seats])) {
        notice_show("The map is in your list; the link names no seats such as human,hard.");
    }
}

async function map_link_take(letters, seats) {
    const map = map_part(await link_unpack(letters));
    const taken = await file_lend(map.name, map.text, path => map_show(path, map.family));
    if (taken && seats) {
        map_play(seats);
    }
}

async function game_link_take(letters) {
    await file_lend("link", await link_unpack(letters), path => {
        if (!file_is_game(path)) {
            throw new Error("no game");
        }
        game_show(path);
    });
}

// Mail and messengers leave a tail at a link; it ends the letters.
function link_open() {
    const [, what, letters, tail] = location.hash.match(/^#(map|game)=([\w-]*)(.*)/s) || [];
    if (!what) {
        return;
    }
    const [, seats] = tail.replace(/%2c/gi, ",").match(/&seats=([a-z,]*)/) || [];
    history.replaceState(null, "", location.pathname + location.search);
    take_next(() => what === "map" ? map_link_take(letters, seats) : game_link_take(letters),
        self.DecompressionStream ? `The link holds no ${what} that can be read.` :
            "This browser is too old to open links; files can be imported.");
}

// What goes.

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

// What the game writes with one of its functions.
function file_written(write) {
    const path = "/outgoing";
    Module.ccall(write, null, ["string"], [path]);
    const bytes = Module.FS.readFile(path);
    Module.FS.unlink(path);
    return bytes;
}

// Asks which of both when a game is on the board: "map" or "game", nothing when neither is meant.
async function goods_ask() {
    return Module.ccall("page_has_game", "boolean") ? dialog_ask(element("goods")) : "map";
}

// What is to go, a map with its family; null on the title menu, where no map has been chosen yet.
async function goods_take() {
    const family = Module.ccall("page_map_family", "number");
    if (family < 0) {
        notice_show("Choose a map first.");
        return null;
    }
    const name = Module.ccall("page_map_name", "string");
    const what = await goods_ask();
    if (what === "") {
        return null;
    }
    if (what === "game" && !Module.ccall("page_has_game", "boolean")) {
        return null; // it has ended meanwhile
    }
    return {what, family, name, text: file_written(`page_${what}_write`)};
}

async function goods_export() {
    const goods = await goods_take();
    if (goods && goods.text.length > Module.ccall("page_text_limit", "number")) {
        notice_show(`The ${goods.what} is too large: its file could not be read again.`);
    } else if (goods) {
        const anchor = document.createElement("a");
        anchor.href = URL.createObjectURL(new Blob([goods.text]));
        anchor.download = `${goods.name.replace(/[^\w-]/g, "_")}.${endings[goods.what]}`;
        anchor.click();
        setTimeout(() => URL.revokeObjectURL(anchor.href), 60000); // the download has begun by then
    }
}

async function link_copy() {
    if (!self.CompressionStream) {
        notice_show("This browser is too old to make links; export a file instead.");
        return;
    }
    const goods = await goods_take();
    if (!goods) {
        return;
    }
    const letters = await link_pack(goods.what === "map" ? map_join(goods) : goods.text);
    if (letters === null) {
        notice_show(`The ${goods.what} is too large for a link; export it as a file.`);
        return;
    }
    const link = `${location.origin}${location.pathname}#${goods.what}=${letters}`;
    try {
        await navigator.clipboard.writeText(link);
        notice_show("The link is copied.");
    } catch (error) {
        element("link_text").value = link;
        element("link").showModal();
        element("link_text").select();
    }
}
