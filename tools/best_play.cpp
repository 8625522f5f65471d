#include "tools/best_play.h"

#include <algorithm>

#include "maps/nimbers.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/turns.h"
#include "tools/solver/list.h"
#include "tools/ways_out.h"
#include "tools/words.h"
#include "words/card_words.h"
#include "words/turn_words.h"

namespace {

constexpr i64 turns_told = 40;

std::string standing_words(i64 standing, i64 alike, i64 all) {
    const std::string of_all = "of " + std::to_string(all) + " turns ";
    const std::string some = of_all + (alike == 1 ? "only this one" : std::to_string(alike));
    switch (standing) {
        case 2:
            return alike == all ? "every turn wins, none sooner"
                                : some + (alike == 1 ? " wins" : " win, none sooner");
        case 1:
            return alike == all ? "no turn wins and none loses"
                                : some + (alike == 1 ? " does not lose" : " do not lose");
        default:
            return "every turn loses, none later";
    }
}

// Whether every state has a nimber and the last mover wins: light are those states from which no
// arrow leads on.
bool last_mover_wins() {
    const ways_out ways = ways_out_find();
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if ((game_map.states[s].accepting != 0) != at(ways, s).empty()) {
            return false;
        }
    }
    return settings.win_mode == win_all_accepting && ways_are_acyclic(ways);
}

// The nimbers of the states on which the stones stand after a move.
std::string nimbers_words(const transition& move) {
    nimbers_compute();
    std::string left;
    int sum = 0;
    const u16 moved = stone_find(move.from);
    for (i64 i = 0; i < stones.count; ++i) {
        const u8 nimber = state_nimber(i == moved ? move.to : stones[i]);
        left += (left.empty() ? "" : ", ") + std::to_string(nimber);
        sum ^= nimber;
    }
    return "; it leaves the nimbers " + left + ", whose exclusive or is " + std::to_string(sum);
}

// Draws a card if the turn does, and says so.
std::string draw_take(const solved_turn& taken) {
    if (!taken.draws) {
        return "";
    }
    const std::string drawn(view_of(card_name(card_array_top(deck.cards))));
    act_do({act_draw});
    return "draws " + drawn + ", ";
}

std::string turn_take(const solved_turn& taken) {
    const std::string who = std::string(view_of(seat_name(current_seat()))) + ": ";
    const std::string drawn = draw_take(taken);
    if (taken.arc < 0) {
        act_do({act_end});
        return who + drawn + "ends the turn";
    }
    const game_act move = {act_move, static_cast<i32>(taken.arc),
                           static_cast<i32>(taken.card_index)};
    const std::string way(view_of(move_words(move)));
    act_do(move);
    turn.move_timer = 0;
    turn_end();
    return who + drawn + way;
}

}  // namespace

std::string reason_words(const solved_position& solved) {
    const solved_turn& best = best_turn(solved);
    const i64 all = static_cast<i64>(solved.turns.size());
    const i64 standing = verdict_standing(best.outcome);
    const i64 alike = std::ranges::count(
        solved.turns, standing, [](const solved_turn& t) { return verdict_standing(t.outcome); });
    const std::string reason =
        all == 1 ? "no other turn is open" : standing_words(standing, alike, all);
    return machine_kind == state_machine && players.count == 2 && last_mover_wins()
               ? reason + nimbers_words(game_map.transitions[best.arc])
               : reason;
}

std::string best_play_words(const solved_position& solved) {
    solved_position next = solved;
    std::string played = turn_take(best_turn(next));
    for (i64 told = 1; turn.winner == no_winner && solved.best.winner != nobody; ++told) {
        next = {};
        if (told == turns_told || position_solve(next) != work_well || next.turns.empty()) {
            return played + " and so on";
        }
        played += "; " + turn_take(best_turn(next));
    }
    return turn.winner == no_winner ? played : played + "; " + std::string(view_of(win_sentence()));
}
