#include "game/game_line.h"

#include "base/numbers.h"
#include "base/text_builder.h"
#include "base/tidings.h"
#include "game/record.h"
#include "game/refused.h"
#include "maps/catalogue.h"
#include "rules/turns.h"
#include "shown/screens.h"
#include "shown/selection.h"
#include "words/card_words.h"
#include "words/turn_words.h"

game_line_record game_line;

namespace {

bool stones_are_stuck() {
    if (game_line.done_number != last_done.number) {
        bool moves = false;
        open_moves_visit(stones_locate(), [&](const transition&, u16) { moves = true; });
        game_line = {last_done.number, !moves};
    }
    return game_line.is_stuck;
}

// What the seat may choose next; empty when it has begun and chosen nothing.
str choice_words() {
    u16 source = selection_source();
    u16 target = selection_target();
    const dyn_array<card>& hand = current_seat().hand;
    if (source != no_index && target == no_index) {
        return text_join({": click the state where an arrow leads from ", number_text(source)});
    }
    if (source != no_index) {
        u16 arc = transition_between(source, target);
        bool asks = arc != no_index && machine_kind == pushdown_machine &&
                    selection.selected_card == no_card;
        return asks ? text_join({": ", refusal_sentence({refused_no_card, source, target,
                                                         move_along(game_map.transitions[arc])})})
                    : str();
    }
    if (0 <= selection.selected_card && selection.selected_card < hand.count) {
        return text_join(
            {": click a state with a stone for ", card_name(hand[selection.selected_card])});
    }
    if (turn.card_drawn) {
        return ": play a card, or end the turn with the sign in the corner";
    }
    return last_done.what.kind == act_wait ? str(": click a state with a stone") : str();
}

str turn_words() {
    str seat = seat_name(current_seat());
    if (stones_are_stuck() && (machine_kind == state_machine || !current_seat().is_computer)) {
        return "no stone can be moved any more; ctrl+z takes back, escape leaves";
    }
    if (current_seat().is_computer) {
        return text_join({seat, ", a computer, is to move"});
    }
    if (!turn.turn_revealed && turn.human_count > 1) {
        return text_join({seat, "'s turn: space takes it up"});
    }
    return text_join({seat, "'s turn", choice_words()});
}

str keys_after_win() {
    return screens.replay_open    ? str()
           : catalogue_has_next() ? str("; space plays again, n the next map")
                                  : str("; space plays again");
}

str line_words() {
    if (turn.winner != no_winner) {
        return text_join({win_sentence(), keys_after_win()});
    }
    if (refused.what.why != refused_not && refused.done_number == last_done.number) {
        return refusal_sentence(refused.what);
    }
    str done = done_sentence();
    if (turn.move_timer > 0 || screens.replay_open) {
        return done;
    }
    bool goes_on = done.length > 0 && last_done.what.kind != act_draw;
    return text_join({goes_on ? done : str(), goes_on ? str("; ") : str(), turn_words()});
}

}  // namespace

void game_line_tell() {
    str name = {record.name, record.name_length};
    standing_tell({line_words(), name.length > 0 ? str(" - ") : str(), name});
}
