#include "program/map_import.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstdio>

#include "base/message.h"
#include "base/numbers.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "maps/catalogue.h"
#include "maps/family.h"
#include "maps/file_text.h"
#include "maps/kept.h"
#include "platform/file.h"
#include "platform/folder.h"

namespace {

constexpr str extension = ".quorrel";
constexpr i64 name_limit = 200;  // bytes; file systems take 255 with a number

bool refuse(str path, str reason) {
    std::fprintf(stderr, "%s: %.*s: %.*s\n", program_invocation_short_name,
                 static_cast<int>(path.length), path.data, static_cast<int>(reason.length),
                 reason.data);
    tiding_tell(tiding_refusal, {str_after_last(path, '/'), " ", reason});
    return false;
}

bool is_name_byte(char c) {
    return ('A' <= c && c <= 'Z') || ('a' <= c && c <= 'z') || ('0' <= c && c <= '9');
}

// A name as the list and a file can have it: other bytes become "_", what is too long is cut.
str name_clean(str name) {
    if (name.length == 0) {
        return "unnamed";
    }
    text_builder clean = {};
    for (char byte : str(name.data, std::min(name.length, name_limit))) {
        text_builder_put(clean, is_name_byte(byte) ? byte : '_');
    }
    return text_builder_text(clean);
}

str name_numbered(str name, i64 number) {
    assert(number >= 1);
    if (number == 1) {
        return name;
    }
    text_builder text = {};
    text_builder_put_str(text, name);
    text_builder_put(text, '_');
    text_builder_put_int(text, number);
    return text_builder_text(text);
}

// Whether the file holds the text; false when it cannot be read.
bool file_compare(str path, str text, bool& holds) {
    const i64 mark = arenas[arena_persistent].offset;
    str content;
    bool is_read = file_read_all(path, content);
    holds = is_read && content == text;
    arena_rewind(arena_persistent, mark);
    return is_read;
}

// Puts the map where one of this name may go: where there is no file or the same map already, with
// a number where the name is taken. Why that cannot be done; empty when it is.
str map_put(str name, str text, str& numbered, str& path) {
    for (i64 number = 1;; ++number) {
        numbered = name_numbered(name, number);
        const catalogue_entry* entry = catalogue_find(numbered);
        path = entry != nullptr ? entry->path : custom_map_path(numbered);
        bool is_there = file_exists(path);
        bool holds = false;
        if (!is_there && entry == nullptr) {
            return file_write_all(path, text) ? str() : str("cannot be written");
        }
        if (is_there && !file_compare(path, text, holds)) {
            return "cannot be read";
        }
        if (holds) {
            return {};
        }
    }
}

}  // namespace

str map_name_of_file(str path) {
    str file = str_after_last(path, '/');
    i64 family;
    kept_path_read(path, file, family);
    i64 stem = file.length - extension.length;
    if (stem > 0 && str(file.data + stem, extension.length) == extension) {
        file.length = stem;
    }
    return file;
}

i64 map_family_of_file(str path, str text) {
    str name;
    i64 family;
    return kept_path_read(path, name, family) ? family : map_family_find(text);
}

bool map_import(str path, i64 family) {
    str text;
    if (!file_read_all(path, text)) {
        return refuse(path, "cannot be read");
    }
    if (!text_is_map(text)) {
        return refuse(path, "is not a map");
    }
    i64 told = family == no_family ? map_family_of_file(path, text) : family;
    if (told == no_family) {
        return refuse(path, "does not tell its family: add --family state, pushdown or turing");
    }
    return map_text_import(map_name_of_file(path), text, told);
}

bool map_text_import(str name, str text, i64 family) {
    assert(0 <= family && family < machine_kind_count);
    const i64 family_before = machine_kind;
    catalogue* const catalogue_before = current_catalogue;
    machine_kind = family;
    current_catalogue = &catalogues[machine_kind];
    str numbered, place;
    folder_lock(catalogue_folder);
    str trouble = map_put(name_clean(name), text, numbered, place);
    folder_unlock();
    if (trouble.length > 0) {
        machine_kind = family_before;
        current_catalogue = catalogue_before;
        return refuse(place, trouble);
    }
    catalogue_add(numbered, place);
    assert(catalogue_find(numbered) != nullptr);
    selected_entry = catalogue_find(numbered) - current_catalogue->data;
    message_write({"map ", numbered, " is ", place, "\n"});
    return true;
}
