#include "rules/rule.h"

#include <cassert>

#include "rules/cards.h"

// A rule is read into a tree, whose nodes are worked out from the first to the last, the whole.
// What a node says of a domain of cards is a set with one bit per card: a single bit for the one
// card that is tested, or a bit for every card value.

namespace {

// The top card of the pile; on an empty one a card that has no property.
card pile_top() {
    constexpr card no_card = {255, 255, 255};
    const dyn_array<card>& pile = discard_pile.cards;
    return pile.count > 0 ? card_array_top(pile) : no_card;
}

template <typename set>
struct rule_value {
    set played;  // the cards for which the node holds
    set top;     // all or none: whether it holds for the top card of the pile
};

// What a node says that has nodes of its own, by what they say.
template <typename set>
rule_value<set> value_combined(rule_node_kind kind, const rule_value<set>& left,
                               const rule_value<set>& right, const set& all) {
    switch (kind) {
        case node_top:
            return {left.top, left.top};
        case node_both:
            return {left.played & left.top, left.played & left.top};
        case node_not:
            return {left.played ^ all, left.top ^ all};
        case node_and:
            return {left.played & right.played, left.top & right.top};
        case node_or:
            return {left.played | right.played, left.top | right.top};
        default:
            assert(kind == node_xor);
            return {left.played ^ right.played, left.top ^ right.top};
    }
}

// The cards of the domain `all` that the rule holds for; `having` gives those with a property.
template <typename set, typename function>
set rule_evaluate(str rule, const set& all, function having) {
    static rule_value<set> values[rule_node_limit];
    const rule_tree& tree = rule_parse(rule);
    const card top = pile_top();
    for (i64 i = 0; i < tree.count; ++i) {
        const rule_node& node = tree.nodes[i];
        if (node.kind == node_any) {
            values[i] = {all, all};
        } else if (node.kind == node_property) {
            values[i] = {having(node.property), card_has(top, node.property) ? all : set{}};
        } else {
            values[i] = value_combined(node.kind, values[node.left], values[node.right], all);
        }
    }
    return tree.count > 0 ? values[tree.count - 1].played : set{};
}

}  // namespace

bool rule_matches(str rule, card tested) {
    constexpr u64 the_card = 1;
    return rule_evaluate(rule, the_card, [&](card_property property) {
               return card_has(tested, property) ? the_card : u64{0};
           }) == the_card;
}

card_set rule_matching_cards(str rule) {
    return rule_evaluate(rule, all_cards, cards_having);
}

rule_stop rule_stop_find(str rule) {
    return rule_parse(rule).stop;
}
