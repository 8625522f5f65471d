#include "rules/rule_parser.h"

#include <cassert>

#include "maps/scan.h"

// A rule is read once from left to right by recursive descent, one function for each symbol of the
// grammar; each returns the place of the node that it has written behind its own nodes. The text
// has at most 1024 bytes, which bounds the steps, and the depth of the recursion to one for each
// "(".

namespace {

constexpr i64 rule_list_limit = 8;  // expressions

char rule_buffer[rule_length_limit];  // the rule that is read, without its blanks
text_cursor cursor;                   // over the buffer
rule_tree tree;

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

// Writes a node whose bytes reach from `first` to the cursor.
u16 node_write(rule_node node, i64 first) {
    assert(tree.count < rule_node_limit);
    node.first = static_cast<u16>(first);
    node.end = static_cast<u16>(cursor.position);
    tree.nodes[tree.count] = node;
    tree.count += 1;
    return static_cast<u16>(tree.count - 1);
}

// A syntax error anywhere makes the whole rule hold for no card, so the first one ends it.
bool has_failed() {
    return tree.stop.reason.length > 0;
}

void rule_fail(str reason) {
    if (!has_failed()) {
        tree.stop = {cursor.position, reason};
    }
}

char next_byte() {
    return cursor.position < cursor.size ? cursor.data[cursor.position] : '\0';
}

// What an operator makes of the nodes beside it; `node_none` for any other byte.
rule_node_kind operator_kind(char sign) {
    switch (sign) {
        case 'T':
            return node_top;
        case '~':
            return node_both;
        case '!':
            return node_not;
        case '&':
            return node_and;
        case '|':
            return node_or;
        case '^':
            return node_xor;
        default:
            return node_none;
    }
}

bool is_binary(rule_node_kind kind) {
    return kind >= node_and;
}

// The node with the operator before it, if there is one.
u16 operator_write(rule_node_kind before, u16 node) {
    return before != node_none ? node_write({.kind = before, .left = node}, tree.nodes[node].first)
                               : node;
}

u16 rule_parse_expression();

// The list in parentheses, with the operator in front of it, without which it takes one expression.
u16 rule_parse_list(rule_node_kind before) {
    assert(next_byte() == '(');
    const i64 limit = before == node_none ? 1 : rule_list_limit;
    u16 list = 0;
    for (i64 count = 0; count < limit; ++count) {
        cursor.position += 1;  // the "(" or ","
        u16 node = operator_write(before, rule_parse_expression());
        list = count == 0 ? node
                          : node_write({.kind = node_or, .left = list, .right = node},
                                       tree.nodes[list].first);
        if (has_failed() || next_byte() != ',') {
            break;
        }
    }
    if (next_byte() == ',') {
        rule_fail(limit == 1 ? str("a list needs \"T\", \"~\" or \"!\" in front of it")
                             : str("a list holds at most eight"));
    } else if (next_byte() != ')') {
        rule_fail("here \")\" is missing");
    }
    cursor.position += 1;
    return list;
}

u16 rule_parse_primary(rule_node_kind before) {
    const char c = next_byte();
    if (c == '(') {
        return rule_parse_list(before);
    }
    rule_node node = {.kind = node_any};
    if (card_property_read(c, node.property)) {
        node.kind = node_property;
    } else if (c != '*') {
        rule_fail("here a letter, a digit, \"*\" or \"(\" is missing");
        return 0;
    }
    cursor.position += 1;
    return operator_write(before, node_write(node, cursor.position - 1));
}

u16 rule_parse_unary() {
    const rule_node_kind before = operator_kind(next_byte());
    if (before == node_none || is_binary(before)) {
        return rule_parse_primary(node_none);
    }
    const i64 first = cursor.position;
    cursor.position += 1;
    const u16 node = rule_parse_primary(before);
    tree.nodes[node].first = static_cast<u16>(first);
    tree.nodes[node].end = static_cast<u16>(cursor.position);
    return node;
}

u16 rule_parse_expression() {
    const i64 first = cursor.position;
    u16 left = rule_parse_unary();
    for (;;) {
        const rule_node_kind between = operator_kind(next_byte());
        if (has_failed() || !is_binary(between)) {
            return left;
        }
        cursor.position += 1;
        const u16 right = rule_parse_unary();
        left = node_write({.kind = between, .left = left, .right = right}, first);
    }
}

}  // namespace

const rule_tree& rule_parse(str rule) {
    cursor = {rule_buffer, rule_squeeze(rule), 0};
    tree.count = 0;
    tree.text = {rule_buffer, cursor.size};
    tree.stop = {};
    [[maybe_unused]] u16 whole = rule_parse_expression();
    if (cursor.position != cursor.size) {
        rule_fail("here \"&\", \"|\" or \"^\" is missing");
    }
    if (has_failed()) {
        tree.count = 0;
    }
    assert(tree.count == 0 || whole == tree.count - 1);
    tree.stop.position = rule_unsqueeze(rule, tree.stop.position);
    return tree;
}
