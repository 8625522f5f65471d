// A list of maps of any bytes is read, shown, changed and written while another game has put any
// bytes in its place.
//
// The first byte is the family, the second says what is done to the list. The rest is the list and,
// behind a byte of 255, what the other game writes.

#include "maps/catalogue.h"

#include <algorithm>
#include <string>

#include "fuzz/files.h"
#include "fuzz/fuzz.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "program/frame.h"
#include "shown/screens.h"
#include "tools/words.h"

namespace {

enum change : u8 { change_delete = 1, change_add = 2, change_name_again = 4 };

void list_show() {
    app.running = true;
    screens.title_menu_open = false;
    screens.map_list_open = true;
    program_frame();
    headless_mouse_move(512 + 160, 416 - 304);  // the next one
    headless_mouse_press(mouse_left);
    headless_mouse_release(mouse_left);
    program_frame();
}

bool is_among(const catalogue& list, const catalogue_entry& entry) {
    return std::any_of(list.begin(), list.end(), [&](const catalogue_entry& e) {
        return e.name == entry.name && e.path == entry.path;
    });
}

catalogue read_again(const std::string& path) {
    catalogue list = {};
    catalogue_load(list, str_from(path));
    return list;
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    machine_kind = input.byte() % machine_kind_count;
    const u8 changes = input.byte();
    const std::string path(view_of(catalogue_path(machine_kind)));
    files_put(path, input.until('\xff'));
    catalogues_load();
    catalogue known = {};
    catalogue_copy(catalogues[machine_kind], known);
    catalogue_select();
    list_show();

    if (!input.rest.empty()) {
        files_put(path, input.rest);
    }
    const catalogue others = read_again(path);
    if ((changes & change_delete) != 0) {
        const catalogue_entry* doomed = catalogue_selected();
        if (doomed != nullptr && doomed->path == str_from(path)) {
            return 0;  // a list that names itself goes as the map that it is not
        }
        catalogue_delete_selected();
    }
    if ((changes & change_add) != 0) {
        catalogue_add("added", "custom/added");
    }
    if ((changes & change_name_again) != 0 && catalogue_count() > 0) {
        catalogue_add((*current_catalogue)[0].name, "custom/again");
    }
    catalogue_save();
    const catalogue written = read_again(path);
    for (const catalogue_entry& entry : others) {
        fuzz_expect(is_among(known, entry) || is_among(written, entry),
                    "what another game added stays");
    }
    for (const catalogue_entry& entry : *current_catalogue) {
        fuzz_expect(is_among(known, entry) || is_among(written, entry), "what was added is there");
    }
    const std::string text = files_get(path);
    catalogue_copy(written, catalogues[machine_kind]);
    catalogue_copy(written, known_catalogues[machine_kind]);
    catalogue_save();
    fuzz_expect(files_get(path) == text, "a list is written as it was read");
    fuzz_expect(files_open_count() == 0, "every file is closed");
    return 0;
}
