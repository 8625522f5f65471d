// A player does anything, in any order and at once: every byte is an act, each followed by a frame.
// Who leaves the game comes back at once. In the end all steps of the editor are taken back and
// done again.

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>
#include <vector>

#include "base/time_step.h"
#include "editor/history.h"
#include "fuzz/files.h"
#include "fuzz/fuzz.h"
#include "game/record.h"
#include "maps/catalogue.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "menus/title_menu.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "program/frame.h"
#include "program/opening.h"
#include "render/camera.h"
#include "render/renderer.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/game_state.h"
#include "rules/seats.h"
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "tools/words.h"

namespace {

struct place {
    f64 x;  // pixels from the window's centre, y upwards
    f64 y;
};

// The buttons of every screen and dialog.
// clang-format off
constexpr place controls[] = {
    {0, -336}, {-304, -336}, {304, -336}, {-160, 304}, {160, 304}, {-256, 208}, {64, 208},
    {256, 208}, {-160, 208}, {-32, 208}, {-256, 112}, {256, 112}, {0, -144}, {-224, -144},
    {368, 368}, {368, 336}, {368, 304}, {96, 368}, {96, 336}, {96, 304}, {-352, 384}, {-256, 352},
    {-280, -296}, {280, -296}, {-280, -328}, {280, -328}, {-280, -360}, {280, -360}, {-256, 176},
    {256, 176}, {256, 80}, {256, 48}};
// clang-format on
constexpr u32 lasting_keys[] = {key_shift, key_ctrl, key_alt, key_w, key_a, key_s, key_q, key_e};

// The acts by their first byte.
enum act : u8 {
    act_key = 0,            // the keys by their codes
    act_control = 128,      // 32 of them
    act_state = 160,        // the states, each several times
    act_card = 192,         // 8 places in the row of the hand
    act_hold = 200,         // the lasting keys
    act_release = 208,      // the same
    act_click = 216,        // two bytes more: the place
    act_right_click = 224,  // where the pointer is
    act_press = 228,        // the left button stays down
    act_let_go = 232,
    act_wheel = 236,
    act_wheel_back = 240,
    act_caps_lock = 244,
    act_pass_time = 246,  // of a move or of a computer that thinks
    act_seat = 250,       // one more byte: the seat to move does what is open, from there on
    act_begin = 253,      // one more byte: a game with seats of all kinds
    act_fill_disk = 254,
    act_free_disk = 255,
};

void point_at(place p) {
    headless_mouse_move(render_target.width / 2.0 + p.x, render_target.height / 2.0 - p.y);
}

void click(place p, u32 button = mouse_left) {
    point_at(p);
    headless_mouse_press(button);
    headless_mouse_release(button);
}

void state_click(u8 number) {
    if (named_state_count() > 0) {
        const point centre = state_centre(number % named_state_count());
        click({(centre.x - camera.x) * camera.zoom, (centre.y - camera.y) * camera.zoom});
    }
}

// A multiple of 16 from -512 to 496.
f64 coordinate(u8 byte) {
    return (byte % 64 - 32) * 16;
}

// What a human might click on, found at once, the moves and cards from that number on.
void seat_act(u8 number) {
    if (!game_is_shown() || turn.move_timer > 0) {
        return;
    }
    record_follow();
    const i64 cards = std::max(current_seat().hand.count, i64{1});
    const i64 moves = game_map.transitions.count * cards;
    for (i64 i = 0; i < moves + act_kind_count; ++i) {
        const i64 choice = (number + i) % (moves + act_kind_count);
        const game_act move = {act_move, static_cast<i32>(choice / cards),
                               static_cast<i32>(choice % cards)};
        const game_act act =
            choice < moves ? move : game_act{static_cast<act_kind>(choice - moves)};
        if (act_is_open(act, false)) {
            record_take(act);
            return;
        }
    }
}

// Straight on the board, on a map of any family.
void game_begin(u8 number) {
    constexpr str seats[] = {"human",
                             "human,human",
                             "human,hard",
                             "hard,human,easy",
                             "human,normal,human,human",
                             "easy,human",
                             "human,human,human",
                             "easy,normal,hard,human,human,human"};
    seat_list list;
    fuzz_expect(seat_list_read(seats[number % std::size(seats)], list), "these are seats");
    machine_kind = number / std::size(seats) % machine_kind_count;
    catalogue_select();
    selected_map_play(list);
}

void act_do(u8 byte, fuzz_input& input) {
    if (byte < act_control) {
        headless_key_press(byte);
    } else if (byte < act_state) {
        click(controls[byte - act_control]);
    } else if (byte < act_card) {
        state_click(byte - act_state);
    } else if (byte < act_hold) {
        click({(byte - act_card) * 100 - 350.0, -350});
    } else if (byte < act_release) {
        headless_key_hold(lasting_keys[byte - act_hold]);
    } else if (byte < act_click) {
        headless_key_release(lasting_keys[byte - act_release]);
    } else if (byte < act_right_click) {
        const f64 x = coordinate(input.byte());
        click({x, coordinate(input.byte())});
    } else if (byte < act_press) {
        headless_mouse_press(mouse_right);
        headless_mouse_release(mouse_right);
    } else if (byte < act_let_go) {
        headless_mouse_press(mouse_left);
    } else if (byte < act_wheel) {
        headless_mouse_release(mouse_left);
    } else if (byte < act_caps_lock) {
        headless_wheel(byte < act_wheel_back ? 1 : -1);
    } else if (byte < act_pass_time) {
        headless_set_caps_lock(byte == act_caps_lock);
    } else if (byte < act_seat) {
        turn.think_timer = 0;
        turn.move_timer = std::min(turn.move_timer, frame_dt);
    } else if (byte < act_begin) {
        seat_act(input.byte());
    } else if (byte < act_fill_disk) {
        game_begin(input.byte());
    } else {
        files_fill_disk(byte < act_free_disk);
    }
}

// Lists with small maps of every family, a broken one and one that is missing.
bool maps_ship() {
    for (const char* path :
         {"resources/maps/state/three_heaps", "resources/maps/pushdown/red_light",
          "resources/maps/turing/first_tape"}) {
        fuzz_ship_file(path);
    }
    files_put("broken",
              "map 1e9 -7 .3\nwin 77\ndeck -3 99 7 0\nhand 30\n"
              "tape -1\ngoal 200 99 9223372036854775807 255 255 255\nstone 9\n"
              "stone 65535\n. 0 0\n* 1 -1\n=> 0 9 -32768 -0.00001 0 \"~(\"\n"
              "=> 1 1 32767\n=> 0 1 0 0 0 \"\n\n");
    const std::string broken = "broken broken\nnone none\n";
    files_put("resources/state_maps.txt", "good resources/maps/state/three_heaps\n" + broken);
    files_put("resources/pushdown_maps.txt", "good resources/maps/pushdown/red_light\n" + broken);
    files_put("resources/turing_maps.txt", "good resources/maps/turing/first_tape\n" + broken);
    files_keep();
    return true;
}

// What was compared in all executions, told at the end.
struct comparison_count {
    i64 acts = 0;
    i64 steps = 0;

