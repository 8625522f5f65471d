#pragma once

// How a rule is read: the grammar of `rules/rule.h`, for the sources that evaluate rules.
//
// A rule is read once from left to right by recursive descent, one function for each symbol of the
// grammar, and evaluated while it is read: no tree is built, and a list is folded into one value as
// its expressions come, so a rule needs no memory but its text without blanks. That text has at
// most 1024 bytes, which bounds the steps, and the depth of the recursion to one for each "(".
//
// It is evaluated over a domain, which has
//
//   a type `set` with the operators &, | and ^, and of it the constants `none` and `all`
//   having(property)      the set of the cards that have it
//   top_having(property)  `all` or `none`: whether the top card has it
//
// The operators work on each card alone, so every domain gives each card the same answer.

#include <cassert>

#include "maps/card.h"
#include "maps/scan.h"
#include "rules/rule_text.h"

inline constexpr i64 rule_list_limit = 8;

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
        case '~': {
            auto both = value.played & value.top;
            folded.played = folded.played | both;
            folded.top = folded.top | both;
            break;
        }
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
    i64 limit = list_operator == '\0' ? 1 : rule_list_limit;
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
        value = {parser.cards.having(property), parser.cards.top_having(property)};
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
