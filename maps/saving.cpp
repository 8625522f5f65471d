#include "maps/saving.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "base/message.h"
#include "base/tidings.h"
#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/kept.h"
#include "maps/map_work.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace {

// A map file on its way to the disk, compared with the one it will replace.
struct saving {
    file_id fresh;
    file_id earlier;
    i64 size;   // bytes written
    bool same;  // so far both have the same bytes
};

// Whether the following bytes of the file are these.
bool file_goes_on_with(file_id file, str piece) {
    char bytes[4096];
    for (i64 done = 0; done < piece.length && !file_failed(file);) {
        i64 size = std::min(piece.length - done, i64{sizeof bytes});
        file_read(file, size, bytes);
        if (std::memcmp(bytes, piece.data + done, static_cast<std::size_t>(size)) != 0) {
            return false;
        }
        done += size;
    }
    return !file_failed(file);
}

void piece_save(void* to, str piece) {
    saving& map = *static_cast<saving*>(to);
    file_write(map.fresh, piece.length, piece.data);
    map.size += piece.length;
    map.same = map.same && file_goes_on_with(map.earlier, piece);
}

// False when the file could not be replaced.
bool map_file_write(str path) {
    saving map = {file_open(path, file_mode_write), file_open(path, file_mode_read), 0, true};
    map_write(machine_kind, piece_save, &map);
    map.same = map.same && map.size == file_size(map.earlier);
    file_close(map.earlier);
    file_sync(map.fresh);
    if (map.size > text_file_limit) {
        file_discard(map.fresh);
    }
    if (!map.same && !file_failed(map.fresh)) {
        kept_file_put(path, machine_kind);
    }
    file_close(map.fresh);
    return !file_failed(map.fresh);
}

// The list keeps the line that a name has there, as that of a map that ships.
void listing_tell(str name, str path) {
    const catalogue_entry* entry = catalogue_find(name);
    if (entry != nullptr && !(entry->path == path)) {
        tiding_tell(tiding_refusal,
                    {"the list still has the other ", name, ": save this one under another name"});
    }
}

}  // namespace

void map_save(str name) {
    assert(!map_work.open || map_work.family == machine_kind);
    str path = custom_map_path(name);
    message_write({"saving map ", name, " as ", path, "\n"});
    folder_lock(catalogue_folder);
    bool written = map_file_write(path);
    folder_unlock();
    if (!written) {
        failure_tell({"failed to save map: ", path});
        return;
    }
    map_work_is_saved(path);
    catalogue_add(name, path);
    listing_tell(name, path);
    kept_try();
}
