#include "rules/rule.h"

#include "rules/cards.h"
#include "rules/rule_parser.h"

// What a rule says of a domain of cards is a set with one bit per card: a single bit for the one
// card that is tested, or a bit for every card value.

namespace {

// The top card of the pile; on an empty one a card that has no property.
card pile_top() {
    constexpr card no_card = {255, 255, 255};
    const dyn_array<card>& pile = discard_pile.cards;
    return pile.count > 0 ? card_array_top(pile) : no_card;
}

struct one_card {
    using set = u64;
    static constexpr set none = 0;
    static constexpr set all = 1;

    card tested;
    card top = pile_top();

    set having(card_property property) const { return card_has(tested, property) ? all : none; }
    set top_having(card_property property) const { return card_has(top, property) ? all : none; }
};

struct every_card {
    using set = card_set;
    static constexpr set none = {};
    static constexpr set all = all_cards;

    card top = pile_top();

    static const set& having(card_property property) { return cards_having(property); }
    set top_having(card_property property) const { return card_has(top, property) ? all : none; }
};

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
