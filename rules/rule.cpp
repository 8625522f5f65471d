#include "rules/rule.h"

#include <cassert>

#include "maps/scan.h"
#include "rules/cards.h"

// A rule is read once from left to right by recursive descent, one function for each symbol of the
// grammar, and evaluated while it is read: no tree is built, and a list is folded into one value as
// its expressions come, so a rule needs no memory but its text without blanks. That text has at
// most 1024 bytes, which bounds the steps, and the depth of the recursion to one for each "(".
//
// It is evaluated over a domain of cards at once, and what it says of them is a set with one bit
// per card: a single bit for the one card that is tested, or a bit for every card value. The
// operators work on each bit alone, so both domains give each card the same answer.

namespace {

constexpr i64 list_limit = 8;

char rule_buffer[rule_length_limit];  // the rule without its blanks

struct one_card {
    using set = u64;
    static constexpr set none = 0;
    static constexpr set all = 1;

    card tested;

    set having(card_property property) const { return card_has(tested, property) ? all : none; }
};

struct every_card {
    using set = card_set;
    static constexpr set none = {};
    static constexpr set all = {{~u64{0}, ~u64{0}, ~u64{0}, (u64{1} << 24) - 1}};
    static_assert(card_value_count == 3 * 64 + 24);

    static set having(card_property property);
};

struct property_sets {
    card_set sets[card_field_count][card_number_count + 1];  // by field and value
};

constexpr property_sets property_sets_make() {
    property_sets made = {};
    for (i64 value = 0; value < card_value_count; ++value) {
        card c = card_of_value(value);
        card_set_add(made.sets[field_colour][c.colour], c);
        card_set_add(made.sets[field_shape][c.shape], c);
        card_set_add(made.sets[field_number][c.number], c);
    }
    return made;
}

constexpr property_sets all_property_sets = property_sets_make();

card_set every_card::having(card_property property) {
    return all_property_sets.sets[property.field][property.value];
}

// What an expression says of each card of the domain.
template <typename domain>
struct rule_value {
    typename domain::set played = domain::none;  // it holds for the card
    typename domain::set top = domain::none;     // it holds for the top card of the pile
};

template <typename domain>
struct rule_parser {
    domain cards;
    text_cursor cursor;
    // A syntax error anywhere makes the whole rule hold for no card, so the first one ends it.
    rule_stop stop;  // its byte in `rule_buffer`

