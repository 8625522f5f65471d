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
        i64 value = card_value(card_of(tested));
        EXPECT_EQ(card_set_has(rule_matching_cards(str_of(rule)), value), holds) << rule;
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
        for (const char* rule : row.holding) {
            expect(row.pile, rule, row.tested, true);
        }
        for (const char* rule : row.failing) {
            expect(row.pile, rule, row.tested, false);
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
    struct {
        const char *open, *close;
        int depth;
        bool holds;
    } const rows[] = {
        {"(", ")", 511, true},       {"(", ")", 512, false},      {"(", ")", 100'000, false},
        {"!(", ")", 340, true},      {"!(", ")", 339, false},     {"!(A,", ")", 204, true},
        {"~(", ")", 100'000, false}, {"A&(", "", 100'000, false},
    };
    for (const auto& row : rows) {
        expect("Aa1", repeated(row.open, row.depth) + "*" + repeated(row.close, row.depth), "Aa1",
               row.holds);
    }
}

// A second evaluator, word by word from the grammar: lists and error values are explicit.
struct plain_value {
    bool played, top, error;
};

struct plain_evaluator {
    std::string text;
    card tested;
    bool has_top;
    card top;
    std::size_t at = 0;

    char next() const { return at < text.size() ? text[at] : '\0'; }

    static bool has(card c, char symbol) {
        return symbol >= 'a'   ? c.shape == symbol - 'a'
               : symbol >= 'A' ? c.colour == symbol - 'A'
                               : c.number == symbol - '0';
    }

    std::vector<plain_value> primary() {
        const std::vector<plain_value> error = {{false, false, true}};
        char c = next();
        if (c == '*') {
            at += 1;
            return {{true, true, false}};
        }
        if (c != '\0' && std::string_view("ABCDEFabcdef123456").find(c) != std::string::npos) {
            at += 1;
            return {{has(tested, c), has_top && has(top, c), false}};
        }
        if (c != '(') {
            return error;
        }
        at += 1;
        std::vector<plain_value> list = {expression()};
        while (next() == ',') {
            if (list.size() == 8) {
                return error;
            }
            at += 1;
            list.push_back(expression());
        }
        if (next() != ')') {
            return error;
        }
        at += 1;
        return list;
    }

    plain_value unary() {
        char c = next();
        if (c != 'T' && c != '~' && c != '!') {
            std::vector<plain_value> list = primary();
            return list.size() == 1 ? list[0] : plain_value{false, false, true};
        }
        at += 1;
        plain_value folded = {false, false, false};
        for (plain_value v : primary()) {
            bool both = v.played && v.top;
            folded.played |= c == 'T' ? v.top : c == '~' ? both : !v.played;
            folded.top |= c == 'T' ? v.top : c == '~' ? both : !v.top;
            folded.error |= v.error;
        }
        return folded;
    }

    plain_value expression() {
        plain_value left = unary();
        for (char c = next(); c == '&' || c == '|' || c == '^'; c = next()) {
            at += 1;
            plain_value right = unary();
            left.played = c == '&'   ? left.played && right.played
                          : c == '|' ? left.played || right.played
                                     : left.played != right.played;
            left.top = c == '&'   ? left.top && right.top
                       : c == '|' ? left.top || right.top
                                  : left.top != right.top;
            left.error |= right.error;
        }
        return left;
    }

    bool holds() {
        plain_value value = expression();
        return at == text.size() && value.played && !value.error;
    }
};

using random_source = std::mt19937_64;

std::string random_expression(random_source& random, int depth);

std::string random_primary(random_source& random, int depth, bool many) {
    if (depth == 0 || random() % 3 == 0) {
        return std::string(1, "ABCDEFabcdef123456**"[random() % 20]);
    }
    std::string text = "(" + random_expression(random, depth - 1);
    for (u64 more = many ? random() % 9 : 0; more > 0; --more) {
        text += "," + random_expression(random, 0);
    }
    return text + ")";
}

std::string random_expression(random_source& random, int depth) {
    std::string text;
    for (u64 parts = 1 + random() % 3; parts > 0; --parts) {
        u64 kind = random() % 4;
        text += kind == 3 ? "" : std::string(1, "T~!"[kind]);
        text += random_primary(random, depth, kind != 3);
        text += parts > 1 ? std::string(1, "&|^"[random() % 3]) : "";
    }
    return text;
}

std::string random_rule(random_source& random) {
    std::string text = random_expression(random, 3);
    if (random() % 4 == 0) {
        text[random() % text.size()] = "()T~!,&|^AG7"[random() % 12];
    }
    return text;
}

TEST_F(rule_test, EveryEvaluationAgreesWithThePlainOne) {
    i64 holding = 0;
    for (u64 seed = 1; seed <= 2000; ++seed) {
        random_source random(seed);
        std::string rule = random_rule(random);
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
            ASSERT_EQ(card_set_has(matching, value), holds) << "seed " << seed << ": " << rule;
            if (random() % 16 == 0) {
                ASSERT_EQ((plain_evaluator{rule, tested, has_top, top}.holds()), holds)
                    << "seed " << seed << ": " << rule;
            }
        }
        ASSERT_LE(card_set_count(matching), card_value_count);
    }
    EXPECT_GT(holding, 2000 * card_value_count / 4);
    EXPECT_EQ(arenas[arena_frame].offset, 0);
}

}  // namespace
