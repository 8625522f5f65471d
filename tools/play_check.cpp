#include "tools/play_check.h"

#include "maps/model.h"
#include "rules/game_state.h"
#include "tools/map_play.h"

namespace {

constexpr i64 games = 40;
constexpr u64 seed = 1;
constexpr i64 at_once_limit = 2;  // 5 % of the games

void stuck_check(i64 most, remarks& found) {
    for (i64 seats = 2; seats <= most; ++seats) {
        std::vector<i64> humans(static_cast<std::size_t>(seats), human_seat);
        play_record record = map_play(humans, games, seed, false);
        if (record.stuck > 0) {
            found.push_back("with " + std::to_string(seats) + " seats a human got stuck in " +
                            std::to_string(record.stuck) + " of " + std::to_string(games) +
                            " games: no move, and the deck is empty");
            return;
        }
    }
}

void first_turn_check(remarks& found) {
    play_record record = map_play({strength_hard, strength_hard}, games, seed, false);
    if (record.at_once > at_once_limit) {
        found.push_back("the first turn won " + std::to_string(record.at_once) + " of " +
                        std::to_string(games) + " games");
    }
}

}  // namespace

remarks play_check(i64 seats) {
    remarks found;
    if (game_map.states.count == 0 || seats < 2) {
        return found;
    }
    if (machine_kind == pushdown_machine) {
        stuck_check(seats, found);
    }
    if (found.empty()) {
        first_turn_check(found);
    }
    return found;
}
