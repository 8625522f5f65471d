#include "ai/computer.h"

#include <random>
#include <sstream>

#include "ai/advice.h"
#include "rules/cards.h"
#include "rules/turns.h"
#include "shown/flight.h"
#include "shown/selection.h"
#include "tests/support/game.h"

namespace {

using computer_test = game_test;

void random_pile(dyn_array<card>& pile, u64 count, std::mt19937_64& random) {
    pile.count = 0;
    for (; count > 0; --count) {
        dyn_array_push(pile, {static_cast<u8>(random() % 3), static_cast<u8>(random() % 3),
                              static_cast<u8>(1 + random() % 3)});
    }
}

// A small position of any shape: cycles, missing states, empty piles, broken rules.
void position_make(i64 kind, u64 seed, u64 strength) {
    std::mt19937_64 random(seed);
    const char* const rules[] = {"A",   "b|1", "~(A,B,C)", "!(2)", "T(1,2)",  "*", "(",
                                 "B^c", "1|2", "~(a,b,c)", "3R",   "!(A)|T*", "",  "TA|C"};
    u64 states = 1 + random() % 6;
    std::vector<arc> arcs;
    for (u64 left = random() % 15; left > 0; --left) {
        arcs.push_back({static_cast<u16>(random() % (states + 1)),
                        static_cast<u16>(random() % (states + 1)),
                        rules[random() % std::size(rules)]});
    }
    std::vector<u16> stones_on(random() % 5);
    for (u16& state : stones_on) {
        state = static_cast<u16>(random() % (states + 1));
    }
    output_of([&] { map_make(kind, std::string(states, '.'), arcs, stones_on); });
    settings.deck_colours = settings.deck_shapes = settings.deck_numbers = 3;
    settings.win_mode = win_mode_count;
    seats_make("0H");
    players[0].strength = strength;
    random_pile(players[0].hand, random() % 8, random);
    random_pile(discard_pile.cards, random() % 3, random);
    random_pile(deck.cards, random() % 3, random);
    random_pile(tape, random() % 4, random);
    tape_head = 0;
    turn = {};
    turn.card_drawn = random() % 3 == 0;
    flight = {};
    random_seed(seed);
}

// What the seat does, with the random numbers that it draws.
std::string choice_text() {
    const std::vector<u16> before(stones.begin(), stones.end());
    const i64 hand = players[0].hand.count;
    const std::string tape_before = pile_text(tape);
    const random_state generator = random_generator;
    computer_act();
    std::ostringstream text;
    if (flight.moving_stone != no_index) {
        text << flight.moving_stone << ':' << before[flight.moving_stone] << '>'
             << stones[flight.moving_stone];
    }
    if (players[0].hand.count < hand) {
        text << ' ' << pile_text(discard_pile.cards);
    }
    text << (pile_text(tape) != tape_before ? ' ' + pile_text(tape) : "")
         << (players[0].hand.count > hand ? "draws" : "") << (turn.think_timer == 0.25 ? "+" : "")
         << (turn.current_player == 1 ? "ends" : "")
         << (turn.move_timer == 0.5 && flight.moving_stone == no_index ? "passes" : "");
    text << " #" << draws_since(generator);
    return text.str();
}

// A case is a family and the seed of a position: the choices of easy, normal and hard.
TEST_F(computer_test, EveryStrengthChooses) {
    golden_check("ai/choices", [](const std::string& given) {
        std::istringstream in(given);
        i64 kind = 0;
        u64 seed = 0;
        in >> kind >> seed;
        std::string choices;
        for (u64 strength = 0; strength < strength_count; ++strength) {
            position_make(kind, seed, strength);
            choices += (strength == 0 ? "" : ", ") + choice_text();
        }
        return choices;
    });
}

// A card to follow with is worth 16 of the cards with which others may move the stone on.
TEST_F(computer_test, TheHardSeatWeighsItsCardsAgainstTheOthers) {
    // The rule of the way on from state 2, which the seat's other card fits.
    for (auto [rule, target] : {std::pair{"A&(!(a&1))", 2}, {"A", 1}, {"A|(B&a&1)", 1}}) {
        map_make(pushdown_machine, "...", {{0, 1, "*"}, {0, 2, "*"}, {2, 0, rule}}, {0});
        seats_make("2");
        pile_set(players[0].hand, "Ab2 Ab2");
        computer_act();
        EXPECT_EQ(stones[0], target) << rule;
    }
}

// 20,000 transitions and a hand of 10,000 cards, one of each value and more: neither a list of the
// moves nor a table of all states and cards would fit the frame arena.
TEST_F(computer_test, NoMapAndNoHandIsTooLarge) {
    std::vector<arc> arcs;
    for (u16 i = 0; i < 10'000; ++i) {
        arcs.push_back({0, static_cast<u16>(1 + i), i % 2 ? "F" : "T(6)&1"});
        arcs.push_back({static_cast<u16>(1 + i), 0, "("});
    }
    arcs[2 * 6'173].to = 0;  // the one move after which there is another
    map_make(pushdown_machine, std::string(70'000, '.'), arcs, {0, 69'999 % 65'536});
    for (const char* seats : {"1", "2"}) {
        turn = {};
        seats_make(seats);
        stones[0] = 0;
        for (i64 i = 0; i < 10'000; ++i) {
            dyn_array_push(players[0].hand, card_of_value(i % card_value_count));
        }
        computer_act();
        EXPECT_EQ(players[0].hand.count, 9'999);
        EXPECT_EQ(stones[0] == 0 && pile_text(discard_pile.cards).ends_with("Fa6"),
                  seats[0] == '2');
    }
}

// Whatever is advised is open to a human, and nothing has changed by it.
TEST_F(computer_test, AHumanIsAdvisedWhatAHardSeatDoes) {
    for (u64 seed = 0; seed < 1000; ++seed) {
        i64 kind = static_cast<i64>(seed % 2);
        position_make(kind, seed, strength_hard);
        players[0].is_computer = 0;
        const std::string before = game_text();
        const random_state generator = random_generator;
        const game_act advised = advice_find();
        EXPECT_EQ(game_text(), before) << seed;
        EXPECT_EQ(random_generator, generator) << seed;
        players[0].is_computer = 1;
        game_act hard = computer_decide();
        players[0].is_computer = 0;
        if (hard.kind == act_move) {
            const transition& arc = game_map.transitions[hard.arc];
            hard.arc = transition_between(arc.from, arc.to);
        }
        EXPECT_EQ(advised, act_is_open(hard, false) ? hard : game_act{}) << seed;
    }
}

// A case is the tape's goal and what the arrows of one state write, which lead back to it.
TEST_F(computer_test, AdviceOnATapeLeadsToTheGoal) {
    map_make(turing_machine, "..", {{0, 0, "4R"}, {0, 1, "1R"}, {1, 0, "6L"}}, {0});
    seats_make("HH");
    settings.win_mode = win_immediate;
    const struct {
        i64 sum;
        i32 arc;
    } cases[] = {{7, 0}, {8, 0}, {10, 1}, {1'000, 0}};
    for (const auto& [sum, arc] : cases) {
        pile_set(tape, "Aa3 Aa3");
        tape_head = 0;
        players[0].goal = {measure_sum, compare_exactly, sum, {}, {}};
        const std::string before = game_text();
        EXPECT_EQ(advice_find(), move_along(game_map.transitions[arc])) << sum;
        EXPECT_EQ(game_text(), before) << sum;
    }
}

}  // namespace
