#include "tools/map_files.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "base/arena.h"
#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "maps/reader.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "program/daily_maps.h"
#include "program/map_import.h"
#include "program/player_files.h"
#include "tools/terminal.h"

namespace {

// Why the file or folder cannot be used as wanted, R_OK or W_OK: what the system says, else
// `words`.
std::string trouble_of(const std::string& path, int wanted, const char* words) {
    return access(path.c_str(), wanted) == 0 ? words : std::strerror(errno);
}

// Reads the text at the place, and what the place tells of its name and family.
bool text_read_at(const map_place& place, named_map& map) {
    str path = place.file;
    map.name = view_of(map_name_of_file(path));
    if (!file_exists(path)) {
        if (!entry_select(place.word, map.family)) {
            return false;
        }
        map.name = place.word;
        map.family = machine_kind;
        path = catalogue_selected()->path;
        selected_entry = -1;
    }
    if (!text_file_read(path, place.word, map.text)) {
        return false;
    }
    if (map.family == no_family) {
        map.family = map_family_of_file(path, str_from(map.text));
    }
    return true;
}

}  // namespace

bool text_file_read(str path, std::string_view name, std::string& text) {
    const i64 mark = arenas[arena_persistent].offset;
    str bytes;
    if (!file_read_all(path, bytes)) {
        complain(name, trouble_of(std::string(view_of(path)), R_OK, "is no file of up to 32 MiB"));
        return false;
    }
    text = view_of(bytes);
    arena_rewind(arena_persistent, mark);
    return true;
}

bool player_maps_load(const request& asked) {
    str data = shipped_data_find();
    if (asked.directory.empty() && directory_is_entered(data)) {
        directory_enter("/");  // the game's own data is nobody's directory
    }
    if (!player_files_enter(str_from(asked.directory), data, false, no_day)) {
        complain(asked.directory.empty() ? "your directory" : asked.directory,
                 std::string("cannot be entered: ") + std::strerror(errno));
        return false;
    }
    catalogues_load();
    return true;
}

std::vector<map_place> map_places_of(const request& asked) {
    std::vector<map_place> places;
    for (std::string_view word : asked.names) {
        str path = path_absolute(str_from(word));
        places.push_back({word, file_exists(path) ? path : str_from(word)});
    }
    return places;
}

bool map_places_find(const request& asked, std::vector<map_place>& places) {
    places = map_places_of(asked);
    return std::ranges::all_of(places, [](const map_place& p) { return file_exists(p.file); }) ||
           player_maps_load(asked);
}

bool entry_select(std::string_view name, i64 family) {
    const i64 found = catalogue_select_named(str_from(name), family);
    if (found != 1) {
        complain(name, found == 0 ? "is neither a file nor the name of a map"
                                  : "several families have it: add --family NAME");
    }
    return found == 1;
}

bool map_read_at(const map_place& place, i64 family, named_map& map) {
    if (map_code_read(place.word, map)) {
        return true;
    }
    map.family = family;
    if (!text_read_at(place, map)) {
        return false;
    }
    if (named_map coded; !text_is_map(str_from(map.text)) && map_code_read(map.text, coded)) {
        map = coded;
    }
    if (!text_is_map(str_from(map.text))) {
        complain(place.word, "is not a map");
        return false;
    }
    if (map.family == no_family) {
        complain(place.word, "does not tell its family: add --family NAME");
    }
    return map.family != no_family;
}

void map_open(const named_map& map, bool nimbers) {
    settings = {};
    machine_kind = nimbers ? map.family : pushdown_machine;
    map_read(str_from(map.text));
    machine_kind = map.family;
}

bool asked_map_read(const request& asked, named_map& map) {
    std::vector<map_place> places;
    return map_places_find(asked, places) && map_read_at(places[0], asked.family, map);
}

int text_file_write(const std::string& path, const std::string& text) {
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    if (!directory_exists(str_from(folder))) {
        return complain(folder, "is no folder");
    }
    if (directory_exists(str_from(path))) {
        return complain(path, "is a folder");
    }
    if (file_write_all(str_from(path), str_from(text))) {
        return all_well;
    }
    const bool is_there = access(path.c_str(), F_OK) == 0;
    return complain(path, trouble_of(is_there ? path : folder, W_OK, "cannot be written"));
}

int output_write(const request& asked, const std::string& text) {
    if (!asked.out.empty()) {
        return text_file_write(std::string(asked.out), text);
    }
    put(text);
    return all_well;
}
