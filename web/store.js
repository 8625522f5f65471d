"use strict";

// The player's files. The game works on copies in memory; every change goes to IndexedDB at once.

const store = {
    directory: "/player",
    database: null, // null where nothing is kept
    reason: "", // why nothing is kept
    writing: 0, // changes under way
    unkept: new Set(), // the files whose last change was not kept
    changed() {}, // called when `writing` or `unkept` has changed
};

function request_done(request) {
    return new Promise((resolve, reject) => {
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error);
    });
}

function database_open() {
    const request = indexedDB.open("quorrel", 1);
    request.onupgradeneeded = () => request.result.createObjectStore("files");
    return request_done(request);
}

// Whether this tab may write: two would replace each other's lists of maps. The tab that a reload
// replaces gives way within a moment.
function writing_claim() {
    if (!navigator.locks) {
        return true;
    }
    return new Promise(resolve => {
        const claimed = () => {
            resolve(true);
            return new Promise(() => {}); // until the tab is closed
        };
        navigator.locks.request("quorrel", {signal: AbortSignal.timeout(1000)}, claimed)
            .catch(() => resolve(false));
    });
}

async function files_read(FS, database) {
    const files = database.transaction("files").objectStore("files");
    const [paths, contents] =
        await Promise.all([request_done(files.getAllKeys()), request_done(files.getAll())]);
    paths.forEach((path, i) => {
        FS.mkdirTree(path.replace(/\/[^/]*$/, ""));
        FS.writeFile(path, contents[i]);
    });
}

// Brings the kept files into memory. Never fails: `store.reason` tells what is missing.
async function store_load(FS) {
    FS.mkdirTree(store.directory);
    try {
        const database = await database_open();
        await files_read(FS, database);
        if (await writing_claim()) {
            store.database = database;
        } else {
            store.reason = "Quorrel is open in another tab";
        }
    } catch (error) {
        store.reason = "the browser keeps no files for this page";
    }
    store_watch(FS);
}

// Keeps the files as they are now, all or none of them.
function files_keep(FS, paths) {
    const done = kept => {
        store.writing -= 1;
        paths.forEach(path => kept ? store.unkept.delete(path) : store.unkept.add(path));
        store.changed();
    };
    store.writing += 1;
    try {
        const transaction = store.database.transaction("files", "readwrite", {durability: "strict"});
        const files = transaction.objectStore("files");
        for (const path of paths) {
            if (FS.analyzePath(path).exists) {
                files.put(FS.readFile(path), path);
            } else {
                files.delete(path);
            }
        }
        transaction.oncomplete = () => done(true);
        transaction.onabort = () => done(false);
    } catch (error) {
        done(false);
    }
}

// The game replaces files by renaming and deletes by unlinking, nothing else.
function store_watch(FS) {
    const absolute = path => path.startsWith("/") ? path : `${FS.cwd()}/${path}`;
    const watch = name => {
        const change = FS[name];
        FS[name] = (...paths) => {
            const touched = paths.map(absolute);
            change(...paths);
            if (touched[0].startsWith(store.directory)) {
                files_keep(FS, touched);
            }
        };
    };
    watch("rename");
    watch("unlink");
}
