#include "rules/rule.h"

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

using rule_test = game_test;

// For how many cards the rule holds. Both evaluations must agree about each of them.
i64 cards_allowed(std::string_view pile, std::string_view rule) {
    pile_set(discard_pile.cards, pile);
    card_set matching = rule_matching_cards(str_of(rule));
    for (i64 value = 0; value < card_value_count; ++value) {
        card tested = card_of_value(value);
        EXPECT_EQ(card_set_has(matching, tested), rule_matches(str_of(rule), tested)) << rule;
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

TEST_F(rule_test, RulesHoldOrNot) {
    struct {
        const char *pile, *tested;
        std::vector<const char*> holding, failing;
    } const rows[] = {
        {"Ca3",
         "Cb3",
         {"C", "~(A,B,C,D)", "b", "T(a)", "T(A,C)", "~(C,a)", "T(!(A))", "!(C&a)", "A|C&b"},
         {"~(1,2,3,4) & ~(a,b,c,d)", "!(C)", "~a", "~(C&a)", "A|C&d", "C^b"}},
        {"", "Aa1", {"*", "T*", "!(TA)", "!B", "\ta\n^ b", "A|(C&d)"}, {"TA", "~A", "!(A)", "a^A"}},
    };
    for (const auto& row : rows) {
        for (const auto* rules : {&row.holding, &row.failing}) {
            for (const char* rule : *rules) {
                pile_set(discard_pile.cards, row.pile);
                EXPECT_EQ(rule_matches(str_of(rule), card_of(row.tested)), rules == &row.holding)
                    << rule;
            }
        }
    }
}

TEST_F(rule_test, BrokenRulesHoldForNoCard) {
    // clang-format off
    for (std::string_view rule : {
             "", " ", "(C,D)", "C D", "!TA", "T!A", "7", "G", "g", "0", "T", "~", "!", "A&", "&A",
             "A&&B", "A|", "(", ")", "()", "(A", "A)", "(A,)", "!(,A)", "!(A", "!(A,", "((A,B))",
             "T((A,B))", "*|(A,B)", "*|", "\r*", "*\v", "\x80", "!(A,B,C,D,E,F,a,b,c)"}) {
        // clang-format on
        EXPECT_EQ(cards_allowed("", rule) + cards_allowed("Aa1", rule), 0) << rule;
    }
    EXPECT_EQ(cards_allowed("", std::string_view("A\0", 2)), 0);
}

TEST_F(rule_test, TheFirst1024BytesThatCountAreJudged) {
    const std::string whole = "!(A)" + repeated("|*", 510);
    for (const char* rest : {"", "&", "))))", "&&A"}) {
        EXPECT_EQ(cards_allowed("", whole + rest), 216);
        EXPECT_EQ(cards_allowed("", repeated(" \n\t", 5000) + whole + rest), 216);
        EXPECT_EQ(cards_allowed("", whole.substr(2) + rest), 0);
    }
}

TEST_F(rule_test, NestingMayBeOfAnyDepth) {
    for (auto [open, close, depth, cards] : {std::tuple{"(", ")", 511, 216},
                                             {"(", ")", 512, 0},
                                             {"(", ")", 100'000, 0},
                                             {"!(", ")", 340, 216},
                                             {"!(", ")", 339, 0},
                                             {"!(A,", ")", 204, 216},
                                             {"~(", ")", 100'000, 0},
                                             {"A&(", "", 100'000, 0}}) {
        std::string rule = repeated(open, depth) + "*" + repeated(close, depth);
        EXPECT_EQ(cards_allowed("", rule), cards) << open << depth;
    }
}

}  // namespace
