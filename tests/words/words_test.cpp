#include "rules/cards.h"
#include "rules/rule.h"
#include "tests/support/game.h"
#include "tools/card_text.h"
#include "words/card_words.h"
#include "words/rule_words.h"

namespace {

using words_test = game_test;

// A case is a rule; the answer is what it says and the part that decides for a green triangle 3 on
// a green circle 3, or where reading it stops.
TEST_F(words_test, RulesAreSaidInWords) {
    pile_set(discard_pile.cards, "Ca3");
    golden_check("words/rules", [](const std::string& rule) {
        rule_stop stop = rule_stop_find(str_of(rule));
        if (stop.reason.length > 0) {
            return "byte " + std::to_string(stop.position) + ": " + string_of(stop.reason);
        }
        const rule_part& whole = rule_parts_read(str_of(rule));
        return string_of(rule_sentence(whole)) + "; " +
               string_of(rule_part_deciding(whole, card_of("Cb3")).text);
    });
}

std::string goal_words(const goal& g) {
    return string_of(goal_sentence(g));
}

TEST_F(words_test, GoalsAndCardsAreSaidInWords) {
    EXPECT_EQ(goal_words({measure_sum, compare_exactly, 7, {}, {}}),
              "the numbers on the tape add up to exactly 7");
    EXPECT_EQ(goal_words({measure_distinct_shapes, compare_at_least, 2, {}, {}}),
              "the tape shows at least 2 different shapes of those in the deck");
    EXPECT_EQ(goal_words({measure_either_colour, compare_at_most, 3, {0, 0, 1}, {2, 0, 1}}),
              "at most 3 of the cards on the tape are red or green");
    card c;
    EXPECT_TRUE(card_read("Fe6", c));
    EXPECT_EQ(string_of(card_name(c)), "orange hexagon 6");
    for (const char* wrong : {"", "A", "aA1", "Aa7", "Aa11"}) {
        EXPECT_FALSE(card_read(wrong, c)) << wrong;
    }
}

}  // namespace
