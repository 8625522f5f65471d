#include "maps/kept.h"

#include <algorithm>

#include "base/text_builder.h"
#include "base/tidings.h"
#include "maps/family.h"
#include "maps/waiting_maps.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace {

constexpr i64 kept_count = 100;  // files
constexpr i64 name_limit = 200;  // bytes; file systems take 255 with family and date
constexpr i64 kept_path_limit = name_limit + 32;

str name_of(str path) {
    str name = str_after_last(path, '/');
    name.length = std::min(name.length, name_limit);
    return name.length > 0 ? name : str("unnamed");
}

// The path of a kept map but for the date.
str kept_path_make(str name, i64 family, char (&bytes)[kept_path_limit]) {
    bool is_known = 0 <= family && family < machine_kind_count;
    text_buffer text = {bytes, sizeof bytes, 0, 0};
    for (str part :
         {kept_folder, str("/"), name, str("."), is_known ? family_names[family] : str("map")}) {
        text_buffer_put_str(text, part);
    }
    return text_buffer_text(text);
}

file_id kept_open(str name, i64 family) {
    char bytes[kept_path_limit];
    return file_open(kept_path_make(name, family, bytes), file_mode_dated);
}

// Whether it is there now. Older ones go only then.
bool kept_close(file_id file) {
    file_close(file);
    if (file_failed(file)) {
        return false;
    }
    folder_trim(kept_folder, kept_count);
    return true;
}

bool map_put(str name, i64 family) {
    file_id file = kept_open(name, family);
    map_write(
        family,
        [](void* to, str piece) {
            file_write(*static_cast<file_id*>(to), piece.length, piece.data);
        },
        &file);
    return kept_close(file);
}

bool waiting_put(str name, i64 family, str text) {
    file_id file = kept_open(name, family);
    file_write(file, text.length, text.data);
    return kept_close(file);
}

bool file_put(str path, i64 family) {
    char bytes[kept_path_limit];
    if (!file_keep(path, kept_path_make(name_of(path), family, bytes))) {
        return false;
    }
    folder_trim(kept_folder, kept_count);
    return true;
}

void map_wait(str name, i64 family) {
    i64 size = 0;
    map_write(
        family, [](void* to, str piece) { *static_cast<i64*>(to) += piece.length; }, &size);
    char* place = waiting_map_add(name, family, size);
    if (place != nullptr) {
        map_write(
            family,
            [](void* to, str piece) {
                char*& end = *static_cast<char**>(to);
                end = std::copy(piece.begin(), piece.end(), end);
            },
            &place);
    }
}

void file_wait(str path, i64 family) {
    file_id file = file_open(path, file_mode_read);
    if (file_failed(file)) {
        waiting_map_lose(name_of(path));
        return;
    }
    i64 size = file_size(file);
    if (char* place = waiting_map_add(name_of(path), family, size)) {
        file_read(file, size, place);
    }
    file_close(file);
}

void failure_to_keep_tell(str path) {
    failure_tell({"failed to keep map: ", path.length > 0 ? path : name_of(path)});
}

}  // namespace

void kept_map_put(str path, i64 family) {
    waiting_maps_offer(waiting_put);
    if (!map_put(name_of(path), family)) {
        failure_to_keep_tell(path);
        map_wait(name_of(path), family);
    }
}

void kept_file_put(str path, i64 family) {
    if (!file_is_own(path)) {
        return;
    }
    waiting_maps_offer(waiting_put);
    if (!file_put(path, family)) {
        failure_to_keep_tell(path);
        file_wait(path, family);
    }
}

void kept_try() {
    waiting_maps_offer(waiting_put);
    waiting_maps_tell();
}

void kept_end() {
    waiting_maps_offer(waiting_put);
    waiting_maps_lose();
}

bool kept_path_read(str path, str& name, i64& family) {
    str file = str_after_last(path, '/');
    str date = str_after_last(file, '.');
    str rest = {file.data, std::max(i64{0}, file.length - date.length - 1)};
    str word = str_after_last(rest, '.');
    i64 named = family_named(word);
    if (named == no_family || word.length == rest.length) {
        return false;
    }
    name = {rest.data, rest.length - word.length - 1};
    family = named;
    return true;
}
