#include "game/takeback.h"

#include <cassert>

#include "base/tidings.h"
#include "game/record.h"
#include "platform/input.h"
#include "shown/screens.h"
#include "words/turn_words.h"

takeback_record takeback;

namespace {

constexpr str act_names[act_kind_count] = {"", "move", "card drawn", "end of turn", "pass"};

constexpr i64 no_position = -1;

// Of the human decision before the position.
i64 position_back() {
    i64 index = record.position - 1;
    while (index >= 0 && !record_is_human(index)) {
        index -= 1;
    }
    return index >= 0 ? index : no_position;
}

// Of the human decision after the next one, or the end.
i64 position_forward() {
    if (record.position == record.act_count) {
        return no_position;
    }
    i64 index = record.position + 1;
    while (index < record.act_count && !record_is_human(index)) {
        index += 1;
    }
    return index;
}

// The words for the act at the current position.
void act_tell(str what, i64 index) {
    tiding_tell(tiding_news,
                {what, seat_name(current_seat()), "'s ", act_names[record_acts[index].what.kind]});
}

void step_back() {
    if (i64 index = position_back(); index != no_position) {
        record_go(index);
        act_tell("taken back: ", index);
    }
}

void step_forward() {
    if (i64 index = position_forward(); index != no_position) {
        act_tell("done again: ", record.position);
        record_go(index);
    }
}

}  // namespace

bool takeback_goes_back() {
    return game_is_shown() && record.whole && position_back() != no_position;
}

bool takeback_goes_forward() {
    return game_is_shown() && record.whole && position_forward() != no_position;
}

void takeback_keys_apply() {
    if (!input_key_is_held(key_ctrl)) {
        return;
    }
    if (input_key_is_pressed(key_z)) {
        takeback.steps_wanted += input_key_is_held(key_shift) ? 1 : -1;
    }
    if (input_key_is_pressed(key_y)) {
        takeback.steps_wanted += 1;
    }
}

void takeback_steps_take() {
    assert(turn.move_timer <= 0);
    for (; takeback.steps_wanted < 0 && record.whole; ++takeback.steps_wanted) {
        step_back();
    }
    for (; takeback.steps_wanted > 0 && record.whole; --takeback.steps_wanted) {
        step_forward();
    }
    takeback.steps_wanted = 0;
}
