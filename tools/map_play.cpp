#include "tools/map_play.h"

#include <algorithm>
#include <cstdio>

#include "base/arena.h"
#include "game/turn_update.h"
#include "maps/model.h"
#include "rules/deal.h"
#include "rules/random.h"
#include "rules/selection.h"

namespace {

void seats_make(const std::vector<strength_value>& strengths) {
    players.count = 0;
    for (strength_value strength : strengths) {
        player seat;
        seat.is_computer = 1;
        seat.strength = strength;
        dyn_array_push(players, seat);
    }
    player_count = players.count;
}

// The stones as the map has them. Without a catalogue a new game is played on the loaded map as it
// stands, so they are put back before each one.
using stone_places = std::vector<u16>;

void stones_put_back(const stone_places& places) {
    stones.count = 0;
    for (u16 state : places) {
        dyn_array_push(stones, state);
    }
}

enum update_result { turn_goes_on, turn_ended, game_stuck };

// Runs one update and counts what it did. A seat that does nothing when it may act cannot move, and
// nobody after it can.
update_result update_count(play_record& record) {
    bool was_moving = turn.move_timer > 0;
    bool was_thinking = turn.think_timer > 0;
    bool had_drawn = turn.card_drawn;
    flight.moving_stone = no_index;
    arena_rewind(arena_frame, 0);
    turn_update();
    if (was_moving) {
        return turn.move_timer <= 0 ? turn_ended : turn_goes_on;
    }
    bool moving = turn.move_timer > 0;
    bool passed_at_once = had_drawn && !turn.card_drawn;
    bool moved = flight.moving_stone != no_index;
    record.moves += moved ? 1 : 0;
    record.passes += passed_at_once || (moving && !moved) ? 1 : 0;
    record.draws += !had_drawn && turn.card_drawn ? 1 : 0;
    if (!was_thinking && !moving && turn.card_drawn == had_drawn) {
        return game_stuck;
    }
    return passed_at_once ? turn_ended : turn_goes_on;
}

void game_play(play_record& record) {
    game_start();
    i64 turns = 0;
    update_result result = turn_goes_on;
    while (turn.winner == no_winner && result != game_stuck && turns < turn_limit) {
        result = update_count(record);
        turns += result == turn_ended ? 1 : 0;
    }
    record.turns.push_back(turns);
    if (turn.winner == no_winner) {
        record.unfinished += 1;
    } else {
        record.wins[turn.winner] += 1;
    }
}

void progress_show(i64 done, i64 games) {
    if (done % 64 == 0 || done == games) {
        std::fprintf(stderr, "\r%lld of %lld games%s", static_cast<long long>(done),
                     static_cast<long long>(games), done == games ? "\r\033[K" : "");
    }
}

}  // namespace

play_record map_play(const std::vector<strength_value>& strengths, i64 games, u64 seed,
                     bool progress) {
    play_record record = {std::vector<i64>(strengths.size()), {}, 0, 0, 0, 0};
    const stone_places places(stones.begin(), stones.end());
    seats_make(strengths);
    random_seed(seed);
    for (i64 game = 0; game < games; ++game) {
        if (progress) {
            progress_show(game, games);
        }
        stones_put_back(places);
        game_play(record);
    }
    if (progress) {
        progress_show(games, games);
    }
    return record;
}

i64 median(std::vector<i64> values) {
    if (values.empty()) {
        return 0;
    }
    auto middle = values.begin() + (static_cast<i64>(values.size()) - 1) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
