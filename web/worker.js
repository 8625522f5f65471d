"use strict";

// Keeps the page's files, so that the game also starts without a network. With one, the files come
// from the server, which may have newer ones.

const files = ["./", "page.css", "touch.css", "touch.js", "keys.js", "typing.js", "store.js", "link.js", "page.js", "quorrel.js", "quorrel.wasm",
    "quorrel.data", "icon.svg", "rules.html", "map-format.html"];

async function file_answer(request) {
    const cache = await caches.open("quorrel");
    try {
        const answer = await fetch(request);
        if (answer.ok) {
            await cache.put(request, answer.clone());
        }
        return answer;
    } catch (error) {
        return await cache.match(request, {ignoreSearch: true}) || Response.error();
    }
}

addEventListener("install", event => {
    event.waitUntil(caches.open("quorrel").then(cache => cache.addAll(files)));
});
addEventListener("fetch", event => {
    if (event.request.method === "GET") {
        event.respondWith(file_answer(event.request));
    }
});
