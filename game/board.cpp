#include "game/board.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "base/numbers.h"
#include "base/time_step.h"
#include "game/map_drawing.h"
#include "platform/input.h"
#include "render/motion.h"
#include "render/text.h"
#include "render/walk.h"
#include "rules/game_state.h"
#include "shown/flight.h"
#include "shown/screens.h"
#include "shown/selection.h"

namespace {

constexpr f64 halo_size = 96;
constexpr f64 nimber_drop = 32;  // world units below the state's centre
constexpr colour selected_halo = {0.5f, 0, 0, 0.5f};
constexpr colour target_halo = {0, 0, 1, 0.5f};
constexpr colour hover_halo = {1, 1, 1, 0.3f};
constexpr colour selected_transition_tint = {0.3f, 0, 1, 1};

// A stone flies to its state on a damped spring, stepped once per frame: the way left pulls it, its
// speed is braked, and it lands when it is slower than one world unit per second. Pull per frame,
// damping per second.
constexpr f32 flight_pull = 1.5f;
constexpr f32 flight_damping = 24;

void transitions_draw() {
    for (i64 i = 0; i < game_map.transitions.count; ++i) {
        const transition& arc = game_map.transitions[i];
        if (transition_exists(arc)) {
            bool selected = i == selection.selected_transition && i != no_index;
            transition_draw(on_board, arc, selected ? selected_transition_tint : transition_tint);
        }
    }
}

// Undoes the most recent of target, source and card.
void right_click_apply(const pointer& mouse) {
    if (!mouse.inside || !input_mouse_is_pressed(mouse_right) || screens.text_entry_open) {
        return;
    }
    if (selection_target() != no_index) {
        selection.target_state = no_index;
    } else if (selection_source() != no_index) {
        selection.selected_state = no_index;
    } else {
        selection.selected_card = no_card;
    }
}

void state_click_apply(u16 state) {
    assert(state_exists(state));
    if (selection_source() == no_index) {
        selection.selected_state = state;
        selection.target_state = no_index;
    } else if (selection.target_state == state) {
        selection.target_state = no_index;
    } else {
        selection.target_state = state;
    }
}

bool state_is_hovered(const pointer& mouse, const box& place) {
    return mouse.hovers && mouse.on_board && !screens.text_entry_open &&
           box_has(place, mouse.world.x, mouse.world.y);
}

void nimber_draw(i64 state, point centre) {
    if (!turn.show_nimbers || state >= game_map.nimber_count) {
        return;
    }
    text_draw(number_text(static_cast<i8>(game_map.nimbers[state])), centre.x,
              centre.y - nimber_drop, text_normal, colour_white, world_space, text_centred);
}

void state_frame(i64 state, const pointer& mouse) {
    point centre = state_centre(state);
    const box place = box_around(centre.x, centre.y, state_size, state_size);
    walk_note_on_board(place);
    bool hovered = state_is_hovered(mouse, place);
    if (hovered && mouse.pressed && state_exists(state)) {
        state_click_apply(static_cast<u16>(state));
    }
    if (state_exists(state) && state == selection.selected_state) {
        disc_draw(on_board, centre, halo_size, selected_halo);
    }
    if (state_exists(state) && state == selection.target_state) {
        disc_draw(on_board, centre, halo_size, target_halo);
    }
    state_draw(on_board, state);
    if (hovered) {
        disc_draw(on_board, centre, halo_size, hover_halo);
    }
    nimber_draw(state, centre);
}

bool stone_is_flying(i64 stone) {
    return stone == flight.moving_stone && stone != no_index;
}

// Moves the flying stone one step.
void flight_advance() {
    i64 stone = flight.moving_stone;
    if (stone == no_index || stone >= stones.count || !state_exists(stones[stone])) {
        flight.moving_stone = no_index;
        return;
    }
    point centre = state_centre(stones[stone]);
    const f32 target[2] = {static_cast<f32>(centre.x), static_cast<f32>(centre.y)};
    constexpr f32 dt = static_cast<f32>(frame_dt);
    f32 speed_squared = 0;
    for (i64 axis = 0; axis < 2; ++axis) {
        f32& p = flight.moving_from[axis];
        f32& v = flight.moving_velocity[axis];
        v = v + (target[axis] - p) * flight_pull - v * flight_damping * dt;
        p = p + v * dt;
        speed_squared += v * v;
    }
    if (speed_squared < 1 || motion_is_reduced()) {
        std::copy(target, target + 2, flight.moving_from);
        flight.moving_stone = no_index;
    }
}

point stone_centre(i64 stone) {
    if (stone_is_flying(stone)) {
        return {flight.moving_from[0], flight.moving_from[1]};
    }
    u16 state = stones[stone];
    assert(state_exists(state));
    point centre = state_centre(state);
    return {centre.x, centre.y + stone_rise * stone_stack[state]};
}

void stones_draw() {
    for (i64 i = 0; i < stones.count; ++i) {
        if (state_exists(stones[i])) {
            stone_draw(on_board, stone_centre(i));
            stone_stack[stones[i]] += 1;
        }
    }
}

}  // namespace

void board_find_transition() {
    u16 source = selection_source();
    u16 target = selection_target();
    bool both = source != no_index && target != no_index;
    selection.selected_transition = both ? transition_between(source, target) : no_index;
}

void nimbers_key_apply() {
    if (input_key_is_held(key_shift) && input_key_is_pressed(key_n)) {
        turn.show_nimbers = !turn.show_nimbers;
    }
}

void board_frame(const pointer& mouse) {
    board_find_transition();
    transitions_draw();
    right_click_apply(mouse);
    for (i64 i = 0; i < game_map.states.count; ++i) {
        state_frame(i, mouse);
    }
    std::memset(stone_stack, 0, sizeof stone_stack);
    flight_advance();
    stones_draw();
}
