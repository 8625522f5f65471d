// Whole games by calls alone, on every map that ships.

#include <algorithm>

#include "base/time_step.h"
#include "game/turn_update.h"
#include "maps/catalogue.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/goal.h"
#include "rules/selection.h"
#include "rules/turns.h"
#include "tests/support/game.h"

namespace {

using play_test = game_test;

// Makes the map at `path` the selected one of its family and starts a game on it.
void game_begin(i64 kind, const std::string& path, std::string_view seats, u64 seed) {
    machine_kind = kind;
    catalogues[kind].count = 0;
    dyn_array_push(catalogues[kind], {"map", str_copy(str_of(path))});
    current_catalogue = &catalogues[kind];
    selected_entry = 0;
    seats_make(seats);
    settings = {};
    turn = {};
    tape_head = 0;
    random_seed(seed);
    game_start();
}

// A human who tries any move, and now and then draws or ends the turn as the board would allow.
void human_try(std::mt19937_64& random) {
    const dyn_array<transition>& arcs = game_map.transitions;
    if (machine_kind == pushdown_machine && random() % 64 == 0) {
        if (turn.card_drawn) {
            turn_end();
        } else if (deck.cards.count > 0) {
            hand_draw();
        }
        return;
    }
    i64 chosen = static_cast<i64>(random() % static_cast<u64>(arcs.count));
    const transition& arc = arcs[chosen];
    selection = {arc.from, arc.to, static_cast<u16>(chosen), static_cast<i64>(random() % 8)};
}

i64 cards_count() {
    i64 count = deck.cards.count + discard_pile.cards.count + tape.count;
    for (const player& seat : players) {
        count += seat.hand.count;
    }
    return count;
}

// One update that waits for nothing. Only one stone moves, along an arc; only the seat to move has
// acted; no card is lost, and the stand-in card of an empty pile alone is new.
void update_check(std::mt19937_64& random) {
    const std::vector<u16> places(stones.begin(), stones.end());
    const i64 seat = turn.current_player;
    const i64 cards = cards_count();
    const i64 stands_in = deck.cards.count + discard_pile.cards.count == 0 ? 1 : 0;
    arena_rewind(arena_frame, 0);
    turn.move_timer = std::min(turn.move_timer, frame_dt);
    turn.think_timer = 0;
    if (turn.move_timer <= 0 && game_map.transitions.count > 0 && !current_seat().is_computer) {
        human_try(random);
    }
    turn_update();
    i64 moved = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        u16 to = stones[static_cast<i64>(i)];
        auto joins = [&](const transition& t) { return t.from == places[i] && t.to == to; };
        moved += to != places[i];
        ASSERT_TRUE(to == places[i] || std::ranges::any_of(game_map.transitions, joins));
    }
    ASSERT_LE(moved, 1);
    ASSERT_TRUE(cards_count() == cards || cards_count() == cards + stands_in);
    ASSERT_TRUE(turn.current_player == seat || turn.current_player == (seat + 1) % players.count);
    ASSERT_TRUE(turn.winner == no_winner || (turn.winner == turn.current_player && win_check()));
    ASSERT_LE(arenas[arena_frame].offset, 64 * 1024);
}

TEST_F(play_test, GamesOnShippedMapsWholeAndBroken) {
    std::mt19937_64 random(3);
    i64 games = 0;
    i64 won = 0;
    for (const shipped_map& map : shipped_maps()) {
        for (u64 seed = 0; seed < 6; ++seed) {
            SCOPED_TRACE(map.path);
            const bool whole = seed < 2;
            file_put("map", whole ? map.text : text_broken(map.text, random));
            output_of([&] {
                game_begin(map.kind, "map", seed == 0 ? "21" : "H012", seed);
                for (i64 updates = 0; updates < 600 && turn.winner == no_winner; ++updates) {
                    update_check(random);
                    ASSERT_FALSE(HasFatalFailure());
                }
            });
            games += whole;
            won += whole && turn.winner != no_winner;
        }
    }
    EXPECT_GT(2 * won, games);
}

}  // namespace
