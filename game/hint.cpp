#include "game/hint.h"

#include "ai/advice.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "game/board_show.h"
#include "game/map_drawing.h"
#include "game/table_panel.h"
#include "render/sprites.h"
#include "rules/game_state.h"
#include "shown/screens.h"
#include "words/turn_words.h"

hint_record hint;

namespace {

constexpr i32 hint_frames = 4 * 60;
constexpr colour hint_tint = {1, 1, 0, 1};
constexpr colour hint_box_tint = {1, 1, 0, 0.4f};

str advice_words(const game_act& act) {
    switch (act.kind) {
        case act_move:
            return move_words(act);
        case act_draw:
            return "draw a card";
        case act_end:
            return "end the turn";
        default:
            return "nothing can be done";
    }
}

}  // namespace

bool hints_are_due() {
    return game_is_shown() && turn.winner == no_winner && turn.move_timer <= 0 &&
           turn.turn_revealed && !current_seat().is_computer;
}

void hint_give() {
    if (!hints_are_due()) {
        tiding_tell(tiding_refusal, {"a hint is given to who is to move"});
        return;
    }
    hint = {advice_find(), last_done.number, hint_frames};
    tiding_tell(tiding_news, {"hint: ", advice_words(hint.what)});
}

void hint_draw() {
    if (hint.frames_left == 0 || hint.done_number != last_done.number) {
        hint = {};
        return;
    }
    hint.frames_left -= 1;
    if (hint.what.kind == act_move) {
        transition_draw(on_board, game_map.transitions[hint.what.arc], hint_tint);
        move_card_draw(hint.what);
    } else if (hint.what.kind != act_wait) {
        box_fill(hint.what.kind == act_draw ? pile_box(deck) : end_turn_box(), hint_box_tint);
    }
}