    using value = rule_value<domain>;
};

template <typename domain>
bool has_failed(const rule_parser<domain>& parser) {
    return parser.stop.reason.length > 0;
}

template <typename domain>
void rule_fail(rule_parser<domain>& parser, str reason) {
    if (!has_failed(parser)) {
        parser.stop = {parser.cursor.position, reason};
    }
}

template <typename domain>
char next_byte(const rule_parser<domain>& parser) {
    const text_cursor& cursor = parser.cursor;
    return cursor.position < cursor.size ? cursor.data[cursor.position] : '\0';
}

template <typename domain>
rule_value<domain> rule_parse_expression(rule_parser<domain>& parser);

// Adds one value of a list to what the operator in front of it has made of the ones before.
template <typename domain>
void list_fold(rule_value<domain>& folded, const rule_value<domain>& value, char list_operator) {
    switch (list_operator) {
        case 'T':
            folded.played = folded.played | value.top;
            folded.top = folded.top | value.top;
            break;
        case '~':
            folded.played = folded.played | (value.played & value.top);
            folded.top = folded.top | (value.played & value.top);
            break;
        case '!':
            folded.played = folded.played | (domain::all ^ value.played);
            folded.top = folded.top | (domain::all ^ value.top);
            break;
        default:
            assert(list_operator == '\0');
            folded = value;
    }
}

// The list in parentheses, its values folded by the operator in front of it ('\0': none, which
// takes a list of one only).
template <typename domain>
rule_value<domain> rule_parse_list(rule_parser<domain>& parser, char list_operator) {
    assert(next_byte(parser) == '(');
    i64 limit = list_operator == '\0' ? 1 : list_limit;
    rule_value<domain> folded;
    for (i64 count = 0; count < limit; ++count) {
        parser.cursor.position += 1;  // the "(" or ","
        list_fold(folded, rule_parse_expression(parser), list_operator);
        if (has_failed(parser) || next_byte(parser) != ',') {
            break;
        }
    }
    if (next_byte(parser) == ',') {
        rule_fail(parser, limit == 1 ? str("a list needs \"T\", \"~\" or \"!\" in front of it")
                                     : str("a list holds at most eight"));
    } else if (next_byte(parser) != ')') {
        rule_fail(parser, "here \")\" is missing");
    }
    parser.cursor.position += 1;
    return folded;
}

template <typename domain>
rule_value<domain> rule_parse_primary(rule_parser<domain>& parser, char list_operator) {
    char c = next_byte(parser);
    if (c == '(') {
        return rule_parse_list(parser, list_operator);
    }
    rule_value<domain> value;
    card_property property;
    if (c == '*') {
        value = {domain::all, domain::all};
    } else if (card_property_read(c, property)) {
        value.played = parser.cards.having(property);
        const dyn_array<card>& pile = discard_pile.cards;
        bool top_has = pile.count > 0 && card_has(card_array_top(pile), property);
        value.top = top_has ? domain::all : domain::none;
    } else {
        rule_fail(parser, "here a letter, a digit, \"*\" or \"(\" is missing");
        return value;
    }
    parser.cursor.position += 1;
    rule_value<domain> folded;
    list_fold(folded, value, list_operator);
    return folded;
}

template <typename domain>
rule_value<domain> rule_parse_unary(rule_parser<domain>& parser) {
    char c = next_byte(parser);
    if (c == 'T' || c == '~' || c == '!') {
        parser.cursor.position += 1;
        return rule_parse_primary(parser, c);
    }
    return rule_parse_primary(parser, '\0');
}

template <typename domain>
rule_value<domain> rule_parse_expression(rule_parser<domain>& parser) {
    rule_value<domain> left = rule_parse_unary(parser);
    for (;;) {
        char c = next_byte(parser);
        if (has_failed(parser) || (c != '&' && c != '|' && c != '^')) {
            return left;
        }
        parser.cursor.position += 1;
        rule_value<domain> right = rule_parse_unary(parser);
        if (c == '&') {
            left = {left.played & right.played, left.top & right.top};
        } else if (c == '|') {
            left = {left.played | right.played, left.top | right.top};
        } else {
            left = {left.played ^ right.played, left.top ^ right.top};
        }
    }
}

bool is_blank(char c) {
    return c == '\t' || c == '\n' || c == ' ';
}

// Copies the rule without its blanks into `rule_buffer`; returns the bytes stored.
i64 rule_squeeze(str rule) {
    i64 size = 0;
    for (char c : rule) {
        if (size == rule_length_limit) {
            break;
        }
        if (!is_blank(c)) {
            rule_buffer[size] = c;
            size += 1;
        }
    }
    return size;
}

// Reads the whole rule; what it says is of use when the parser has not failed.
template <typename domain>
rule_value<domain> rule_parse(rule_parser<domain>& parser, str rule) {
    parser.cursor = {rule_buffer, rule_squeeze(rule), 0};
    rule_value<domain> value = rule_parse_expression(parser);
    assert(has_failed(parser) || parser.cursor.position <= parser.cursor.size);
    if (parser.cursor.position != parser.cursor.size) {
        rule_fail(parser, "here \"&\", \"|\" or \"^\" is missing");
    }
    return value;
}

// The cards of the domain that the rule holds for.
template <typename domain>
typename domain::set rule_evaluate(str rule, domain cards) {
    rule_parser<domain> parser = {cards, {}, {}};
    rule_value<domain> value = rule_parse(parser, rule);
    return has_failed(parser) ? domain::none : value.played;
}

// The place in the rule of a byte of `rule_buffer`.
i64 rule_unsqueeze(str rule, i64 position) {
    i64 place = 0;
    for (i64 left = position; place < rule.length; ++place) {
        if (!is_blank(rule[place])) {
            if (left == 0) {
                break;
            }
            left -= 1;
        }
    }
    return place;
}

}  // namespace

bool rule_matches(str rule, card tested) {
    return rule_evaluate(rule, one_card{tested}) != 0;
}

card_set rule_matching_cards(str rule) {
    return rule_evaluate(rule, every_card{});
}

rule_stop rule_stop_find(str rule) {
    rule_parser<every_card> parser = {};
    rule_parse(parser, rule);
    return {rule_unsqueeze(rule, parser.stop.position), parser.stop.reason};
}
