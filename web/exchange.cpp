// What the page's scripts call, between frames, for maps and games that come and go.

#include <emscripten.h>

#include <algorithm>
#include <cstring>

#include "base/arena.h"
#include "editor/editor.h"
#include "game/game_file.h"
#include "game/game_writer.h"
#include "game/record.h"
#include "maps/catalogue.h"
#include "maps/code_limits.h"
#include "maps/family.h"
#include "maps/file_text.h"
#include "maps/loading.h"
#include "maps/model.h"
#include "maps/writer.h"
#include "platform/file.h"
#include "program/map_import.h"
#include "program/opening.h"
#include "rules/seats.h"
#include "shown/screens.h"
#include "web/pictures.h"

namespace {

void map_list_show() {
    screens = {};
    screens.title_menu_open = false;
    screens.map_list_open = true;
    map_load(catalogue_selected()->path);
}

str text_of(const char* text) {
    return {text, static_cast<i64>(std::strlen(text))};
}

// Ends with a zero byte; lives until the next frame.
const char* c_text(str text) {
    return str_concat(text, str("", 1), arena_frame).data;
}

void piece_write(void* to, str piece) {
    file_write(*static_cast<file_id*>(to), piece.length, piece.data);
}

str map_name() {
    if (game_is_shown() && record.own_map) {
        return "game";
    }
    const catalogue_entry* entry = catalogue_selected();
    return entry != nullptr ? entry->name : str("map");
}

}  // namespace

extern "C" {

// What links call a family; null past the last one.
EMSCRIPTEN_KEEPALIVE const char* page_family_name(i32 family) {
    return family < machine_kind_count ? c_text(family_names[family]) : nullptr;
}

// Bytes of the largest map file that is read.
EMSCRIPTEN_KEEPALIVE i32 page_text_limit() {
    return static_cast<i32>(text_file_limit);
}

EMSCRIPTEN_KEEPALIVE i32 page_code_length_limit() {
    return static_cast<i32>(code_length_limit);
}

EMSCRIPTEN_KEEPALIVE i32 page_code_bytes_limit() {
    return static_cast<i32>(code_bytes_limit);
}

// The family that a map's file tells, below 0 when it tells none.
EMSCRIPTEN_KEEPALIVE i32 page_file_family(const char* path) {
    i64 mark = arenas[arena_persistent].offset;
    str text;
    i64 family = file_read_all(text_of(path), text) ? map_family_find(text) : no_family;
    arena_rewind(arena_persistent, mark);
    return static_cast<i32>(family);
}

// Takes in a map's file and shows the map in the list. Else says why not and changes nothing.
EMSCRIPTEN_KEEPALIVE bool page_map_take(const char* path, i32 family) {
    page_wake();
    i64 mark = arenas[arena_persistent].offset;
    bool taken = map_import(text_of(path), family);
    if (taken) {
        editor_leave();
        map_list_show();
    } else {
        arena_rewind(arena_persistent, mark);
    }
    return taken;
}

// The family of the loaded map, below 0 while the title's own is loaded.
EMSCRIPTEN_KEEPALIVE i32 page_map_family() {
    bool chosen = current_catalogue != nullptr && !screens.title_menu_open;
    return static_cast<i32>(chosen ? machine_kind : no_family);
}

EMSCRIPTEN_KEEPALIVE const char* page_map_name() {
    return c_text(map_name());
}

EMSCRIPTEN_KEEPALIVE void page_map_write(const char* path) {
    file_id file = file_open(text_of(path), file_mode_write);
    map_write(machine_kind, piece_write, &file);
    file_close(file);
}

// Begins a game on the selected map with seats such as "human,hard"; false when there are no such
// seats or no such map.
EMSCRIPTEN_KEEPALIVE bool page_map_play(const char* words) {
    page_wake();
    seat_list seats;
    return seat_list_read(text_of(words), seats) && selected_map_play(seats);
}

EMSCRIPTEN_KEEPALIVE bool page_file_is_game(const char* path) {
    return file_is_game(text_of(path));
}

// Opens a game's file on the board, for which an editor is left. Else the game says why not.
EMSCRIPTEN_KEEPALIVE bool page_game_open(const char* path) {
    page_wake();
    return game_open(text_of(path), [] {
        if (screens.editor_open) {
            screens = {};
        }
        editor_leave();
    });
}

// Whether a game is on the board that can be written.
EMSCRIPTEN_KEEPALIVE bool page_has_game() {
    return game_is_shown() && game_can_be_written();
}

EMSCRIPTEN_KEEPALIVE void page_game_write(const char* path) {
    file_id file = file_open(text_of(path), file_mode_write);
    game_write(piece_write, &file);
    file_close(file);
}

// Another tab's changes have come into the player's files: the lists are read again. The map that
// was selected stays so where it still is.
EMSCRIPTEN_KEEPALIVE void page_files_changed() {
    page_wake();
    const catalogue_entry* entry = catalogue_selected();
    str path = entry != nullptr ? entry->path : str();
    for (catalogue& list : catalogues) {
        list.count = 0;
    }
    catalogues_load();
    game_file_look();
    selected_entry = std::min(selected_entry, catalogue_count() - 1);
    for (i64 i = 0; i < catalogue_count(); ++i) {
        selected_entry = (*current_catalogue)[i].path == path ? i : selected_entry;
    }
}
}
