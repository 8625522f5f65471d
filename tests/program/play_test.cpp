#include <algorithm>
#include <array>
#include <random>

#include "base/time_step.h"
#include "game/turn_update.h"
#include "maps/catalogue.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/goal.h"
#include "rules/selection.h"
#include "rules/turns.h"
#include "tests/support/game.h"

namespace {

// Whole games by calls alone, on every map that ships.
using play_test = game_test;

constexpr const char* families[] = {"state", "pushdown", "turing"};

std::vector<std::filesystem::path> family_maps(i64 kind) {
    std::vector<std::filesystem::path> maps;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(maps_folder() / families[kind])) {
        if (entry.is_regular_file()) {
            maps.push_back(entry.path());
        }
    }
    std::sort(maps.begin(), maps.end());
    return maps;
}

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
    discard_pile.cards.count = 0;
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
    const transition& arc = arcs[static_cast<i64>(random() % static_cast<u64>(arcs.count))];
    const transition* first = std::find_if(arcs.begin(), arcs.end(), [&](const transition& t) {
        return t.from == arc.from && t.to == arc.to;
    });
    selection = {arc.from, arc.to, static_cast<u16>(first - arcs.begin()),
                 static_cast<i64>(random() % 8)};
}

// How often each card is there, over all piles and hands.
std::array<i64, card_value_count> cards_count() {
    std::array<i64, card_value_count> counts = {};
    auto add = [&](const dyn_array<card>& pile) {
        for (card c : pile) {
            counts[static_cast<std::size_t>(card_value(c))] += 1;
        }
    };
    add(deck.cards);
    add(discard_pile.cards);
    add(tape);
    for (const player& seat : players) {
        add(seat.hand);
    }
    return counts;
}

// What one update may change is judged against the position before it.
struct position {
    std::array<i64, card_value_count> cards = cards_count();
    std::vector<u16> places = {stones.begin(), stones.end()};
    std::vector<i64> hands;
    i64 deck_count = deck.cards.count;
    i64 discard_count = discard_pile.cards.count;
    i8 seat = turn.current_player;

    position() {
        for (const player& p : players) {
            hands.push_back(p.hand.count);
        }
    }
};

// Cards are neither lost nor doubled, but for the stand-in card of an empty pile; on a tape they
// are written over.
void cards_check(const position& before, const position& after) {
    i64 sum_before = 0;
    i64 sum_after = 0;
    for (std::size_t value = 0; value < before.cards.size(); ++value) {
        sum_before += before.cards[value];
        sum_after += after.cards[value];
        if (machine_kind != turing_machine && value > 0) {
            ASSERT_EQ(after.cards[value], before.cards[value]);
        }
    }
    bool stands_in = before.deck_count + before.discard_count == 0;
    ASSERT_GE(sum_after, sum_before);
    ASSERT_LE(sum_after, sum_before + (stands_in ? 1 : 0));
}

void stones_check(const position& before, const position& after) {
    ASSERT_EQ(before.places.size(), after.places.size());
    i64 moved = 0;
    for (std::size_t i = 0; i < before.places.size(); ++i) {
        u16 from = before.places[i];
        u16 to = after.places[i];
        ASSERT_TRUE(state_exists(to));
        moved += from != to;
        auto joins = [&](const transition& t) { return t.from == from && t.to == to; };
        ASSERT_TRUE(from == to ||
                    std::any_of(game_map.transitions.begin(), game_map.transitions.end(), joins));
    }
    ASSERT_LE(moved, 1);
}

// Only the seat to move has acted, and the turn passed to nobody but the next one.
void seats_check(const position& before, const position& after) {
    for (std::size_t i = 0; i < before.hands.size(); ++i) {
        ASSERT_TRUE(after.hands[i] == before.hands[i] ||
                    i == static_cast<std::size_t>(before.seat));
    }
    ASSERT_TRUE(after.seat == before.seat || after.seat == (before.seat + 1) % players.count);
    ASSERT_TRUE(turn.winner == no_winner || (turn.winner == after.seat && win_check()));
}

// The next update ends the move that is shown, and a computer seat acts at once.
void timers_shorten() {
    turn.move_timer = std::min(turn.move_timer, frame_dt);
    turn.think_timer = 0;
}

// After a win, space starts the next game.
void game_restart() {
    if (turn.winner != no_winner) {
        headless_key_press(key_space);
        input_poll();
        turn.think_timer = 0.4;
        turn_update();
        input_poll();
        ASSERT_EQ(turn.winner, no_winner);
        ASSERT_EQ(turn.current_player, 0);
    }
}

// Plays until somebody has won or the updates are used up, waiting for nothing; returns the
// position after every move, as text.
std::string game_play(i64 update_limit, u64 seed) {
    std::mt19937_64 random(seed);
    std::string transcript;
    std::string last;
    for (i64 update = 0; update < update_limit && turn.winner == no_winner; ++update) {
        position before;
        arena_rewind(arena_frame, 0);
        timers_shorten();
        bool free = turn.move_timer <= 0 && game_map.transitions.count > 0;
        if (free && !current_seat().is_computer) {
            human_try(random);
        }
        turn_update();
        position after;
        cards_check(before, after);
        stones_check(before, after);
        seats_check(before, after);
        EXPECT_LE(arenas[arena_frame].offset, 64 * 1024);
        if (turn.move_timer == 0.5 || after.seat != before.seat || turn.winner != no_winner) {
            transcript += game_text();
        }
        if (testing::Test::HasFatalFailure()) {
            ADD_FAILURE() << "update " << update << "\n" << game_text();
            break;
        }
    }
    return transcript;
}

