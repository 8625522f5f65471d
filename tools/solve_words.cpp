#include "tools/solve_words.h"

#include <cstdio>

#include "rules/cards.h"
#include "rules/game_state.h"
#include "tools/card_text.h"
#include "tools/words.h"

namespace {

std::string tenth(f64 value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

std::string percent(f64 part, f64 whole) {
    return tenth(100 * part / whole) + "%";
}

// The hand's card once the deck's top card was drawn into it.
card card_after_draw(i64 index) {
    const dyn_array<card>& hand = current_seat().hand;
    return index < hand.count ? hand[index] : card_array_top(deck.cards);
}

}  // namespace

std::string work_words(work_state state, i64 megabytes, i64 seconds) {
    switch (state) {
        case work_too_large:
            return "is too large: its positions take more than " + std::to_string(megabytes) +
                   " MB (--memory)";
        case work_out_of_time:
            return "is not done after " + std::to_string(seconds) + " s (--time)";
        default:
            return "was interrupted";
    }
}

std::string count_words(i64 count, const char* what) {
    return number_grouped(count) + " " + what + (count == 1 ? "" : "s");
}

std::string seat_words(i64 after) {
    return "seat " + std::to_string((turn.current_player + after) % players.count + 1);
}

std::string outcome_words(const verdict& outcome) {
    if (outcome.winner == nobody) {
        return "nobody wins";
    }
    const std::string who = outcome.winner == 0 ? "" : seat_words(outcome.winner) + " ";
    return who + "wins in " + count_words(outcome.turns, "turn");
}

std::string turn_words(const solved_turn& taken) {
    const std::string drawn =
        taken.draws ? "draws " + card_text(card_array_top(deck.cards)) + ", " : "";
    if (taken.arc < 0) {
        return drawn + "ends the turn";
    }
    const transition& arc = game_map.transitions[taken.arc];
    const std::string move = std::to_string(arc.from) + ">" + std::to_string(arc.to);
    return drawn + move +
           (taken.card_index == no_card ? "" : ":" + card_text(card_after_draw(taken.card_index)));
}

std::string share_words(const deals_share& share, f64 weight) {
    std::string text;
    f64 won = 0;
    for (f64 wins : share.wins) {
        text += (text.empty() ? "" : " / ") + percent(wins, weight);
        won += wins;
    }
    text += ", nobody " + percent(share.nobody, weight);
    return won <= 0 ? text
                    : text + "; " + tenth(share.turns / won) + " turns on average, " +
                          std::to_string(share.longest) + " at most";
}
