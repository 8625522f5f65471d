"use strict";

// Keeps a whole set of the page's files, those of one build, so that the game starts without a
// network and never from files of two builds. A new build comes with a worker of its own, which
// counts once it has all of its files; the next start is the new build's.

const build = "BUILD";
const files = FILES; // what each file's bytes have to be
const set = `quorrel-${build}`;
const patience = 60000; // milliseconds that the server may take for a file

// A file of this build. What the browser itself has kept of it will do if its bytes are the right
// ones.
async function file_fetch(name) {
    const silence = new AbortController();
    const timer = setTimeout(() => silence.abort(), patience);
    const ask = async cache => {
        const answer = await fetch(name, {cache, integrity: files[name], signal: silence.signal});
        const headers = {"Content-Type": answer.headers.get("Content-Type")};
        return new Response(await answer.arrayBuffer(), {headers});
    };
    try {
        return await ask("default").catch(() => ask("reload"));
    } finally {
        clearTimeout(timer);
    }
}

// The page itself is put in last: a set that has it is whole.
async function set_install() {
    const names = Object.keys(files).sort((a, b) => (a === "./") - (b === "./"));
    const answers = await Promise.all(names.map(file_fetch));
    const cache = await caches.open(set);
    for (const [i, name] of names.entries()) {
        await cache.put(name, answers[i]);
    }
    await skipWaiting();
}

// One set stays beside the new one, for the pages that were opened with it.
async function old_sets_delete() {
    const others = (await caches.keys()).filter(name => name !== set);
    const whole = [];
    for (const name of others) {
        (await (await caches.open(name)).match("./")) && whole.push(name);
    }
    const stays = whole.pop();
    await Promise.all(others.filter(name => name !== stays).map(name => caches.delete(name)));
}

async function file_answer(request) {
    const own = await caches.open(set);
    const address = request.url.replace(/\/index\.html(?=$|[?#])/, "/");
    return await own.match(address, {ignoreSearch: true}) || await caches.match(request) || fetch(request);
}

addEventListener("install", event => event.waitUntil(set_install()));
addEventListener("activate", event => event.waitUntil(old_sets_delete()));
addEventListener("fetch", event => {
    if (event.request.method === "GET") {
        event.respondWith(file_answer(event.request));
    }
});
