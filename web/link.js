"use strict";

// A map or a game in a link: its text, deflated and written in the letters that a link may hold. A
// map's begins with its family and its name, each on a line of its own.

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

// The letters for some bytes; null when there are too many for a link to be opened again.
async function link_pack(bytes) {
    const limits = link_limits();
    if (bytes.length > limits.bytes) {
        return null;
    }
    const deflated = new Blob([bytes]).stream().pipeThrough(new CompressionStream("deflate-raw"));
    const packed = await stream_bytes(deflated, Infinity);
    const letters = btoa(Array.from(packed, byte => String.fromCharCode(byte)).join(""))
        .replace(/\+/g, "-").replace(/\//g, "_").replace(/=+$/, "");
    return letters.length > limits.letters ? null : letters;
}

// The bytes of a link's letters; fails when they hold none.
async function link_unpack(letters) {
    const limits = link_limits();
    if (letters.length > limits.letters) {
        throw new Error("too long");
    }
    const binary = atob(letters.replace(/-/g, "+").replace(/_/g, "/"));
    const inflated = new Blob([Uint8Array.from(binary, letter => letter.charCodeAt(0))]).stream()
        .pipeThrough(new DecompressionStream("deflate-raw"));
    return stream_bytes(inflated, limits.bytes);
}

function map_join({family, name, text}) {
    const head = new TextEncoder().encode(`${family_names()[family]}\n${name}\n`);
    const bytes = new Uint8Array(head.length + text.length);
    bytes.set(head);
    bytes.set(text, head.length);
    return bytes;
}

// Fails when the bytes hold no map.
function map_part(bytes) {
    const family_end = bytes.indexOf(10);
    const name_end = bytes.indexOf(10, family_end + 1);
    const line = (begin, end) => new TextDecoder().decode(bytes.subarray(begin, end));
    const family = family_names().indexOf(line(0, family_end));
    if (family < 0 || name_end < 0) {
        throw new Error("no map");
    }
    return {family, name: line(family_end + 1, name_end), text: bytes.subarray(name_end + 1)};
}
