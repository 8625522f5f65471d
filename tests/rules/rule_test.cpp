#include "rules/rule.h"

#include <random>

#include "rules/cards.h"
#include "tests/support/game.h"

namespace {

// The cards on the pile and the rules that are compared on them.
class rule_test : public game_test {
  protected:
    void expect(std::string_view pile, std::string_view rule, std::string_view tested, bool holds) {
        pile_set(discard_pile.cards, pile);
        EXPECT_EQ(rule_matches(str_of(rule), card_of(tested)), holds) << pile << " : " << rule;
        card_set matching = rule_matching_cards(str_of(rule));
        EXPECT_EQ(card_set_has(matching, card_of(tested)), holds) << rule;
    }
};

std::string repeated(std::string_view part, int times) {
    std::string text;
    for (; times > 0; --times) {
        text += part;
    }
    return text;
}

TEST_F(rule_test, RulesHoldOrNot) {
    // clang-format off
    struct {
        const char *pile, *tested;
        std::vector<const char*> holding, failing;
    } const rows[] = {
        {"Ca3", "Cb3",
         {"C", "~(A,B,C,D)", "b", "T(a)", "T(A,C)", "~(C,a)", "T(!(A))", "!(C&a)", "A|C&b", "a|C&b"},
         {"~(1,2,3,4) & ~(a,b,c,d)", "!(C)", "~a", "~(C&a)", "A|C&d", "C^b"}},
        {"Aa1 Ca3", "Ff6", {"TC", "T(a&3)", "!(TA)"}, {"TA", "T1", "~(A,C)"}},
        {"", "Aa1",
         {"*", "T*", "!(TA)", "!B", "!(A,B)", "a | b", "\ta\n^ b", "A|(C&d)", "!(A,B,C,D,E,F,a,b)"},
         {"TA", "~A", "~(A,B)", "!(A)", "!(A|B)", "a&b", "a^A", "A|C&d", "!(T*)"}},
    };
    // clang-format on
    for (const auto& row : rows) {
        for (const auto* rules : {&row.holding, &row.failing}) {
            for (const char* rule : *rules) {
                expect(row.pile, rule, row.tested, rules == &row.holding);
            }
        }
    }
}

TEST_F(rule_test, BrokenRulesHoldForNoCard) {
    const std::string zero("A\0", 2);
    // clang-format off
    for (const char* rule : {
             "", " ", "(C,D)", "C D", "!TA", "T!A", "7", "G", "g", "0", "T", "~", "!", "A&", "&A",
             "A&&B", "A|", "(", ")", "()", "(A", "A)", "(A,)", "!(,A)", "!(A", "!(A,", "((A,B))",
             "T((A,B))", "*|(A,B)", "*|", "\r*", "*\v", "\x80", "!(A,B,C,D,E,F,a,b,c)"}) {
        // clang-format on
        expect("", rule, "Aa1", false);
        expect("Aa1", rule, "Aa1", false);
    }
    expect("", zero, "Aa1", false);
}

TEST_F(rule_test, TheFirst1024BytesThatCountAreJudged) {
    const std::string whole = "!(A)" + repeated("|*", 510);
    for (std::string_view rest : {"", "&", "))))", "&&A"}) {
        expect("", whole + std::string(rest), "Aa1", true);
        expect("", repeated(" \n\t", 5000) + whole + std::string(rest), "Aa1", true);
        expect("", whole.substr(2) + std::string(rest), "Aa1", false);
    }
}

TEST_F(rule_test, NestingMayBeOfAnyDepth) {
    // clang-format off
    struct {
        const char *open, *close;
        int depth;
        bool holds;
    } const rows[] = {
        {"(", ")", 511, true}, {"(", ")", 512, false}, {"(", ")", 100'000, false},
        {"!(", ")", 340, true}, {"!(", ")", 339, false}, {"!(A,", ")", 204, true},
        {"~(", ")", 100'000, false}, {"A&(", "", 100'000, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        expect("Aa1", repeated(row.open, row.depth) + "*" + repeated(row.close, row.depth), "Aa1",
               row.holds);
    }
}

// A second evaluator, word by word from the grammar, for one card: lists are explicit and values
// are bits.
enum plain_bit { plain_played = 1, plain_top = 2, plain_both = 3, plain_error = 4 };

struct plain_evaluator {
    std::string text;
    card tested;
    const card* top;
    std::size_t at = 0;

    char next() const { return at < text.size() ? text[at] : '\0'; }
    bool next_is_one_of(std::string_view symbols) const {
        return next() != '\0' && symbols.find(next()) != symbols.npos;
    }

    static bool has(card c, char symbol) {
        return symbol >= 'a'   ? c.shape == symbol - 'a'
               : symbol >= 'A' ? c.colour == symbol - 'A'
                               : c.number == symbol - '0';
    }

    std::vector<int> primary() {
        if (!next_is_one_of("*ABCDEFabcdef123456(")) {
            return {plain_error};
        }
        char c = text[at++];
        if (c != '(') {
            bool played = c == '*' || has(tested, c);
            return {played + 2 * (c == '*' || (top != nullptr && has(*top, c)))};
        }
        std::vector<int> list = {expression()};
        for (; next() == ',' && list.size() < 8; list.push_back(expression())) {
            at += 1;
        }
        at += 1;
        return at <= text.size() && text[at - 1] == ')' ? list : std::vector<int>{plain_error};
    }

    int unary() {
        if (!next_is_one_of("T~!")) {
            std::vector<int> list = primary();
            return list.size() == 1 ? list[0] : plain_error;
        }
        char c = text[at++];
        int folded = 0;
        for (int v : primary()) {
            bool both = c == 'T' ? (v & plain_top) != 0 : (v & plain_both) == plain_both;
            folded |= c == '!' ? v ^ plain_both : (v & plain_error) | (both ? plain_both : 0);
        }
        return folded;
    }

    int expression() {
        int left = unary();
        while (next_is_one_of("&|^")) {
            char c = text[at++];
            int right = unary(), error = (left | right) & plain_error;
            left = error | (c == '&' ? left & right : c == '|' ? left | right : left ^ right);
        }
        return left;
    }

    bool holds() {
        int value = expression();
        return at == text.size() && (value & (plain_played | plain_error)) == plain_played;
    }
};

using random_source = std::mt19937_64;

std::string random_expression(random_source& random, int depth) {
    std::string text;
    for (u64 parts = 1 + random() % 3; parts > 0; --parts) {
        bool many = random() % 4 != 0;
        text += many ? std::string(1, "T~!"[random() % 3]) : "";
        if (depth == 0 || random() % 3 == 0) {
            text += "ABCDEFabcdef123456**"[random() % 20];
        } else {
            text += "(" + random_expression(random, depth - 1);
            for (u64 more = many ? random() % 9 : 0; more > 0; --more) {
                text += "," + random_expression(random, 0);
            }
            text += ")";
        }
        text += parts > 1 ? std::string(1, "&|^"[random() % 3]) : "";
    }
    return text;
}

TEST_F(rule_test, EveryEvaluationAgreesWithThePlainOne) {
    i64 holding = 0;
    for (u64 seed = 1; seed <= 2000; ++seed) {
        random_source random(seed);
        std::string rule = random_expression(random, 3);
        if (random() % 4 == 0) {
            rule[random() % rule.size()] = "()T~!,&|^AG7"[random() % 12];
        }
        bool has_top = random() % 4 != 0;
        card top = card_of_value(static_cast<i64>(random() % card_value_count));
        discard_pile.cards.count = 0;
        if (has_top) {
            dyn_array_push(discard_pile.cards, top);
        }
        card_set matching = rule_matching_cards(str_of(rule));
        for (i64 value = 0; value < card_value_count; ++value) {
            card tested = card_of_value(value);
            bool holds = rule_matches(str_of(rule), tested);
            holding += holds;
            ASSERT_EQ(card_set_has(matching, tested), holds) << rule;
            if (random() % 16 == 0) {
                ASSERT_EQ((plain_evaluator{rule, tested, has_top ? &top : nullptr}.holds()), holds)
                    << rule;
            }
        }
    }
    EXPECT_GT(holding, 2000 * card_value_count / 4);
    EXPECT_EQ(arenas[arena_frame].offset, 0);
}

}  // namespace
