#include "rules/turns.h"

#include <cassert>

#include "base/arithmetic.h"
#include "base/time_step.h"
#include "rules/cards.h"
#include "rules/goal.h"
#include "shown/flight.h"
#include "shown/selection.h"

namespace {

void tape_head_move(char direction) {
    i64 step = direction == 'L' ? -1 : direction == 'R' ? 1 : 0;
    assert(tape_head >= 0);
    i64 count = tape.count;
    tape_head = count == 0 ? 0 : floor_modulo(tape_head + step, count);
}

// Where the next stone on an existing state is drawn: its centre, raised by the stones that the
// board drew there in its last frame.
void state_world_position(u16 state, f32 (&position)[2]) {
    assert(state_exists(state));
    point centre = state_centre(state);
    position[0] = static_cast<f32>(centre.x);
    position[1] = static_cast<f32>(centre.y + stone_rise * stone_stack[state]);
}

}  // namespace

u16 stone_find(u16 state) {
    for (i64 i = 0; i < stones.count && i < no_index; ++i) {
        if (stones[i] == state) {
            return static_cast<u16>(i);
        }
    }
    return no_index;
}

stone_table stones_locate() {
    stone_table table = {per_state<u16>(no_index), per_state<i64>(0)};
    for (i64 i = 0; i < stones.count && i < no_index; ++i) {
        u16 state = stones[i];
        if (state_exists(state)) {
            if (table.first[state] == no_index) {
                table.first[state] = static_cast<u16>(i);
            }
            table.count[state] += 1;
        }
    }
    return table;
}

void stone_move(u16 stone, u16 target) {
    assert(stone < stones.count && state_exists(target));
    flight.moving_stone = stone;
    state_world_position(stones[stone], flight.moving_from);
    stones[stone] = target;
    turn.move_timer = move_duration;
}

void hand_play(i64 index) {
    dyn_array<card>& hand = current_seat().hand;
    assert(0 <= index && index < hand.count);
    card played = hand[index];
    card_array_remove_at(hand, index);
    dyn_array_push(discard_pile.cards, played);
}

void hand_draw() {
    dyn_array_push(current_seat().hand, card_take_top(deck.cards));
    turn.card_drawn = true;
}

void turn_pass() {
    turn.move_timer = move_duration;
}

void tape_apply(str action) {
    card_property written;
    if (action.length > 0 && tape_head < tape.count && card_property_read(action[0], written)) {
        card_write(tape[tape_head], written);
    }
    if (action.length > 1) {
        tape_head_move(action[1]);
    }
}

void move_advance() {
    turn.move_timer -= frame_dt;
    if (turn.move_timer <= 0) {
        turn_end();
    }
}

void turn_end() {
    assert(turn.current_player < players.count);
    if (players.count > 1) {
        turn.turn_revealed = false;
    }
    turn.card_drawn = false;
    selection = {};
    if (win_check()) {
        turn.winner = static_cast<u8>(turn.current_player);
        return;
    }
    turn.current_player = static_cast<i8>((turn.current_player + 1) % players.count);
    if (current_seat().is_computer) {
        turn.think_timer = think_after_turn;
    } else if (turn.human_count <= 1) {
        turn.turn_revealed = true;
    }
}
