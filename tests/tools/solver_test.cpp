#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>

#include "ai/computer.h"
#include "base/arena.h"
#include "maps/nimbers.h"
#include "maps/reader.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/seats.h"
#include "rules/turns.h"
#include "tests/support/game.h"
#include "tools/solver/hand_solver.h"
#include "tools/solver/solved.h"
#include "tools/solver/tape_solver.h"

namespace {

using card_values = std::vector<i64>;

// The whole position of a game, to come back to it.
struct game_place {
    std::vector<u16> stones_on;
    card_values piles[3];
    std::vector<card_values> hands;
    i64 head;
    i8 seat;
    bool has_drawn;

    auto operator<=>(const game_place&) const = default;
};

dyn_array<card>* const piles[] = {&deck.cards, &discard_pile.cards, &tape};

card_values values_of(const dyn_array<card>& cards) {
    card_values values;
    std::transform(cards.begin(), cards.end(), std::back_inserter(values), card_value);
    return values;
}

game_place place_now() {
    game_place place = {
        {stones.begin(), stones.end()}, {}, {}, tape_head, turn.current_player, turn.card_drawn};
    for (std::size_t i = 0; i < 3; ++i) {
        place.piles[i] = values_of(*piles[i]);
    }
    for (const player& seat : players) {
        place.hands.push_back(values_of(seat.hand));
    }
    return place;
}

void cards_put(dyn_array<card>& pile, const card_values& values) {
    pile.count = 0;
    for (i64 value : values) {
        dyn_array_push(pile, card_of_value(value));
    }
}

void place_go(const game_place& place) {
    std::copy(place.stones_on.begin(), place.stones_on.end(), stones.begin());
    for (std::size_t i = 0; i < 3; ++i) {
        cards_put(*piles[i], place.piles[i]);
    }
    for (i64 i = 0; i < players.count; ++i) {
        cards_put(players[i].hand, place.hands[static_cast<std::size_t>(i)]);
    }
    tape_head = place.head;
    turn = {};
    turn.current_player = place.seat;
    turn.card_drawn = place.has_drawn;
}

// What a human can do; a card is drawn only where none fits, and chance, which shuffles the pile,
// is not looked into.
std::vector<game_act> acts_open() {
    std::vector<game_act> acts;
    if (machine_kind == pushdown_machine && deck.cards.count == 0 && discard_pile.cards.count > 0) {
        return acts;
    }
    for (i32 arc = 0; arc < game_map.transitions.count; ++arc) {
        for (i32 held = 0; held < std::max<i64>(1, current_seat().hand.count); ++held) {
            acts.push_back({act_move, arc, held});
        }
    }
    std::erase_if(acts, [](const game_act& act) { return !act_is_open(act, false); });
    for (act_kind kind : {act_draw, act_end}) {
        if (acts.empty() && act_is_open({kind}, false)) {
            acts.push_back({kind});
        }
    }
    return acts;
}

// Does an act and lets what was moved land; whether the seat has won by it.
bool act_take(const game_act& act) {
    act_do(act);
    if (act.kind == act_move) {
        turn.move_timer = 0;
        turn_end();
    }
    return turn.winner != no_winner;
}

// Every position with what its acts lead to, by brute force.
struct brute_act {
    std::size_t to;
    bool wins;
    bool is_turn;
};

struct brute_place {
    i64 seat;
    std::vector<brute_act> acts;
    bool decided = false;
    i64 winner = 0;
    i64 turns = 0;
};

struct brute_force {
    std::map<game_place, std::size_t> numbers;
    std::vector<game_place> places;
    std::vector<brute_place> found;
};

constexpr std::size_t places_most = 400;

std::size_t place_number(brute_force& brute) {
    auto [entry, is_new] = brute.numbers.insert({place_now(), brute.places.size()});
    if (is_new) {
        brute.places.push_back(entry->first);
        brute.found.push_back({turn.current_player, {}});
    }
    return entry->second;
}

// False when there are too many.
bool places_find(brute_force& brute) {
    place_number(brute);
    for (std::size_t i = 0; i < brute.places.size() && i < places_most; ++i) {
        place_go(game_place(brute.places[i]));
        for (const game_act& act : acts_open()) {
            place_go(game_place(brute.places[i]));
            const bool wins = act_take(act);
            turn.winner = no_winner;
            const brute_act done = {place_number(brute), wins, act.kind != act_draw};
            brute.found[i].acts.push_back(done);
        }
    }
    return brute.places.size() <= places_most;
}

// Decides what is decided by an outcome after so many turns; whether anything was.
bool place_decide(brute_force& brute, brute_place& place, i64 turns) {
    i64 others = -1;  // turns of the longest game that another seat wins
    i64 winner = 0;   // and who, counted from the seat to move
    bool open = place.acts.empty();
    for (const brute_act& act : place.acts) {
        const brute_place& to = brute.found[act.to];
        const i64 needed = act.wins ? 1 : to.turns + (act.is_turn ? 1 : 0);
        const i64 by = act.wins ? place.seat : to.winner;
        open = open || !(act.wins || to.decided);
        if ((act.wins || to.decided) && by == place.seat && needed == turns) {
            place = {place.seat, place.acts, true, by, turns};
            return true;
        }
        const i64 after = (by - place.seat + players.count) % players.count;
        if (needed > others || (needed == others && after < winner)) {
            others = needed;
            winner = after;
        }
    }
    if (!open && others == turns) {
        place = {place.seat, place.acts, true, (place.seat + winner) % players.count, turns};
    }
    return place.decided;
}

verdict brute_solve(brute_force& brute) {
    for (i64 turns = 1, quiet = 0; quiet < 2; ++turns, ++quiet) {
        for (bool changed = true; changed;) {
            changed = false;
            for (brute_place& place : brute.found) {
                if (!place.decided && place_decide(brute, place, turns)) {
                    changed = true;
                    quiet = -1;
                }
            }
        }
    }
    const brute_place& first = brute.found[0];
    const i64 after = (first.winner - first.seat + players.count) % players.count;
    return first.decided ? verdict{static_cast<u8>(after), first.turns} : verdict{};
}

void perfect_turn() {
    solved_position solved;
    ASSERT_EQ(position_solve(solved), work_well);
    const solved_turn best = best_turn(solved);
    if (best.draws) {
        act_do({act_draw});
    }
    act_take(best.arc < 0 ? game_act{act_end}
                          : game_act{act_move, static_cast<i32>(best.arc),
                                     static_cast<i32>(best.card_index)});
}

// A turn of the game's own computer.
void computer_turn() {
    game_act act;
    do {
        arena_rewind(arena_frame, 0);
        deck_refill();
        act = computer_decide();
        act_take(act);
    } while (act.kind == act_draw);
}

class solver_test : public game_test {
  protected:
    solver_test() { work_begin({}); }
};

std::string shown(const verdict& v) {
    return std::to_string(v.winner) + " in " + std::to_string(v.turns);
}

using chance = std::mt19937_64;

i64 below(chance& random, i64 count) {
    return static_cast<i64>(random() % static_cast<u64>(count));
}

std::string rule_make(chance& random, i64 kind) {
    static const std::vector<std::string> rules[] = {
        {""},
        {"*", "*", "A", "B", "1", "2", "a", "~(A,B)", "TA", "!(T1)", "A&~(1,2)", "(", "Z"},
        {"", "AR", "BL", "1R", "2.", "aL", "bR", ".R", ".L", "A", "C", "2L"}};
    const auto& of_kind = rules[kind];
    return of_kind[static_cast<std::size_t>(below(random, static_cast<i64>(of_kind.size())))];
}

// A map of the family, broken ones among them, and its deal for some seats.
void game_make(chance& random, i64 kind) {
    const i64 state_count = 1 + below(random, 5);
    std::string states;
    for (i64 i = 0; i < state_count; ++i) {
        states += below(random, 3) == 0 ? '*' : '.';
    }
    std::vector<arc> arcs;
    for (i64 i = below(random, 2 * state_count + 2); i > 0; --i) {
        u16 from = static_cast<u16>(below(random, state_count + (below(random, 20) == 0 ? 1 : 0)));
        u16 to = static_cast<u16>(below(random, state_count + (below(random, 20) == 0 ? 1 : 0)));
        arcs.push_back({from, to, rule_make(random, kind)});
    }
    std::vector<u16> on;
    for (i64 i = below(random, 4); i > 0; --i) {
        on.push_back(static_cast<u16>(below(random, state_count)));
    }
    output_of([&] { map_make(kind, states, arcs, on); });
    settings = {};
    settings.deck_copies = 1 + below(random, 3);
    settings.deck_colours = 1 + below(random, 3);
    settings.deck_shapes = 1 + below(random, 2);
    settings.deck_numbers = 1 + below(random, 3);
    settings.hand_size = below(random, 4);
    settings.tape_length = kind == turing_machine ? below(random, 4) : 0;
    settings.win_mode = static_cast<u8>(std::max<i64>(0, below(random, 6) - 2));
    goals.count = 0;
    for (i64 i = kind == turing_machine ? below(random, 4) : 0; i > 0; --i) {
        auto any_card = [&] { return card_of_value(below(random, card_value_count) % 60); };
        dyn_array_push(goals, {static_cast<u8>(below(random, measure_count)),
                               static_cast<u8>(below(random, comparison_count)), below(random, 4),
                               any_card(), any_card()});
    }
    players.count = 0;
    player_count = 1 + below(random, 4);
    seats_adjust();
    tape_head = below(random, 10) == 0 ? below(random, 6) : 0;
    turn.card_drawn = false;
    random_seed(random());
    game_start();
}

i64 maps_wanted() {
    const char* wanted = std::getenv("QUORREL_SOLVER_MAPS");
    return wanted != nullptr ? std::atoll(wanted) : 120;
}

// The whole range of maps, 2,000 of each family, is asked for by QUORREL_SOLVER_MAPS=2000.
// Every order of the cards that remain, each followed by every choice of goals for two seats.
TEST_F(solver_test, DealsOfATapeAreWeighedAsTheyAreDealt) {
    map_make(turing_machine, ".*", {{0, 1, "AR"}, {1, 0, "2L"}, {1, 1, "B"}}, {0});
    settings = {2, 2, 1, 1, 0, 2, win_any_accepting};  // the cards 1 and 2, twice
    settings.deck_numbers = 2;
    for (goal g : {goal{measure_colour, compare_exactly, 2, {0, 0, 1}, {}},
                   goal{measure_sum, compare_at_least, 4, {}, {}}}) {
        dyn_array_push(goals, g);
    }
    player_count = 2;
    seats_adjust();
    game_start();
    deals_share weighed = {{0, 0}};
    i64 too_large = 0;
    ASSERT_EQ(
        tape_deals_solve([&](const tape_deals& d) { deals_add(weighed, d.share); }, too_large),
        work_well);
    std::vector<i64> values;
    for (const dyn_array<card>* pile : {&deck.cards, &tape}) {
        std::transform(pile->begin(), pile->end(), std::back_inserter(values), card_value);
    }
    deals_share dealt = {{0, 0}};
    for (std::size_t one = 0; one < values.size(); ++one) {
        for (std::size_t other = 0; other < values.size(); ++other) {
            cards_put(tape, {values[one], values[other]});
            for (i64 choice = 0; choice < (one != other ? 4 : 0); ++choice) {
                players[0].goal = goals[choice / 2];
                players[1].goal = goals[choice % 2];
                solved_position solved;
                ASSERT_EQ(position_solve(solved), work_well);
                deal_add(dealt, solved.best, 1.0 / 56);
            }
        }
    }
    EXPECT_THAT(weighed.wins, testing::Pointwise(testing::DoubleNear(1e-9), dealt.wins));
    EXPECT_NEAR(weighed.turns, dealt.turns, 1e-9);
    EXPECT_GT(std::min(dealt.wins[0], dealt.wins[1]), 0.1);
    EXPECT_EQ(weighed.longest, dealt.longest);
}

// On the maps that ship whose last mover wins, the seat that the solver names wins against every
// answer by hard seats, in no more turns than it says.
TEST_F(solver_test, AWonPositionIsWonAgainstHardSeats) {
    for (const shipped_map& map : shipped_maps()) {
        const bool is_played = map.kind == state_machine ||
                               map.path.filename() == "either_not_both" ||
                               map.path.filename() == "short_deck";
        for (i64 deal = 0; deal < (is_played ? 2 : 0); ++deal) {
            machine_kind = map.kind;
            settings = {};
            output_of([&] { map_read(str_of(map.text)); });
            seats_make("22");
            random_seed(static_cast<u64>(deal));
            game_start();
            solved_position solved;
            ASSERT_EQ(position_solve(solved), work_well);
            const verdict promised = solved.best;
            for (i64 turns = 0; turn.winner == no_winner && promised.winner != nobody; ++turns) {
                ASSERT_LT(turns, promised.turns) << map.path;
                turn.current_player == promised.winner ? perfect_turn() : computer_turn();
            }
            EXPECT_TRUE(promised.winner == nobody || turn.winner == promised.winner) << map.path;
        }
    }
}

// On maps without a cycle whose light states are those without a way out, whoever is to move wins
// where the exclusive or of the nimbers is not 0, however the stones stand.
TEST_F(solver_test, AgreesWithTheNimbersWhereTheLastMoverWins) {
    chance random(2);
    i64 won = 0;
    for (i64 i = 0; i < maps_wanted(); ++i) {
        arena_rewind(arena_frame, 0);
        const i64 state_count = 2 + below(random, 8);
        std::vector<arc> arcs;
        std::string states = "*";
        for (i64 from = 1; from < state_count; ++from) {
            states += '.';
            for (i64 more = 1 + below(random, 3); more > 0; --more) {
                arcs.push_back({static_cast<u16>(from), static_cast<u16>(below(random, from)), ""});
            }
        }
        std::vector<u16> on;
        for (i64 stone = 1 + below(random, 4); stone > 0; --stone) {
            on.push_back(static_cast<u16>(below(random, state_count)));
        }
        map_make(state_machine, states, arcs, on);
        settings = {};
        settings.win_mode = win_all_accepting;
        player_count = 2;
        seats_adjust();
        game_start();
        nimbers_compute();
        int sum = 0;
        for (u16 state : stones) {
            sum ^= state_nimber(state);
        }
        solved_position solved;
        ASSERT_EQ(position_solve(solved), work_well);
        ASSERT_EQ(solved.best.winner == 0, sum != 0) << map_text();
        won += sum != 0 ? 1 : 0;
    }
    EXPECT_GT(won, maps_wanted() / 4);
    EXPECT_LT(won, maps_wanted());
}

TEST_F(solver_test, AgreesWithBruteForceByTheGamesOwnFunctions) {
    chance random(1);
    for (i64 kind = 0; kind < machine_kind_count; ++kind) {
        i64 decided = 0;
        for (i64 i = 0; i < maps_wanted();) {
            arena_rewind(arena_frame, 0);
            game_make(random, kind);
            const std::string map = map_text() + game_text();
            const game_place start = place_now();
            solved_position solved;
            ASSERT_EQ(position_solve(solved), work_well);
            ASSERT_EQ(place_now(), start) << "the game was changed";
            brute_force brute;
            if (!places_find(brute)) {
                continue;
            }
            i += 1;
            const verdict expected = brute_solve(brute);
            decided += expected.winner != nobody ? 1 : 0;
            ASSERT_EQ(shown(solved.best), shown(expected)) << map << players.count << " seats";
            if (!solved.turns.empty()) {
                ASSERT_EQ(shown(best_turn(solved).outcome), shown(expected)) << map;
            }
        }
        EXPECT_GT(decided, maps_wanted() / 10) << "of family " << kind;
    }
}

}  // namespace
