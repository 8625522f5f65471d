"use strict";

// The player's files. The game works on copies in memory; where it is this tab's turn to write, every
// change goes to IndexedDB at once.

const store = {
    directory: "/player",
    turn: null, // the promise of this tab's turn
    database: null, // null where nothing is kept yet
    may_write: false,
    reason: "", // why nothing is kept
    bad: [], // what is kept but cannot be used
    known: new Map(), // contents by path, as they were read or kept last
    unkept: new Set(), // the files whose last change is not kept
    writing: 0, // changes under way
    changed() {}, // called when one of `reason`, `bad`, `unkept` and `writing` has changed
    replaced() {}, // called when files were read that the game may have read before
};

const store_patience = 5000; // milliseconds that the game waits for the browser's store
const turn_patience = 1000; // and for its turn: the tab that a reload replaces gives way by then

function request_done(request) {
    return new Promise((resolve, reject) => {
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error);
    });
}

async function database_open() {
    const request = indexedDB.open("quorrel", 1);
    request.onupgradeneeded = () => request.result.createObjectStore("files");
    const database = await request_done(request);
    database.onclose = store_rejoin;
    return database;
}

// Asked for at once, since the answer takes as long as the program's files.
const database_opened = database_open();
database_opened.catch(() => {}); // told by store_join

function reason_set(reason) {
    store.reason = reason;
    store.changed();
}

// Brings the kept files into memory. Never fails: `store.reason` and `store.bad` tell what is
// missing. What comes later than the game waits is brought in under its feet.
function store_load(FS) {
    store.FS = FS;
    FS.mkdirTree(store.directory);
    store_watch(FS);
    if (location.hash === "#without_maps") {
        history.replaceState(null, "", location.pathname + location.search);
        reason_set("Quorrel was started without them");
        return Promise.resolve();
    }
    store.turn = turn_wait(() => {
        store.may_write = false;
        reason_set("Quorrel was opened in another tab while this one slept. Load this page again");
    });
    return new Promise(resolve => {
        setTimeout(() => {
            if (store.database === null && store.reason === "") {
                reason_set("the browser's store does not answer");
            }
            resolve();
        }, store_patience);
        store_join(database_opened, resolve);
    });
}

// Reads what is kept, and from this tab's turn on keeps what it has changed.
async function store_join(opened, loaded) {
    const turn_comes = store.turn.then(() => true);
    const patience_ends = new Promise(resolve => setTimeout(resolve, turn_patience));
    try {
        const database = await opened;
        const is_turn = await Promise.race([turn_comes, patience_ends]);
        await files_read(database);
        loaded();
        if (!is_turn) {
            reason_set("Quorrel is open in another tab. They are as soon as that one is closed");
            await store.turn;
            await files_read(database);
        }
        store.database = database;
        store.may_write = true;
        reason_set("");
        files_keep([...store.unkept]);
    } catch (error) {
        console.info(error);
        reason_set("the browser keeps no files for this page");
        loaded();
    }
}

// The browser has closed the database, as it does when what it keeps is cleared. What is in memory
// is kept again.
function store_rejoin() {
    store.may_write = false;
    store.known.forEach((content, path) => store.unkept.add(path));
    store_join(database_open(), () => {});
}

// Reading.

async function files_read(database) {
    const files = database.transaction("files").objectStore("files");
    const [paths, contents] =
        await Promise.all([request_done(files.getAllKeys()), request_done(files.getAll())]);
    const kept = new Map(paths.map((path, i) => [path, contents[i]]));
    for (const path of store.known.keys()) {
        if (!kept.has(path) && !store.unkept.has(path) && file_content(path)) {
            store.FS.unlink_unwatched(path);
        }
    }
    const bad = paths.filter(path => !file_bring(path, kept.get(path)));
    bad.forEach(path => kept.delete(path));
    store.bad = bad.map(String);
    store.known = kept;
    store.replaced();
}

function is_player_file(path, content) {
    return typeof path === "string" && path.startsWith(`${store.directory}/`) &&
        path.split("/").every(part => part !== "." && part !== "..") && content instanceof Uint8Array;
}

