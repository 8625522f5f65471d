#include "game/replay.h"

#include <cassert>

#include "base/numbers.h"
#include "base/tidings.h"
#include "base/time_step.h"
#include "game/board.h"
#include "game/game_file.h"
#include "game/record.h"
#include "platform/input.h"
#include "render/renderer.h"
#include "render/text.h"
#include "rules/game_state.h"
#include "rules/turns.h"
#include "shown/screens.h"

replay_record replay;

namespace {

constexpr f64 act_time = 1;  // seconds
constexpr f64 line_drop = 24;
constexpr colour line_tint = {0.5f, 0.5f, 0.5f, 1};

bool flies_on(i64 index) {
    return index < record.act_count && record_acts[index].in_flight;
}

void position_show(i64 position) {
    record_show(position);
    replay.position = position;
    replay.time_left = act_time;
}

// What was done while a stone flew is shown with its move.
void step_forward() {
    if (replay.position == record.act_count) {
        return;
    }
    do {
        record_show_act(replay.position);
        replay.position += 1;
    } while (flies_on(replay.position));
    replay.time_left = act_time;
}

void step_back() {
    i64 position = replay.position;
    do {
        position -= 1;
    } while (position > 0 && flies_on(position));
    if (position >= 0) {
        position_show(position);
    }
}

// At the end the game begins again.
void pause_toggle() {
    if (replay.position == record.act_count) {
        position_show(0);
    }
    replay.paused = !replay.paused;
}

void keys_apply() {
    if (input_key_is_pressed(key_space)) {
        pause_toggle();
    }
    if (input_key_is_pressed(key_left)) {
        replay.paused = true;
        step_back();
    }
    if (input_key_is_pressed(key_right)) {
        replay.paused = true;
        step_forward();
    }
    nimbers_key_apply();
}

void time_pass() {
    if (turn.move_timer > 0) {
        move_advance();
    }
    if (replay.paused) {
        return;
    }
    replay.time_left -= frame_dt;
    if (replay.time_left <= 0) {
        step_forward();
    }
    replay.paused = replay.position == record.act_count;
}

// While the game goes on, the only human's and nobody else's.
void hand_show() {
    turn.turn_revealed =
        replay.game_is_over || (turn.human_count <= 1 && !current_seat().is_computer);
}

str space_words() {
    return !replay.paused                        ? str("   <space> pauses")
           : replay.position == record.act_count ? str("   <space> begins again")
                                                 : str("   <space> goes on");
}

}  // namespace

void replay_begin() {
    if (game_menu_is_shown() && !game_return()) {
        return;
    }
    if (!game_is_shown()) {
        return;
    }
    record_follow();  // it may have been dealt in this frame
    if (!replay_can_begin()) {
        tiding_tell(tiding_refusal,
                    {record.whole ? str("nothing was done in this game yet")
                                  : str("this game is too long to be shown again")});
        return;
    }
    game_file_write();
    record_show(record.act_count);
    replay = {};
    replay.game_is_over = turn.winner != no_winner;
    position_show(0);
    screens.replay_open = true;
}

bool replay_can_begin() {
    return game_menu_is_shown() ? game_can_return()
                                : game_is_shown() && record.whole && record.act_count > 0;
}

void replay_end() {
    record_show(record.position);
    screens.replay_open = false;
}

void replay_update() {
    assert(screens.replay_open && replay.position <= record.act_count);
    keys_apply();
    time_pass();
    hand_show();
}

void replay_line_draw() {
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_int(text, replay.position);
    text_builder_put_str(text, " of ");
    text_builder_put_int(text, record.act_count);
    text_builder_put_str(text, space_words());
    text_builder_put_str(text, "   <left> <right> step   <esc> leaves");
    label_draw(text_builder_text(text), render_target.width / 2.0,
               render_target.height - top_panel_height - line_drop, line_tint);
}
