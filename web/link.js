"use strict";

// A map in a link: its family, name and text, one after the other on lines of their own, deflated
// and written in the letters that a link may hold.

const link_families = ["state", "pushdown", "turing"];
const link_letters_limit = 200000; // in the link
const link_bytes_limit = 1000000; // unpacked

// The bytes that a stream gives; fails when there are more than the limit.
async function stream_bytes(stream, limit) {
    const chunks = [];
    let size = 0;
    for (let reader = stream.getReader();;) {
        const {done, value} = await reader.read();
        if (done) {
            return new Uint8Array(await new Blob(chunks).arrayBuffer());
        }
        size += value.length;
        if (size > limit) {
            await reader.cancel();
            throw new Error("too large");
        }
        chunks.push(value);
    }
}

async function link_pack(map) {
    const head = new TextEncoder().encode(`${link_families[map.family]}\n${map.name}\n`);
    const deflated = new Blob([head, map.text]).stream()
        .pipeThrough(new CompressionStream("deflate-raw"));
    const bytes = await stream_bytes(deflated, link_bytes_limit);
    const letters = btoa(Array.from(bytes, byte => String.fromCharCode(byte)).join(""));
    return letters.replace(/\+/g, "-").replace(/\//g, "_").replace(/=+$/, "");
}

// The map of a link's letters; fails when they hold none.
async function link_unpack(letters) {
    if (letters.length > link_letters_limit) {
        throw new Error("too long");
    }
    const binary = atob(letters.replace(/-/g, "+").replace(/_/g, "/"));
    const inflated = new Blob([Uint8Array.from(binary, letter => letter.charCodeAt(0))]).stream()
        .pipeThrough(new DecompressionStream("deflate-raw"));
    const bytes = await stream_bytes(inflated, link_bytes_limit);
    const family_end = bytes.indexOf(10);
    const name_end = bytes.indexOf(10, family_end + 1);
    const line = (begin, end) => new TextDecoder().decode(bytes.subarray(begin, end));
    const family = link_families.indexOf(line(0, family_end));
    if (family < 0 || name_end < 0) {
        throw new Error("no map");
    }
    return {family, name: line(family_end + 1, name_end), text: bytes.subarray(name_end + 1)};
}