// Brings a kept file into memory. One that was changed here meanwhile stays as it is here, or is
// joined with the kept one if it is a list of maps. False when what is kept is no file.
function file_bring(path, content) {
    try {
        if (!is_player_file(path, content)) {
            return false;
        }
        const is_changed = store.unkept.has(path);
        if (is_changed && !/\/resources\/[^/]*$/.test(path)) {
            rival_keep(path, content);
            return true;
        }
        const mine = is_changed && file_content(path);
        store.FS.mkdirTree(path.replace(/\/[^/]*$/, ""));
        store.FS.writeFile(path, mine ? lists_join(store.known.get(path), mine, content) : content);
        return true;
    } catch (error) {
        console.info(path, error);
        return false;
    }
}

// A list of maps, with what was added and removed here and in another tab since both had `before`.
function lists_join(before, mine, theirs) {
    const lines = content => new TextDecoder().decode(content).split("\n").filter(line => line !== "");
    const [old, here, there] = [before ?? new Uint8Array(), mine, theirs].map(lines);
    const joined = there.filter(line => here.includes(line) || !old.includes(line))
        .concat(here.filter(line => !there.includes(line) && !old.includes(line)));
    return new TextEncoder().encode(joined.map(line => `${line}\n`).join(""));
}

// Two tabs have made a map of the same name: the other tab's joins those that can be brought back.
function rival_keep(path, content) {
    const map = path.match(/\/custom_([a-z]+)_machines\/(?:.*\/)?([^/]+)$/);
    const is_old = [file_content(path), store.known.get(path)].some(old => same_content(old, content));
    if (!map || is_old) {
        return;
    }
    const date = new Date().toISOString().slice(0, 19).replace("T", "_").replace(/:/g, "-");
    const rival = `${store.directory}/kept/${map[2]}.${map[1]}.${date}`;
    store.FS.mkdirTree(`${store.directory}/kept`);
    store.FS.writeFile(rival, content);
    store.unkept.add(rival);
}

// Writing.

function same_content(a, b) {
    return a?.length === b?.length && (a ?? []).every((byte, i) => byte === b[i]);
}

// What a file in memory holds, or null when there is none.
function file_content(path) {
    return store.FS.analyzePath(path).exists ? store.FS.readFile(path) : null;
}

function changes_put(paths, contents) {
    const transaction = store.database.transaction("files", "readwrite", {durability: "strict"});
    const files = transaction.objectStore("files");
    paths.forEach((path, i) => contents[i] ? files.put(contents[i], path) : files.delete(path));
    return new Promise((resolve, reject) => {
        transaction.oncomplete = resolve;
        transaction.onabort = () => reject(transaction.error);
    });
}

// Keeps the files as they are now, all or none of them. Once there is room again, those are kept,
// too, for which there was none before.
async function files_keep(paths) {
    const contents = paths.map(file_content);
    let kept = store.may_write;
    store.writing += 1;
    try {
        await (kept && changes_put(paths, contents));
    } catch (error) {
        kept = false;
    }
    store.writing -= 1;
    paths.forEach((path, i) => {
        if (kept) {
            store.unkept.delete(path);
            contents[i] ? store.known.set(path, contents[i]) : store.known.delete(path);
        } else {
            store.unkept.add(path);
        }
    });
    store.changed();
    if (kept && store.unkept.size > 0) {
        files_keep([...store.unkept]);
    }
}

// The game replaces files by renaming and deletes by unlinking, nothing else.
function store_watch(FS) {
    const absolute = path => path.startsWith("/") ? path : `${FS.cwd()}/${path}`;
    FS.unlink_unwatched = FS.unlink;
    const watch = name => {
        const change = FS[name];
        FS[name] = (...paths) => {
            const touched = paths.map(absolute);
            change(...paths);
            if (touched[0].startsWith(store.directory)) {
                files_keep(touched);
            }
        };
    };
    watch("rename");
    watch("unlink");
}
