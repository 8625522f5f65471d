#include "maps/catalogue.h"
#include "maps/file_text.h"
#include "platform/directory.h"
#include "platform/file.h"
#include "program/map_import.h"
#include "program/player_files.h"
#include "tools/commands.h"
#include "tools/map_code.h"
#include "tools/terminal.h"

namespace {

constexpr std::string_view shipped_folder = "resources/";

// Paths that are named here, before the player's directory is entered.
using file_paths = std::vector<str>;

file_paths paths_of(const words& arguments) {
    file_paths paths;
    for (std::string_view argument : arguments) {
        str path = path_absolute(str_from(argument));
        paths.push_back(file_exists(path) ? path : str_from(argument));
    }
    return paths;
}

// Enters the player's directory and reads the lists of maps.
bool player_maps_load(std::string_view directory) {
    bool entered = player_files_enter(str_from(directory), shipped_data_find(), false);
    if (!entered) {
        complain(directory.empty() ? "your directory" : directory, "cannot be entered");
        return false;
    }
    catalogues_load();
    return true;
}

// Makes the entry of that name selected, in the family or in the only one that has it. False, once
// it is named, when there is none or several have it.
bool entry_select(std::string_view name, i64 family) {
    i64 found = 0;
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        current_catalogue = &catalogues[kind];
        const catalogue_entry* entry = catalogue_find(str_from(name));
        if (entry != nullptr && (family == no_family || family == kind)) {
            machine_kind = kind;
            selected_entry = entry - current_catalogue->begin();
            found += 1;
        }
    }
    current_catalogue = &catalogues[machine_kind];
    if (found != 1) {
        complain(name, found == 0 ? "no such map" : "several families have it: add --family NAME");
    }
    return found == 1;
}

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

// The map in the file, or else of that name among the player's.
bool map_find(std::string_view name, str path, i64 family, named_map& map) {
    str text;
    if (file_exists(path)) {
        if (!map_file_read(view_of(path), text, family)) {
            return false;
        }
        map = {family, std::string(view_of(map_name_of_file(path))), std::string(view_of(text))};
        return true;
    }
    if (!entry_select(name, family) || !file_read(view_of(catalogue_selected()->path), text)) {
        return false;
    }
    map = {machine_kind, std::string(name), std::string(view_of(text))};
    return true;
}

bool file_or_code_import(str path, i64 family) {
    if (file_exists(path)) {
        return map_import(path, family);
    }
    named_map map;
    if (!map_code_read(view_of(path), map)) {
        complain(view_of(path).substr(0, 32), "is neither a file nor the code of a map");
        return false;
    }
    return map_text_import(str_copy(str_from(map.name)), str_copy(str_from(map.text)), map.family);
}

// What "add" and "import" share: each argument is taken.
int maps_take(words arguments, bool (*take)(str path, i64 family)) {
    std::string_view directory;
    i64 family = no_family;
    if (!options_take(arguments, {text_form("--directory", directory), family_form(family)})) {
        return not_understood;
    }
    if (arguments.empty()) {
        return complain("nothing", "is named to be taken");
    }
    file_paths paths = paths_of(arguments);
    if (!player_maps_load(directory)) {
        return not_understood;
    }
    for (str path : paths) {
        if (!take(path, family)) {
            return not_understood;
        }
    }
    return all_well;
}

}  // namespace

int list_command(words arguments) {
    std::string_view directory;
    bool all = false;
    if (!options_take(arguments, {text_form("--directory", directory), flag_form("--all", all)})) {
        return not_understood;
    }
    i64 wanted = arguments.empty() ? no_family : family_named(str_from(arguments[0]));
    if (arguments.size() > 1 || (!arguments.empty() && wanted == no_family)) {
        return complain("list", "wants a family or nothing");
    }
    if (!player_maps_load(directory)) {
        return not_understood;
    }
    for (i64 family = 0; family < machine_kind_count; ++family) {
        if (wanted == no_family || wanted == family) {
            family_list(family, all);
        }
    }
    return all_well;
}

int add_command(words arguments) {
    return maps_take(arguments, map_import);
}

int import_command(words arguments) {
    return maps_take(arguments, file_or_code_import);
}

int remove_command(words arguments) {
    std::string_view directory;
    i64 family = no_family;
    if (!options_take(arguments, {text_form("--directory", directory), family_form(family)})) {
        return not_understood;
    }
    if (arguments.size() != 1) {
        return complain("remove", "wants one map's name");
    }
    if (!player_maps_load(directory) || !entry_select(arguments[0], family)) {
        return not_understood;
    }
    catalogue_delete_selected();
    return all_well;
}

int export_command(words arguments) {
    std::string_view directory, out;
    i64 family = no_family;
    if (!options_take(arguments, {text_form("--directory", directory), text_form("-o", out),
                                  family_form(family)})) {
        return not_understood;
    }
    if (arguments.size() != 1) {
        return complain("export", "wants one map's name or file");
    }
    str path = paths_of(arguments)[0];
    str out_path = out.empty() ? str() : path_absolute(str_from(out));
    named_map map;
    if (!player_maps_load(directory) || !map_find(arguments[0], path, family, map)) {
        return not_understood;
    }
    if (out.empty()) {
        put(map_code(map) + "\n");
        return all_well;
    }
    return file_write_all(out_path, str_from(map.text)) ? all_well
                                                        : complain(out, "cannot be written");
}
