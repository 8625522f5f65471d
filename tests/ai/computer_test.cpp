#include "ai/computer.h"

#include <random>

#include "rules/cards.h"
#include "rules/rule.h"
#include "rules/selection.h"
#include "rules/turns.h"
#include "tests/support/game.h"

namespace {

using computer_test = game_test;

// A second choice of moves, word by word from its description: explicit lists, every move made and
// taken back, every rule evaluated for every card.
struct plain_move {
    i64 card_index;
    u16 stone;
    u16 target;
    std::string rule;
};

std::vector<plain_move> plain_moves() {
    std::vector<plain_move> moves;
    for (const transition& arc : game_map.transitions) {
        u16 stone = stone_find(arc.from);
        if (stone == no_index || !transition_exists(arc)) {
            continue;
        }
        plain_move move = {no_card, stone, arc.to, string_of(arc.rule)};
        if (machine_kind != pushdown_machine) {
            moves.push_back(move);
            continue;
        }
        for (i64 j = 0; j < current_seat().hand.count; ++j) {
            if (rule_matches(arc.rule, current_seat().hand[j])) {
                move.card_index = j;
                moves.push_back(move);
            }
        }
    }
    return moves;
}

plain_move random_of(const std::vector<plain_move>& moves) {
    return moves[random_below(moves.size())];
}

u8 plain_nimber_sum() {
    u8 sum = 0;
    for (u16 state : stones) {
        bool known = state < game_map.nimber_count;
        sum ^= known ? game_map.nimbers[state] : no_nimber;
    }
    return sum;
}

plain_move plain_state_choice(const std::vector<plain_move>& moves) {
    std::vector<plain_move> winning;
    std::vector<plain_move> other;
    for (const plain_move& move : moves) {
        u16 from = stones[move.stone];
        stones[move.stone] = move.target;
        (plain_nimber_sum() == 0 ? winning : other).push_back(move);
        stones[move.stone] = from;
    }
    u64 strength = current_seat().strength;
    if (strength == strength_easy) {
        return random_of(other.empty() ? winning : other);
    }
    if (strength == strength_normal && random_below(100) < 50 && !other.empty()) {
        return random_of(other);
    }
    return random_of(winning.empty() ? other : winning);
}

i64 plain_score(const plain_move& move) {
    const dyn_array<card>& hand = current_seat().hand;
    u16 from = stones[move.stone];
    stones[move.stone] = move.target;
    dyn_array_push(discard_pile.cards, hand[move.card_index]);
    i64 score = 0;
    for (const transition& arc : game_map.transitions) {
        if (!transition_exists(arc)) {
            continue;
        }
        for (i64 k = 0; k < hand.count && stone_find(arc.from) != no_index; ++k) {
            score += k != move.card_index && rule_matches(arc.rule, hand[k]) ? 16 : 0;
        }
        for (i64 value = 0; value < card_value_count && arc.from == move.target; ++value) {
            card c = card_of_value(value);
            bool in_deck = c.colour < settings.deck_colours && c.shape < settings.deck_shapes &&
                           c.number <= settings.deck_numbers;
            score -= in_deck && rule_matches(arc.rule, c) ? 1 : 0;
        }
    }
    stones[move.stone] = from;
    discard_pile.cards.count -= 1;
    return score;
}

plain_move plain_best(const std::vector<plain_move>& moves) {
    i64 best = -1'000'000;
    plain_move chosen;
    for (const plain_move& move : moves) {
        i64 score = plain_score(move);
        if (score > best) {
            best = score;
            chosen = move;
        }
    }
    return chosen;
}

void plain_pass() {
    if (machine_kind == turing_machine) {
        turn.move_timer = 0.5;
    } else if (machine_kind == pushdown_machine && turn.card_drawn) {
        turn_end();
    } else if (machine_kind == pushdown_machine) {
        hand_draw();
        turn.think_timer = 0.25;
    }
}

void plain_act() {
    std::vector<plain_move> moves = plain_moves();
    u64 strength = current_seat().strength;
    bool lazy = machine_kind == pushdown_machine && strength == strength_easy;
    if (moves.empty() || (lazy && random_below(100) < 20)) {
        plain_pass();
        return;
    }
    plain_move move = machine_kind == state_machine ? plain_state_choice(moves)
                      : machine_kind == pushdown_machine && strength == strength_hard
                          ? plain_best(moves)
                          : random_of(moves);
    if (machine_kind == turing_machine && move.rule.empty()) {
        plain_pass();
        return;
    }
    stone_move(move.stone, move.target);
    if (machine_kind == pushdown_machine) {
        hand_play(move.card_index);
    } else if (machine_kind == turing_machine) {
        tape_apply(str_of(move.rule));
    }
}

void random_pile(dyn_array<card>& pile, u64 count, std::mt19937_64& random) {
    pile.count = 0;
    for (; count > 0; --count) {
        dyn_array_push(pile, {static_cast<u8>(random() % 3), static_cast<u8>(random() % 3),
                              static_cast<u8>(1 + random() % 3)});
    }
}

// A small position of any shape: cycles, missing states, empty piles, broken rules.
void position_make(u64 seed, i64 kind) {
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
    players[0].strength = random() % 3;
    random_pile(players[0].hand, random() % 8, random);
    random_pile(discard_pile.cards, random() % 3, random);
    random_pile(deck.cards, random() % 3, random);
    random_pile(tape, random() % 4, random);
    tape_head = 0;
    turn = {};
    turn.card_drawn = random() % 3 == 0;
    random_seed(seed);
}

TEST_F(computer_test, EveryChoiceAgreesWithThePlainOne) {
    for (i64 kind : {state_machine, pushdown_machine, turing_machine}) {
        i64 moves = 0;
        for (u64 seed = 1; seed <= 500; ++seed) {
            SCOPED_TRACE(testing::Message() << "family " << kind << " seed " << seed);
            position_make(seed, kind);
            plain_act();
            std::string expected = game_text();
            u16 moved = flight.moving_stone;
            random_state generator = random_generator;
            position_make(seed, kind);
            flight = {};
            computer_act();
            ASSERT_EQ(game_text(), expected);
            ASSERT_EQ(random_generator, generator);
            moves += flight.moving_stone != no_index;
            ASSERT_TRUE(flight.moving_stone == no_index || flight.moving_stone == moved);
        }
        EXPECT_GT(moves, 150);
    }
}

// Who plays how: state 2 wins, state 1 does not.
TEST_F(computer_test, StrengthsDifferInHowTheyTakeAWin) {
    for (u64 seed = 1; seed <= 600; ++seed) {
        random_seed(seed);
        bool careless = random_below(100) < 50;
        const u16 targets[] = {1, static_cast<u16>(careless ? 1 : 2), 2};
        const i64 draws[] = {1, 2, 1};
        for (u64 strength = 0; strength < strength_count; ++strength) {
            map_make(state_machine, "...", {{0, 1}, {1, 2}, {0, 2}}, {0});
            seats_make(std::to_string(strength));
            random_seed(seed);
            random_state before = random_generator;
            computer_act();
            EXPECT_EQ(stones[0], targets[strength]) << "seed " << seed << " strength " << strength;
            EXPECT_EQ(draws_since(before), draws[strength]);
        }
    }
}

// A card to follow with is worth 16 of the cards with which others may move the stone on.
TEST_F(computer_test, TheHardSeatWeighsItsCardsAgainstTheOthers) {
    struct {
        const char* rule;  // of the way on from state 2, which the seat's other card fits
        u16 target;
    } const rows[] = {{"A&(!(a&1))", 2}, {"A", 1}, {"A|(B&a&1)", 1}};
    for (const auto& row : rows) {
        map_make(pushdown_machine, "...", {{0, 1, "*"}, {0, 2, "*"}, {2, 0, row.rule}}, {0});
        seats_make("2");
        pile_set(players[0].hand, "Ab2 Ab2");
        computer_act();
        EXPECT_EQ(stones[0], row.target) << row.rule;
    }
}

// 20,000 transitions and a hand of 10,000 cards: a list of the moves would fill the frame arena
// many times over.
TEST_F(computer_test, NoMapAndNoHandIsTooLarge) {
    std::vector<arc> arcs;
    for (u16 i = 0; i < 20'000; ++i) {
        arcs.push_back({0, static_cast<u16>(1 + i), i % 2 ? "A" : "1"});
    }
    arcs[12'345].to = 0;  // the one move after which there is another
    map_make(pushdown_machine, std::string(70'000, '.'), arcs, {0, 69'999 % 65'536});
    for (const char* seats : {"1", "2"}) {
        turn = {};
        seats_make(seats);
        stones[0] = 0;
        dyn_array<card>& hand = players[0].hand;
        for (int i = 0; i < 10'000; ++i) {
            dyn_array_push(hand, card_of(i < 5'000 ? "Bb1" : "Aa2"));
        }
        random_state before = random_generator;
        computer_act();
        EXPECT_EQ(hand.count, 9'999);
        if (seats[0] == '2') {
            EXPECT_EQ(stones[0], 0);
            EXPECT_EQ(pile_text(discard_pile.cards).substr(4), "Aa2");
            continue;
        }
        // Each transition is played by half of the hand: "1" by the first half, "A" by the other.
        random_generator = before;
        u64 index = random_below(20'000 * 5'000);
        EXPECT_EQ(stones[0], arcs[index / 5'000].to);
        EXPECT_EQ(pile_text(discard_pile.cards), index / 5'000 % 2 ? "Aa2" : "Bb1");
    }
}

}  // namespace
