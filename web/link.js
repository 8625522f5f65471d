"use strict";

// A map in a link: its family, name and text, one after the other on lines of their own, deflated
// and written in the letters that a link may hold.

const link_limits = () => ({
    letters: Module.ccall("page_code_length_limit", "number"), // in the link
    bytes: Module.ccall("page_code_bytes_limit", "number"), // unpacked
});

// What links call the families, in the game's order.
function family_names() {
    const names = [];
    for (let name; (name = Module.ccall("page_family_name", "string", ["number"], [names.length]));) {
        names.push(name);
    }
    return names;
}

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

// The letters for a map; null when it is too large for a link to be opened again.
async function link_pack(map) {
    const limits = link_limits();
    const head = new TextEncoder().encode(`${family_names()[map.family]}\n${map.name}\n`);
    if (head.length + map.text.length > limits.bytes) {
        return null;
    }
    const deflated = new Blob([head, map.text]).stream()
        .pipeThrough(new CompressionStream("deflate-raw"));
    const bytes = await stream_bytes(deflated, Infinity);
    const letters = btoa(Array.from(bytes, byte => String.fromCharCode(byte)).join(""))
        .replace(/\+/g, "-").replace(/\//g, "_").replace(/=+$/, "");
    return letters.length > limits.letters ? null : letters;
}

// The map of a link's letters; fails when they hold none.
async function link_unpack(letters) {
    const limits = link_limits();
    if (letters.length > limits.letters) {
        throw new Error("too long");
    }
    const binary = atob(letters.replace(/-/g, "+").replace(/_/g, "/"));
    const inflated = new Blob([Uint8Array.from(binary, letter => letter.charCodeAt(0))]).stream()
        .pipeThrough(new DecompressionStream("deflate-raw"));
    const bytes = await stream_bytes(inflated, limits.bytes);
    const family_end = bytes.indexOf(10);
    const name_end = bytes.indexOf(10, family_end + 1);
    const line = (begin, end) => new TextDecoder().decode(bytes.subarray(begin, end));
    const family = family_names().indexOf(line(0, family_end));
    if (family < 0 || name_end < 0) {
        throw new Error("no map");
    }
    return {family, name: line(family_end + 1, name_end), text: bytes.subarray(name_end + 1)};
}
