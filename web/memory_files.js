"use strict";

// Emscripten keeps the files in memory in plain objects, which know some names before a file has
// them, such as "hasOwnProperty" and "__proto__". This makes every name one like any other.
function memory_files_mend(FS) {
    const folders = FS.filesystems.MEMFS.ops_table.dir.node;
    const make = folders.mknod;
    folders.mknod = (parent, name, mode, device) => {
        const node = make(parent, name, mode, device);
        if (FS.isDir(node.mode)) {
            node.contents = Object.create(null);
        }
        return node;
    };
    folders.readdir = node => [".", "..", ...Object.keys(node.contents)];
}
