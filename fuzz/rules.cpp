// The rules of pushdown transitions: the evaluation for one card, the one for all cards at once,
// the one under many top cards, and a literal one must agree about every card.
//
// The first byte is the top card of the pile, by its value; the values beyond those of cards are
// the empty pile. The rest is the rule.

#include "rules/rule.h"

#include <array>
#include <bitset>
#include <string>

#include "fuzz/fuzz.h"
#include "rules/rule_tops.h"
#include "tools/words.h"

namespace {

// What an expression says: by value, of which cards it holds, and whether, beside each of them, it
// holds for the top card. Here the language is followed word by word, whatever it costs: a list is
// a list, and an error is carried along to the end.
using card_bits = std::bitset<card_value_count>;

struct saying {
    card_bits card;
    card_bits top;
    bool error;
};

bool card_is(card c, char symbol) {
    return symbol == '*' || (symbol >= 'a'   ? c.shape == symbol - 'a'
                             : symbol >= 'A' ? c.colour == symbol - 'A'
                                             : c.number == symbol - '0');
}

std::array<card, card_value_count> cards_list() {
    std::array<card, card_value_count> list;
    for (std::size_t value = 0; value < list.size(); ++value) {
        list[value] = card_of_value(static_cast<i64>(value));
    }
    return list;
}

const std::array<card, card_value_count> cards = cards_list();

std::array<card_bits, 128> cards_by_symbol() {
    std::array<card_bits, 128> bits;
    for (std::size_t symbol = 0; symbol < bits.size(); ++symbol) {
        for (std::size_t value = 0; value < cards.size(); ++value) {
            bits[symbol][value] = card_is(cards[value], static_cast<char>(symbol));
        }
    }
    return bits;
}

const std::array<card_bits, 128> cards_that_are = cards_by_symbol();

struct saying_list {
    saying values[8];
    int count = 0;
};

struct literal_reader {
    const std::string& text;  // without blanks
    const card* top;
    std::size_t at = 0;

    bool next_is_one_of(std::string_view symbols) const {
        return at < text.size() && symbols.find(text[at]) != symbols.npos;
    }

    saying symbol_read() {
        const char symbol = text[at++];
        const bool top_is = symbol == '*' || (top != nullptr && card_is(*top, symbol));
        return {cards_that_are[static_cast<std::size_t>(symbol)],
                top_is ? ~card_bits() : card_bits(), false};
    }

    saying_list primary_read() {
        constexpr saying wrong = {{}, {}, true};
        if (next_is_one_of("*ABCDEFabcdef123456")) {
            return {{symbol_read()}, 1};
        }
        if (!next_is_one_of("(")) {
            return {{wrong}, 1};
        }
        at += 1;
        saying_list list = {{expression_read()}, 1};
        while (next_is_one_of(",") && list.count < 8) {
            at += 1;
            list.values[list.count++] = expression_read();
        }
        if (!next_is_one_of(")")) {
            return {{wrong}, 1};
        }
        at += 1;
        return list;
    }

    saying unary_read() {
        const char sign = next_is_one_of("T~!") ? text[at++] : '\0';
        const saying_list list = primary_read();
        if (sign == '\0') {
            return list.count == 1 ? list.values[0] : saying{{}, {}, true};
        }
        saying folded = {};
        for (int i = 0; i < list.count; ++i) {
            const saying& value = list.values[i];
            folded.card |= sign == 'T'   ? value.top
                           : sign == '~' ? value.card & value.top
                                         : ~value.card;
            folded.top |= sign == 'T'   ? value.top
                          : sign == '~' ? value.card & value.top
                                        : ~value.top;
            folded.error |= value.error;
        }
        return folded;
    }

    saying expression_read() {
        saying left = unary_read();
        while (next_is_one_of("&|^")) {
            const char sign = text[at++];
            const saying right = unary_read();
            left.error |= right.error;
            switch (sign) {
                case '&':
                    left.card &= right.card;
                    left.top &= right.top;
                    break;
                case '|':
                    left.card |= right.card;
                    left.top |= right.top;
                    break;
                default:
                    left.card ^= right.card;
                    left.top ^= right.top;
            }
        }
        return left;
    }
};

// The first bytes that count.
std::string squeezed(std::string_view rule) {
    std::string text;
    for (char c : rule) {
        if (c != ' ' && c != '\t' && c != '\n' && text.size() < std::size_t{rule_length_limit}) {
            text += c;
        }
    }
    return text;
}

struct verdict {
    card_bits holding;  // for none when the rule does not parse
    bool parses;
};

// Without a top card the pile is empty.
verdict literal_judge(const std::string& text, const card* top) {
    literal_reader reader = {text, top};
    const saying said = reader.expression_read();
    const bool parses = !said.error && reader.at == text.size();
    return {parses ? said.card : card_bits(), parses};
}

card_bits bits_of(const card_set& set) {
    card_bits bits;
    for (std::size_t i = std::size(set.words); i-- > 0;) {
        bits = bits << 64 | card_bits(set.words[i]);
    }
    return bits;
}

card_bits matching_one_by_one(str rule) {
    card_bits bits;
    for (std::size_t value = 0; value < cards.size(); ++value) {
        bits[value] = rule_matches(rule, cards[value]);
    }
    return bits;
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    [[maybe_unused]] static const bool begun = (fuzz_begin(), true);
    discard_pile.cards.count = 0;
    fuzz_input input(data, size);
    const u8 top = input.byte();
    const bool has_top = top < card_value_count;
    const card tops[] = {card_of_value(top % card_value_count),
                         card_of_value((top + 47) % card_value_count)};
    if (has_top) {
        dyn_array_push(discard_pile.cards, tops[0]);
    }
    const str rule = str_from(input.rest);
    const verdict judged = literal_judge(squeezed(input.rest), has_top ? tops : nullptr);
    fuzz_expect(matching_one_by_one(rule) == judged.holding, "each card is judged by the language");
    fuzz_expect(bits_of(rule_matching_cards(rule)) == judged.holding, "so are all at once");

    rule_answers answers;
    rule_answers_find(answers, rule, tops, std::size(tops));
    for (std::size_t i = 0; i < std::size(tops); ++i) {
        const verdict under = literal_judge(squeezed(input.rest), &tops[i]);
        fuzz_expect(bits_of(answers.matching[answers.of_top[i]]) == under.holding,
                    "so are all under each top card");
    }
    const rule_stop stop = rule_stop_find(rule);
    fuzz_expect((stop.reason.length == 0) == judged.parses, "a rule either parses or has a reason");
    fuzz_expect(0 <= stop.position && stop.position <= rule.length, "a rule stops within itself");
    fuzz_expect(arenas[arena_frame].offset == 0, "rules take no memory");
    return 0;
}
