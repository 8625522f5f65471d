#include "rules/cards.h"
#include "rules/rule.h"
#include "tests/support/game.h"
#include "tools/card_words.h"
#include "tools/rule_words.h"

namespace {

using explain_test = game_test;

// A case is a rule; the answer is what it says and the part that decides for a green triangle 3 on
// a green circle 3, or where reading it stops.
TEST_F(explain_test, RulesAreSaidInWords) {
    pile_set(discard_pile.cards, "Ca3");
    golden_check("tools/explain", [](const std::string& rule) {
        rule_stop stop = rule_stop_find(str_of(rule));
        if (stop.reason.length > 0) {
            return "byte " + std::to_string(stop.position) + ": " + string_of(stop.reason);
        }
        rule_part whole = rule_parts_read(rule);
        return rule_sentence(whole) + "; " + rule_part_deciding(whole, card_of("Cb3")).text;
    });
}

TEST_F(explain_test, GoalsAndCardsAreSaidInWords) {
    EXPECT_EQ(goal_sentence({measure_sum, compare_exactly, 7, {}, {}}),
              "the numbers on the tape add up to exactly 7");
    EXPECT_EQ(goal_sentence({measure_distinct_shapes, compare_at_least, 2, {}, {}}),
              "the tape shows at least 2 different shapes of those in the deck");
    EXPECT_EQ(goal_sentence({measure_either_colour, compare_at_most, 3, {0, 0, 1}, {2, 0, 1}}),
              "at most 3 of the cards on the tape are red or green");
    card c;
    EXPECT_TRUE(card_read("Fe6", c));
    EXPECT_EQ(card_name(c), "orange hexagon 6");
    for (const char* wrong : {"", "A", "aA1", "Aa7", "Aa11"}) {
        EXPECT_FALSE(card_read(wrong, c)) << wrong;
    }
}

}  // namespace
