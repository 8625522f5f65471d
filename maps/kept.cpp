#include "maps/kept.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "maps/family.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "platform/folder.h"

waiting_maps_record waiting_maps;

namespace {

char waiting_bytes[waiting_capacity];

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

bool text_put(str name, i64 family, str text) {
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

// A map that waits, whose bytes begin at `offset`.
str waiting_name(i64 index, i64 offset) {
    return {waiting_bytes + offset, waiting_maps.maps[index].name_length};
}

str waiting_text(i64 index, i64 offset) {
    const waiting_map& map = waiting_maps.maps[index];
    return {waiting_bytes + offset + map.name_length, map.text_length};
}

i64 waiting_size(i64 index) {
    return waiting_maps.maps[index].name_length + waiting_maps.maps[index].text_length;
}

void waiting_remove(i64 index, i64 offset) {
    i64 size = waiting_size(index);
    std::copy(waiting_bytes + offset + size, waiting_bytes + waiting_maps.used,
              waiting_bytes + offset);
    waiting_maps.used -= size;
    std::copy(waiting_maps.maps + index + 1, waiting_maps.maps + waiting_maps.count,
              waiting_maps.maps + index);
    waiting_maps.count -= 1;
}

void lost_tell(str name) {
    failure_tell({"lost map: ", name});
}

void oldest_lose() {
    lost_tell(waiting_name(0, 0));
    waiting_remove(0, 0);
}

// Lets a map wait, for which the oldest ones make room. Returns where its text of that many bytes
// has to be put; null, once the loss is told, where there is no room for it at all.
char* waiting_add(str name, i64 family, i64 text_length) {
    i64 size = name.length + text_length;
    if (size > waiting_capacity) {
        lost_tell(name);
        return nullptr;
    }
    while (waiting_maps.count == waiting_limit || waiting_maps.used + size > waiting_capacity) {
        oldest_lose();
    }
    waiting_maps.maps[waiting_maps.count] = {family, name.length, text_length};
    waiting_maps.count += 1;
    char* place = std::copy(name.begin(), name.end(), waiting_bytes + waiting_maps.used);
    waiting_maps.used += size;
    return place;
}

void map_wait(str name, i64 family) {
    i64 size = 0;
    map_write(
        family, [](void* to, str piece) { *static_cast<i64*>(to) += piece.length; }, &size);
    char* place = waiting_add(name, family, size);
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
        lost_tell(name_of(path));
        return;
    }
    i64 size = file_size(file);
    if (char* place = waiting_add(name_of(path), family, size)) {
        file_read(file, size, place);
    }
    file_close(file);
}

void failure_to_keep_tell(str path) {
    failure_tell({"failed to keep map: ", path.length > 0 ? path : name_of(path)});
}

// Tries each once.
void waiting_put_all() {
    i64 offset = 0;
    for (i64 i = 0; i < waiting_maps.count;) {
        str name = waiting_name(i, offset);
        if (text_put(name, waiting_maps.maps[i].family, waiting_text(i, offset))) {
            tiding_tell(tiding_news, {"kept: ", name});
            waiting_remove(i, offset);
        } else {
            offset += waiting_size(i);
            i += 1;
        }
    }
}

}  // namespace

void kept_map_put(str path, i64 family) {
    waiting_put_all();
    if (!map_put(name_of(path), family)) {
        failure_to_keep_tell(path);
        map_wait(name_of(path), family);
    }
}

void kept_file_put(str path, i64 family) {
    if (!file_is_own(path)) {
        return;
    }
    waiting_put_all();
    if (!file_put(path, family)) {
        failure_to_keep_tell(path);
        file_wait(path, family);
    }
}

void waiting_maps_try() {
    waiting_put_all();
    if (waiting_maps.count == 1) {
        tiding_tell(tiding_failure, {"not on the disk yet: ", waiting_name(0, 0)});
    } else if (waiting_maps.count > 1) {
        tiding_tell(tiding_failure,
                    {"not on the disk yet: ", number_text(waiting_maps.count), " maps"});
    }
}

void waiting_maps_end() {
    waiting_put_all();
    while (waiting_maps.count > 0) {
        oldest_lose();
    }
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
