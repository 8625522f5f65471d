#include "rules/rule.h"

#include "rules/cards.h"
#include "rules/rule_tops.h"
#include "tests/support/game.h"

namespace {

using rule_test = game_test;

// What the rule lets through under that top card, read for all 216 of them.
card_set cards_under(card top, std::string_view rule) {
    card tops[card_value_count];
    for (i64 value = 0; value < card_value_count; ++value) {
        tops[value] = card_of_value(value);
    }
    rule_answers answers;
    rule_answers_find(answers, str_of(rule), tops, card_value_count);
    return answers.matching[answers.of_top[card_value(top)]];
}

// For how many cards the rule holds. All evaluations must agree about each of them.
i64 cards_allowed(std::string_view pile, std::string_view rule) {
    pile_set(discard_pile.cards, pile);
    card_set matching = rule_matching_cards(str_of(rule));
    card_set under = cards_under(card_array_top(discard_pile.cards), rule);
    for (i64 value = 0; value < card_value_count; ++value) {
        card tested = card_of_value(value);
        EXPECT_EQ(card_set_has(matching, tested), rule_matches(str_of(rule), tested)) << rule;
        EXPECT_TRUE(pile.empty() || card_set_has(under, tested) == card_set_has(matching, tested))
            << rule;
    }
    return card_set_count(matching);
}

std::string repeated(std::string_view part, int times) {
    std::string text;
    for (; times > 0; --times) {
        text += part;
    }
    return text;
}

// A case is a rule: its answers are counts on the empty pile and on three top cards.
TEST_F(rule_test, EachRuleHoldsForSoManyCards) {
    golden_check("rules/rules", [](const std::string& rule) {
        std::string counts;
        for (const char* pile : {"", "Aa1", "Ff6 Ca3", "Bd5"}) {
            counts += (counts == "" ? "" : " ") + std::to_string(cards_allowed(pile, rule));
        }
        return counts;
    });
}

TEST_F(rule_test, TheFirst1024BytesThatCountAreJudged) {
    const std::string whole = "!(A)" + repeated("|*", 510);
    EXPECT_EQ(cards_allowed("", "\ta\n^ b"), 72);
    for (const char* byte : {"\r*", "*\v", "\x80"}) {
        EXPECT_EQ(cards_allowed("", byte), 0);
    }
    for (const char* rest : {"", "&", "))))", "&&A"}) {
        EXPECT_EQ(cards_allowed("", whole + rest), 216);
        EXPECT_EQ(cards_allowed("", repeated(" \n\t", 5000) + whole + rest), 216);
        EXPECT_EQ(cards_allowed("", whole.substr(2) + rest), 0);
    }
}

}  // namespace
