#include "maps/catalogue.h"

#include <algorithm>

#include "base/tidings.h"
#include "maps/kept.h"
#include "maps/loading.h"
#include "platform/file.h"
#include "platform/folder.h"

catalogue catalogues[machine_kind_count];
catalogue known_catalogues[machine_kind_count];
catalogue* current_catalogue;
i64 selected_entry = -1;

namespace {

struct family_files {
    str catalogue;
    str custom_directory;
};

constexpr family_files families[machine_kind_count] = {
    {"resources/state_maps.txt", "custom_state_machines/"},
    {"resources/pushdown_maps.txt", "custom_pushdown_machines/"},
    {"resources/turing_maps.txt", "custom_turing_machines/"},
};

bool is_path_byte(char c) {
    return ('A' <= c && c <= 'Z') || ('a' <= c && c <= 'z') || ('0' <= c && c <= '9') || c == '/' ||
           c == '_';
}

// Of the entry of that name, -1 when there is none.
i64 place_find(const catalogue& list, str name) {
    const catalogue_entry* entry = std::find_if(
        list.begin(), list.end(), [&](const catalogue_entry& e) { return e.name == name; });
    return entry == list.end() ? -1 : entry - list.begin();
}

}  // namespace

str catalogue_path(i64 family) {
    return families[family].catalogue;
}

void catalogues_load() {
    folder_sweep(catalogue_folder);
    folder_sweep(kept_folder);
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        folder_sweep(families[kind].custom_directory);
        catalogue_load(catalogues[kind], families[kind].catalogue);
        catalogue_copy(catalogues[kind], known_catalogues[kind]);
    }
}

void catalogue_save() {
    if (!family_is_known()) {
        return;
    }
    current_catalogue = &catalogues[machine_kind];
    str path = families[machine_kind].catalogue;
    folder_lock(catalogue_folder);
    bool written = catalogue_write(path, *current_catalogue, known_catalogues[machine_kind]);
    folder_unlock();
    if (!written) {
        failure_tell({"failed to save catalogue: ", path});
    }
}

void catalogue_select() {
    if (family_is_known()) {
        current_catalogue = &catalogues[machine_kind];
    }
    selected_entry = 0;
    if (const catalogue_entry* entry = catalogue_selected()) {
        map_load(entry->path);
    }
}

void catalogue_take_out_selected() {
    const catalogue_entry* doomed = catalogue_selected();
    if (doomed == nullptr) {
        return;
    }
    folder_lock(catalogue_folder);
    kept_file_put(doomed->path, machine_kind);
    file_delete(doomed->path);
    folder_unlock();
    dyn_array_remove_at(*current_catalogue, selected_entry);
    if (current_catalogue->count <= selected_entry) {
        selected_entry = current_catalogue->count - 1;
    }
}

void catalogue_delete_selected() {
    if (catalogue_selected() == nullptr) {
        return;
    }
    catalogue_take_out_selected();
    if (const catalogue_entry* entry = catalogue_selected()) {
        map_load(entry->path);
    }
    catalogue_save();
}

void catalogue_add(str name, str path) {
    if (current_catalogue == nullptr || catalogue_find(name) != nullptr) {
        return;
    }
    dyn_array_push(*current_catalogue, {str_copy(name), path});
    catalogue_save();
}

const catalogue_entry* catalogue_find(str name) {
    i64 place = current_catalogue == nullptr ? -1 : place_find(*current_catalogue, name);
    return place < 0 ? nullptr : &(*current_catalogue)[place];
}

i64 catalogue_select_named(str name, i64 family) {
    i64 found = 0;
    i64 found_kind = 0;
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        if ((family == no_family || family == kind) && place_find(catalogues[kind], name) >= 0) {
            found_kind = kind;
            found += 1;
        }
    }
    if (found == 1) {
        machine_kind = found_kind;
        current_catalogue = &catalogues[machine_kind];
        selected_entry = place_find(*current_catalogue, name);
    }
    return found;
}

i64 catalogue_count() {
    return current_catalogue == nullptr ? 0 : current_catalogue->count;
}

const catalogue_entry* catalogue_selected() {
    if (selected_entry < 0 || selected_entry >= catalogue_count()) {
        return nullptr;
    }
    return &current_catalogue->data[selected_entry];
}

bool catalogue_has_next() {
    return selected_entry >= 0 && selected_entry + 1 < catalogue_count();
}

str custom_map_path(str name) {
    str directory = family_is_known() ? families[machine_kind].custom_directory : str();
    str path = str_concat(directory, name, arena_persistent);
    // The directory's own bytes all pass.
    char* bytes = const_cast<char*>(path.data);
    for (i64 i = 0; i < path.length; ++i) {
        if (!is_path_byte(bytes[i])) {
            bytes[i] = '_';
        }
    }
    return path;
}

str catalogue_fault() {
    const catalogue* end = catalogues + machine_kind_count;
    if (current_catalogue != nullptr &&
        !(catalogues <= current_catalogue && current_catalogue < end)) {
        return "the current catalogue is none of the three";
    }
    return selected_entry < -1 ? str("the selected map is less than none") : str();
}
