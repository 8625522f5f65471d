#include "words/turn_words.h"

#include <cassert>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "rules/goal.h"
#include "words/card_words.h"

namespace {

constexpr str seat_names[seat_colour_count] = {"Red",    "Blue",   "Green",
                                               "Yellow", "Purple", "Orange"};

// By win mode: what has to be so of the stones, and what is said where it is not.
constexpr str stones_won[win_mode_count] = {"", "every stone stands on a light state",
                                            "a stone stands on a light state"};
constexpr str stones_lacking[win_mode_count] = {"", "but a stone does not stand on a light state",
                                                "but no stone stands on a light state"};

str by_win_mode(const str (&words)[win_mode_count]) {
    return settings.win_mode < win_mode_count ? words[settings.win_mode] : str();
}

// "2 to 5 with red circle 1".
str way_words(const transition& arc, card played) {
    str way = text_join({number_text(arc.from), " to ", number_text(arc.to)});
    if (machine_kind == pushdown_machine) {
        return text_join({way, " with ", card_name(played)});
    }
    str done = machine_kind == turing_machine ? action_words(arc.rule) : str();
    return done.length > 0 ? text_join({way, ", ", done}) : way;
}

// What a move that met the family's test lacks for a win.
str lacking_words(const player& seat) {
    if (turn.winner != no_winner || last_done.what.kind != act_move) {
        return {};
    }
    str met = machine_kind == pushdown_machine && seat.hand.count == 0
                  ? str("; the last card is gone, ")
              : machine_kind == turing_machine && !seat.is_computer && goal_met(seat.goal)
                  ? str("; the goal is met, ")
                  : str();
    str lacking = by_win_mode(stones_lacking);
    return met.length > 0 && lacking.length > 0 ? text_join({met, lacking}) : str();
}

// What the winner did to win, as far as the family asks for it.
str family_won(const player& winner) {
    return machine_kind == pushdown_machine ? str("the last card is gone")
           : machine_kind == turing_machine
               ? text_join(
                     {goal_sentence(winner.goal), ", which was the goal of ", seat_name(winner)})
               : str();
}

}  // namespace

str seat_name(const player& seat) {
    assert(seat.colour_index < seat_colour_count);
    return seat_names[seat.colour_index];
}

str action_words(str action) {
    text_builder text = text_builder_make(arena_frame);
    card_property written;
    if (action.length > 0 && card_property_read(action[0], written)) {
        text_builder_put_str(text, "the card under the head ");
        property_put(text, manner_is, written);
        text_builder_put_str(text, " now");
    }
    if (action.length > 1 && (action[1] == 'L' || action[1] == 'R')) {
        text_builder_put_str(text, text.length > 0 ? str(", then ") : str());
        text_builder_put_str(
            text, action[1] == 'L' ? str("the head goes left") : str("the head goes right"));
    }
    return text_builder_text(text);
}

str move_words(const game_act& move) {
    const dyn_array<card>& hand = current_seat().hand;
    bool costs = 0 <= move.card && move.card < hand.count;
    return way_words(game_map.transitions[move.arc], costs ? hand[move.card] : card{});
}

str done_sentence() {
    const player& seat = players[last_done.seat];
    switch (last_done.what.kind) {
        case act_move:
            return text_join({seat_name(seat),
                              last_done.drawn ? str(" drew a card, then ") : str(": "),
                              way_words(game_map.transitions[last_done.what.arc], last_done.played),
                              lacking_words(seat)});
        case act_draw:
            return text_join({seat_name(seat), " drew a card"});
        case act_end:
            return text_join({seat_name(seat), " drew a card and passed"});
        case act_pass:
            return text_join({seat_name(seat), " passed"});
        default:
            return {};
    }
}

str aim_sentence() {
    if (settings.win_mode >= win_mode_count) {
        return "Nobody can win: the map names a win mode that does not exist";
    }
    const str family = machine_kind == pushdown_machine ? str("the last card is gone")
                       : machine_kind == turing_machine ? str("the own goal is met")
                                                        : str();
    const str places = by_win_mode(stones_won);
    if (family.length == 0 && places.length == 0) {
        return "Whoever makes the first move wins";
    }
    const str both = family.length > 0 && places.length > 0 ? str(" and ") : str();
    return text_join({"Who moves wins as soon as ", family, both, places});
}

str win_sentence() {
    const player& winner = players[turn.winner];
    str family = family_won(winner);
    str places = by_win_mode(stones_won);
    bool none = family.length == 0 && places.length == 0;
    return text_join({seat_name(winner),
                      " wins: ", none ? str("any move wins on this map") : family,
                      family.length > 0 && places.length > 0 ? str(", and ") : str(), places});
}
