// A map of any bytes is read, listed, played by computers, edited and saved, and reads back as it
// was saved.
//
// The first byte is the family, the second says who plays. The rest is the map.

#include <algorithm>
#include <cmath>
#include <string>

#include "base/time_step.h"
#include "editor/editor.h"
#include "fuzz/files.h"
#include "fuzz/fuzz.h"
#include "game/turn_update.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/saving.h"
#include "maps/writer.h"
#include "program/frame.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/seats.h"
#include "shown/screens.h"
#include "tools/words.h"

namespace {

constexpr int updates_played = 8;

void seats_make(u8 kinds) {
    for (int seat_count = 1 + kinds % 3; seat_count > 0; --seat_count) {
        player seat;
        seat_colour_set(seat, seat_count);
        seat.is_computer = 1;
        seat.strength = kinds / 3 % strength_count;
        dyn_array_push(players, seat);
    }
    player_count = players.count;
}

std::string map_text() {
    std::string text;
    map_write(
        machine_kind, [](void* to, str piece) { *static_cast<std::string*>(to) += view_of(piece); },
        &text);
    return text;
}

// Larger ones lose digits when they are written.
bool reals_are_exact() {
    auto exact = [](f64 real) { return std::abs(real) < 1e10; };
    return exact(game_map.origin_x) && exact(game_map.origin_y) && exact(game_map.scale) &&
           std::all_of(game_map.states.begin(), game_map.states.end(),
                       [&](const map_state& s) { return exact(s.x) && exact(s.y); }) &&
           std::all_of(
               game_map.transitions.begin(), game_map.transitions.end(),
               [&](const transition& arc) { return exact(arc.label_dx) && exact(arc.label_dy); });
}

// Computers do not think and moves are not shown, but for a frame at the start and one at the end.
void map_play() {
    game_start();
    program_frame();
    for (int i = 0; i < updates_played; ++i) {
        turn.think_timer = 0;
        turn.move_timer = std::min(turn.move_timer, frame_dt);
        turn_update();
    }
    program_frame();
}

void map_edit_and_save() {
    screens.editor_open = true;
    map_work_begin();
    program_frame();
    const std::string text = map_text();
    const bool exact = reals_are_exact();
    map_save("saved");
    const std::string path(view_of(custom_map_path("saved")));
    fuzz_expect(files_get(path) == text, "a map is saved as it is written");
    settings = {};
    map_load(str_from(path));
    fuzz_expect(!exact || map_text() == text, "a saved map reads back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    machine_kind = input.byte() % machine_kind_count;
    seats_make(input.byte());
    files_put("maps/map", input.rest);
    dyn_array_push(catalogues[machine_kind], {"map", "maps/map"});
    app.running = true;
    catalogue_select();
    screens.title_menu_open = false;
    screens.map_list_open = true;
    program_frame();
    map_play();
    map_edit_and_save();
    fuzz_expect(files_open_count() == 0, "every file is closed");
    return 0;
}