    ~comparison_count() {
        std::fprintf(stderr, "compared: %lld acts of games, %lld steps of the editor\n",
                     static_cast<long long>(acts), static_cast<long long>(steps));
    }
};

comparison_count compared;

// Goes forward to the last step, back to the first and forward again over the same maps.
void steps_walk() {
    while (history.position < history.used) {
        history_forward();
    }
    std::vector<std::string> maps;
    while (history.position > 0) {
        maps.emplace_back(view_of(history_map()));
        history_back();
        fuzz_expect(history_fault().length == 0, "the map before a step is back");
    }
    for (; !maps.empty(); maps.pop_back()) {
        history_forward();
        fuzz_expect(view_of(history_map()) == maps.back(), "a step done again makes its map");
        fuzz_expect(history_fault().length == 0, "a step done again is recorded");
        compared.steps += 1;
    }
}

// What the record was when it was compared last.
struct compared_record {
    i64 deal = 0;
    i64 act_count = 0;
    i64 changes = 0;
};

// The record of the game gives the same game: back to its beginning, forward again, step by step
// and at once.
void record_expect(compared_record& last) {
    if (!game_is_shown() || turn.move_timer > 0) {
        return;
    }
    record_follow();  // it may have been dealt in this frame
    if (record.changes == last.changes) {
        return;
    }
    deck_refill();  // as the next step begins
    const u64 fingerprint = game_fingerprint();
    const i64 position = record.position;
    const turn_record turn_before = turn;
    const selection_record selection_before = selection;
    const flight_record flight_before = flight;
    for (i64 target : {position / 2, i64{0}, position}) {
        record_go(target);
    }
    fuzz_expect(game_fingerprint() == fingerprint, "the record gives the same game");
    turn = turn_before;
    selection = selection_before;
    flight = flight_before;
    const i64 acts_before = record.deal == last.deal ? last.act_count : 0;
    compared.acts += std::max(record.act_count - acts_before, i64{0});
    last = {record.deal, record.act_count, record.changes};
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    [[maybe_unused]] static const bool shipped = maps_ship();
    fuzz_begin();
    title_map_build();
    catalogues_load();
    fuzz_input input(data, size);
    compared_record last;
    while (!input.rest.empty()) {
        app.running = true;
        act_do(input.byte(), input);
        program_frame();
        record_expect(last);
    }
    if (screens.editor_open && !screens.map_list_open) {
        steps_walk();
    }
    map_work_end();
    fuzz_expect(state_fault().length == 0, "the whole state holds");
    fuzz_expect(files_open_count() == 0, "every file is closed");
    return 0;
}
