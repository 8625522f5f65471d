#include <algorithm>

#include "maps/catalogue.h"
#include "platform/file.h"
#include "program/map_import.h"
#include "tools/commands.h"
#include "tools/map_files.h"
#include "tools/terminal.h"

namespace {

constexpr std::string_view shipped_folder = "resources/";

void family_list(i64 family, bool all) {
    for (const catalogue_entry& entry : catalogues[family]) {
        if (all || !view_of(entry.path).starts_with(shipped_folder)) {
            put(view_of(family_names[family]), ink_faint);
            put(" ");
            put(view_of(entry.name), ink_name);
            put(" ");
            put(view_of(entry.path));
            put("\n");
        }
    }
}

bool map_take(const map_place& place, i64 family) {
    named_map map;
    return map_read_at(place, family, map) &&
           map_text_import(str_copy(str_from(map.name)), str_from(map.text), map.family);
}

}  // namespace

int list_command(const request& asked) {
    if (!player_maps_load(asked)) {
        return failed;
    }
    for (i64 family = 0; family < machine_kind_count; ++family) {
        if (asked.family == no_family || asked.family == family) {
            family_list(family, asked.all);
        }
    }
    return all_well;
}

int import_command(const request& asked) {
    std::vector<map_place> places = map_places_of(asked);
    if (!player_maps_load(asked)) {
        return failed;
    }
    i64 taken = std::ranges::count_if(
        places, [&](const map_place& place) { return map_take(place, asked.family); });
    return taken == std::ssize(places) ? all_well : failed;
}

int remove_command(const request& asked) {
    if (!player_maps_load(asked) || !entry_select(asked.names[0], asked.family)) {
        return failed;
    }
    str path = catalogue_selected()->path;
    catalogue_take_out_selected();
    catalogue_save();
    return file_is_own(path) ? complain(view_of(path), "could not be deleted") : all_well;
}

int export_command(const request& asked) {
    named_map map;
    if (!asked_map_read(asked, map)) {
        return failed;
    }
    if (!asked.out.empty()) {
        return output_write(asked, map.text);
    }
    std::string code = map_code(map);
    return code.empty()
               ? complain(asked.names[0], "is too large for a code: add -o FILE to have its text")
               : output_write(asked, code + "\n");
}
