#include "tools/position_words.h"

#include "game/game_words.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "tools/card_text.h"
#include "tools/words.h"
#include "words/card_words.h"

namespace {

std::string seat_line(i64 seat) {
    const std::string name = "seat " + std::to_string(seat + 1);
    return machine_kind == pushdown_machine
               ? name + " holds: " + cards_text(players[seat].hand)
               : name + " wants: " + std::string(view_of(goal_sentence(players[seat].goal)));
}

}  // namespace

std::string seat_title(i64 seat) {
    return "seat " + std::to_string(seat + 1) + " (" +
           std::string(view_of(game_colours[players[seat].colour_index])) + ")";
}

std::string cards_text(const dyn_array<card>& cards) {
    std::string text;
    for (card c : cards) {
        text += text.empty() ? "" : " ";
        text += card_text(c);
    }
    return text;
}

std::vector<std::string> position_lines() {
    std::vector<std::string> lines;
    if (machine_kind == state_machine) {
        return lines;
    }
    if (machine_kind == turing_machine) {
        lines.push_back("tape: " + cards_text(tape) + ", head at " + std::to_string(tape_head));
    } else if (discard_pile.cards.count > 0) {
        lines.push_back("on the pile: " + card_text(card_array_top(discard_pile.cards)));
    }
    for (i64 seat = 0; seat < players.count; ++seat) {
        lines.push_back(seat_line(seat));
    }
    return lines;
}