TEST_F(play_test, EveryShippedMapIsPlayedByAllStrengths) {
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        for (const std::filesystem::path& map : family_maps(kind)) {
            i64 won = 0;
            for (const char* seats : {"0", "2", "01", "12H", "0H12", "21021", "H01201"}) {
                SCOPED_TRACE(testing::Message() << map << " seats " << seats);
                game_begin(kind, map.string(), seats, 11);
                game_play(1000, 11);
                won += turn.winner != no_winner;
                game_restart();
                if (HasFatalFailure()) {
                    return;
                }
            }
            EXPECT_GT(won, 0) << map;
        }
    }
}

TEST_F(play_test, TheSameTimeDealsAndPlaysTheSameGame) {
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        for (const std::filesystem::path& map : family_maps(kind)) {
            std::string games[3];
            const u64 times[] = {5, 5, 6};
            for (int i = 0; i < 3; ++i) {
                game_begin(kind, map.string(), "2101", times[i]);
                games[i] = game_text() + game_play(200, 1);
            }
            EXPECT_EQ(games[0], games[1]) << map;
            EXPECT_NE(games[0], games[2]) << map;
        }
    }
}

// One short game per family, move by move: the seat, the stone's way and the card on the pile.
TEST_F(play_test, KnownGamesAreReplayed) {
    struct {
        i64 kind;
        const char *map, *moves;
    } const rows[] = {
        {state_machine,
         "win 1\nstone 0\nstone 1\n. 0 0\n. 1 0\n. 2 0\n. 3 0\n* 4 0\n=> 0 1 0\n=> 0 2 0\n"
         "=> 1 2 0\n=> 1 3 0\n=> 2 3 0\n=> 2 4 0\n=> 3 4 0\n",
         "0 0>2, 1 1>3, 2 2>3, 0 3>4, 1 3>4, "},
        {pushdown_machine,
         "win 0\ndeck 1 3 3 3\nhand 3\nstone 0\n. 0 0\n. 1 0\n. 2 0\n=> 0 1 0 0 0 \"A|b\"\n"
         "=> 1 2 0 0 0 \"!(A)\"\n=> 2 0 0 0 0 \"~(1,2,3)|C\"\n=> 1 0 0 0 0 \"T(1,2)&B\"\n",
         "0 0>1Bb3, 1 1>2Ca2, 2 2>0Cc2, 0 draws, 0 0>1Ab3, 1 1>2Ba1, 2 2>0Bc1, 0 draws, 1 "
         "0>1Ab2, "},
        {turing_machine,
         "win 0\ndeck 1 3 3 3\ntape 3\ngoal 0 2 7\ngoal 4 2 2 1 0 1\nstone 0\n. 0 0\n. 1 0\n"
         "=> 0 1 0 0 0 \"3R\"\n=> 1 0 0 0 0 \"BL\"\n=> 1 1 0 0 0 \"1R\"\n=> 0 0 0 0 0 \"\"\n",
         "0 passes, 1 passes, 2 0>1, 0 1>1, 1 1>1, 2 1>0, 0 0>1, 1 1>0, "},
    };
    for (const auto& row : rows) {
        file_put("map", row.map);
        game_begin(row.kind, "map", "012", 1);
        std::string moves;
        while (turn.winner == no_winner && moves.size() < 300) {
            std::string seat = std::to_string(turn.current_player);
            std::vector<u16> before(stones.begin(), stones.end());
            i64 deck_before = deck.cards.count;
            flight = {};
            turn_update();
            if (deck.cards.count < deck_before) {
                moves += seat + " draws, ";
            } else if (u16 stone = flight.moving_stone; stone != no_index) {
                std::string card_played = pile_text(discard_pile.cards);
                card_played.erase(
                    0, card_played.size() - std::min<std::size_t>(3, card_played.size()));
                moves += seat + " " + std::to_string(before[stone]) + ">" +
                         std::to_string(stones[stone]) + card_played + ", ";
            } else if (turn.move_timer == 0.5) {
                moves += seat + " passes, ";
            }
        }
        EXPECT_EQ(moves, row.moves);
    }
}

void broken_map_play(i64 updates, std::mt19937_64& random) {
    for (; updates > 0; --updates) {
        arena_rewind(arena_frame, 0);
        if (game_map.transitions.count > 0 && !current_seat().is_computer) {
            human_try(random);
        }
        timers_shorten();
        turn_update();
        if (turn.winner != no_winner) {
            game_start();
        }
    }
}

TEST_F(play_test, BrokenMapsArePlayedWithoutHarm) {
    std::mt19937_64 random(3);
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        for (const std::filesystem::path& map : family_maps(kind)) {
            const std::string whole = file_get(map.string());
            for (u64 seed = 0; seed < 20; ++seed) {
                file_put("map", text_broken(whole, random));
                output_of([&] {
                    game_begin(kind, "map", "0H12", seed);
                    broken_map_play(300, random);
                });
            }
        }
    }
}

}  // namespace
