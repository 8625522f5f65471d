#include <algorithm>
#include <cstdio>

#include "base/arena.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "tools/best_play.h"
#include "tools/board_frame.h"
#include "tools/commands.h"
#include "tools/map_svg.h"
#include "tools/positions.h"
#include "tools/progress.h"
#include "tools/solve_words.h"
#include "tools/solver/hand_solver.h"
#include "tools/solver/tape_solver.h"
#include "tools/terminal.h"

namespace {

constexpr std::size_t turns_shown = 20;
constexpr i64 line_seconds = 5;  // for the turns that follow the best one

int stop_tell(const request& asked, work_state state) {
    return state == work_well
               ? all_well
               : complain(asked.names[0], work_words(state, asked.megabytes, asked.seconds));
}

int position_tell(const request& asked) {
    solved_position solved;
    if (const work_state state = position_solve(solved); state != work_well) {
        return stop_tell(asked, state);
    }
    const std::string seat = seat_words(0);
    if (solved.turns.empty()) {
        return complain(asked.names[0], seat + " has no move that can be looked at: nobody wins");
    }
    const solved_turn& best = best_turn(solved);
    const std::string picture = asked.out.empty() ? "" : map_svg(asked.numbers, {}, best.arc);
    put(seat + ": ");
    put(turn_words(best) + ", " + outcome_words(best.outcome), ink_good);
    put("\n  why: " + reason_words(solved) + "\n");
    std::size_t shown = 0;
    for (const solved_turn& other : solved.turns) {
        if (&other != &best && (asked.all || shown++ < turns_shown)) {
            put("  " + turn_words(other) + ", " + outcome_words(other.outcome) + "\n");
        }
    }
    if (shown > turns_shown) {
        put("  and " + std::to_string(shown - turns_shown) + " more; --all shows them\n");
    }
    if (best.outcome.winner != nobody) {
        work_begin({asked.megabytes * 1024 * 1024, line_seconds});
        put("  goes on: " + best_play_words(solved) + "\n");
    }
    return asked.out.empty() ? all_well : output_write(asked, picture);
}

int state_map_tell(const request& asked) {
    solved_position solved;
    if (const work_state state = position_solve(solved); state != work_well) {
        return stop_tell(asked, state);
    }
    const verdict& best = solved.best;
    put(best.winner == nobody
            ? outcome_words(best)
            : seat_words(best.winner) + " wins in " + count_words(best.turns, "turn"));
    const i64* standings = solved.standings;
    put("\n" + count_words(standings[0] + standings[1] + standings[2], "position") +
        ": who is to move wins " + number_grouped(standings[2]) + " of them, another seat " +
        number_grouped(standings[0]) + ", nobody " + number_grouped(standings[1]) +
        "; the longest win takes " + count_words(solved.longest, "turn") + "\n");
    return all_well;
}

int tape_map_tell(const request& asked) {
    deals_share all = {std::vector<f64>(static_cast<std::size_t>(asked.seat_count))};
    f64 choices = 0;
    i64 too_large = 0;
    const work_state state = tape_deals_solve(
        [&](const tape_deals& deals) {
            choices += 1;
            deals_add(all, deals.share);
            put("goals");
            for (std::size_t goal : deals.goals) {
                put(" " + std::to_string(goal + 1));
            }
            put(": " + share_words(deals.share, 1) + "\n");
        },
        too_large);
    if (choices > 0) {
        put("all deals: " + share_words(all, choices) + "\n");
    }
    if (too_large > 0 && choices > 0) {
        put("left out as too large: " + count_words(too_large, "choice") +
            " of goals, those turned round the table counted once\n");
    }
    return state == work_well && too_large > 0 ? failed : stop_tell(asked, state);
}

// Deals on from where the stones stood.
void deal_again(const std::vector<u16>& places) {
    std::copy(places.begin(), places.end(), stones.begin());
    game_start();
}

// What so many deals come to, those left out for which there is too little memory. Is the first one
// of these, then none is tried again.
struct hand_deals {
    deals_share share = {};
    i64 solved = 0;
    i64 too_large = 0;
    i64 hard_turns = 0;
    i64 hard_best = 0;
};

work_state hand_deals_solve(hand_deals& deals, i64 wanted) {
    const std::vector<u16> places(stones.begin(), stones.end());
    while (deals.solved + deals.too_large < wanted) {
        const hand_deal deal = hand_deal_solve();
        if (deal.state == work_too_large && deals.solved > 0) {
            deals.too_large += 1;
        } else if (deal.state != work_well) {
            return deal.state;
        } else {
            work_tell(deal.positions * wanted);
            deal_add(deals.share, deal.found, 1);
            deals.solved += 1;
            deals.hard_turns += deal.hard_turns;
            deals.hard_best += deal.hard_best;
        }
        deal_again(places);
    }
    return work_well;
}

int hand_map_tell(const request& asked) {
    hand_deals deals = {{std::vector<f64>(static_cast<std::size_t>(asked.seat_count))}};
    const work_state state = hand_deals_solve(deals, asked.deals);
    if (deals.solved > 0) {
        put(count_words(deals.solved, "deal") + ": " +
            share_words(deals.share, static_cast<f64>(deals.solved)) + "\n");
        put("hard seats took a best turn in " + std::to_string(deals.hard_best) + " of " +
            std::to_string(deals.hard_turns) + " that made a difference\n");
    }
    if (deals.too_large > 0) {
        put("left out as too large: " + count_words(deals.too_large, "deal") + "\n");
    }
    return state == work_well && deals.too_large > 0 ? failed : stop_tell(asked, state);
}

}  // namespace

int solve_command(const request& asked) {
    if (!asked.out.empty() && !board_frame_begin()) {
        return failed;
    }
    static given_position given;  // the loaded map's rules point into it
    std::vector<map_place> places;
    if (!map_places_find(asked, places) || !position_take(asked, places[0], given)) {
        return failed;
    }
    work_begin({asked.megabytes * 1024 * 1024, asked.seconds});
    if (given.is_game || asked.move) {
        return position_tell(asked);
    }
    switch (machine_kind) {
        case pushdown_machine:
            return hand_map_tell(asked);
        case turing_machine:
            return tape_map_tell(asked);
        default:
            return state_map_tell(asked);
    }
}
