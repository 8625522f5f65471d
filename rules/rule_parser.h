#pragma once

// A rule's text, taken apart: the grammar of `rules/rule.h` as a tree of nodes, for whoever
// evaluates a rule or says it in words.

#include "base/str.h"
#include "maps/card.h"

inline constexpr i64 rule_length_limit = 1024;  // bytes that count

// Lists are gone: an operator before one is that operator before each of its expressions, joined by
// `node_or`. So are parentheses.
enum rule_node_kind : u8 {
    node_none,
    node_property,  // a letter or digit
    node_any,       // "*"
    node_top,       // "T" of one node
    node_both,      // "~" of one node
    node_not,       // "!" of one node
    node_and,       // of two nodes, as the others below
    node_or,
    node_xor,
};

struct rule_node {
    rule_node_kind kind;
    card_property property = {};  // of `node_property`
    u16 left = 0;                 // places of its nodes, which come before it in the tree
    u16 right = 0;                // the second of two
    u16 first = 0;                // its bytes in the tree's text; an operator of a list's
    u16 end = 0;                  // expression has the same as the expression
};

// Counted against the bytes of a rule's text, no symbol of the grammar makes more than two.
inline constexpr i64 rule_node_limit = 2 * rule_length_limit;

// Where reading a rule stopped, and why, in words.
struct rule_stop {
    i64 position;  // byte of the rule; its length when it ends too early
    str reason;    // empty when the rule parses
};

struct rule_tree {
    i64 count;  // the last node is the whole rule; 0 when it does not parse
    rule_node nodes[rule_node_limit];
    str text;  // the rule without its blanks
    rule_stop stop;
};

// Valid until the next call.
const rule_tree& rule_parse(str rule);
