// The game's own work for one frame of the board, the driver's left out.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

#include "base/arena.h"
#include "game/map_drawing.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "menus/held_page.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "program/frame.h"
#include "render/walk.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "shown/screens.h"

namespace {

// The program with the files that ship, from start-up to shutdown; the arenas that other
// benchmarks hold come back at the end.
class program_run {
  public:
    program_run() {
        std::copy(arenas, arenas + arena_count, outside_arenas);
        headless_reset();
        if (chdir(QUORREL_SOURCE_DIR) == 0) {
            program_start();
        }
    }
    ~program_run() {
        program_end();
        std::copy(outside_arenas, outside_arenas + arena_count, arenas);
    }

  private:
    arena outside_arenas[arena_count];
};

// A human's turn on the loaded map.
void game_show() {
    players.count = 0;
    dyn_array_push(players, player{});
    game_start();
}

i64 map_size() {
    return game_map.states.count + game_map.transitions.count;
}

// Loads the shipped map with the most states and transitions.
void largest_map_load() {
    i64 kind_of_largest = 0;
    const catalogue_entry* largest = nullptr;
    i64 largest_size = 0;
    for (machine_kind = 0; machine_kind < machine_kind_count; ++machine_kind) {
        for (const catalogue_entry& entry : catalogues[machine_kind]) {
            map_load(entry.path);
            if (map_size() > largest_size) {
                kind_of_largest = machine_kind;
                largest = &entry;
                largest_size = map_size();
            }
        }
    }
    machine_kind = kind_of_largest;
    map_load(largest->path);
}

void frames_run(benchmark::State& state) {
    game_show();
    for (auto _ : state) {
        program_frame();
    }
    state.counters["states"] = static_cast<double>(game_map.states.count);
    state.counters["transitions"] = static_cast<double>(game_map.transitions.count);
}

void board_frame_shipped(benchmark::State& state) {
    program_run program;
    largest_map_load();
    frames_run(state);
}
BENCHMARK(board_frame_shipped)->Unit(benchmark::kMicrosecond);

void board_frame_stress(benchmark::State& state) {
    program_run program;
    map_clear();
    for (i64 s = 0; s < 256; ++s) {
        map_add_state(static_cast<f64>(s % 16), static_cast<f64>(s / 16), 0);
    }
    for (i64 t = 0; t < 1024; ++t) {
        map_add_transition(static_cast<u16>(t % 256), static_cast<u16>(t * 7 % 256), 1, 0, 16,
                           "~(A,B,C) & (2|4)");
    }
    frames_run(state);
}
BENCHMARK(board_frame_stress)->Unit(benchmark::kMicrosecond);

// A map of 65,000 states and as many arrows, all of it in the window, with a stone on every other
// state.
void huge_map_make() {
    map_clear();
    machine_kind = pushdown_machine;
    for (i64 s = 0; s < 65'000; ++s) {
        map_add_state(static_cast<f64>(s % 256) / 40 - 3, static_cast<f64>(s / 256) / 80 - 1.5, 0);
        map_add_transition(static_cast<u16>(s), static_cast<u16>(s * 7 % 65'000), 1, 0, 16,
                           "~(A,B,C) & (2|4)");
    }
    stones.count = 0;
    for (i64 s = 0; s < 65'000; s += 2) {
        dyn_array_push(stones, static_cast<u16>(s));
    }
}

void huge_map_show(bool editor) {
    huge_map_make();
    game_show();
    turn.turn_revealed = true;
    screens = {};
    screens.title_menu_open = false;
    screens.editor_open = editor;
    headless_mouse_move(500, 400);
    program_frame();
}

void huge_frame(benchmark::State& state) {
    program_run program;
    huge_map_show(false);
    for (auto _ : state) {
        program_frame();
    }
}
BENCHMARK(huge_frame)->Unit(benchmark::kMillisecond);

// What a frame takes longer while F2 is held.
void held_page(benchmark::State& state, bool editor) {
    program_run program;
    huge_map_show(editor);
    for (auto _ : state) {
        arena_rewind(arena_frame, 0);
        held_page_draw();
    }
}
BENCHMARK_CAPTURE(held_page, board, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(held_page, editor, true)->Unit(benchmark::kMillisecond);

// What a frame takes longer in which an arrow key is pressed, here with the mouse at x.
void walk_press(benchmark::State& state, f64 x) {
    program_run program;
    huge_map_show(false);
    std::vector<box> places;
    for (i64 s = 0; s < game_map.states.count; ++s) {
        const point centre = state_centre(s);
        places.push_back(box_around(centre.x, centre.y, state_size, state_size));
    }
    f64 aside = 0;
    for (auto _ : state) {
        aside = 1 - aside;  // a mouse that moves begins the walk anew
        headless_mouse_move(x + aside, 400);
        headless_key_press(key_right);
        input_poll();
        walk_frame_begin();
        std::for_each(places.begin(), places.end(), walk_note_on_board);
        walk_frame_end();
    }
}
BENCHMARK_CAPTURE(walk_press, middle, 500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(walk_press, right_of_all, 1022)->Unit(benchmark::kMillisecond);

// Without a window and a GPU: the part of start-up that is the game's own.
void start_up(benchmark::State& state) {
    for (auto _ : state) {
        program_run program;
        program_frame();
    }
}
BENCHMARK(start_up)->Unit(benchmark::kMillisecond);

}  // namespace
