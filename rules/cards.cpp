#include "rules/cards.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "maps/model.h"
#include "rules/random.h"

card_pile deck;
card_pile discard_pile;
dyn_array<card> tape;
i64 tape_head;

namespace {

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

}  // namespace

card card_array_top(const dyn_array<card>& cards) {
    return cards.count > 0 ? cards[cards.count - 1] : card{};
}

void card_array_remove_at(dyn_array<card>& cards, i64 index) {
    dyn_array_remove_at(cards, index);
}

card card_take_top(dyn_array<card>& cards) {
    card top = card_array_top(cards);
    card_array_remove_at(cards, cards.count - 1);
    return top;
}

card_kinds deck_kinds() {
    return {{std::clamp(settings.deck_colours, i64{0}, card_colour_count),
             std::clamp(settings.deck_shapes, i64{0}, card_shape_count),
             std::clamp(settings.deck_numbers, i64{0}, card_number_count)}};
}

void deck_shuffle() {
    for (i64 i = deck.cards.count - 1; i >= 1; --i) {
        std::swap(deck.cards[i], deck.cards[random_index(i + 1)]);
    }
}

void deck_refill() {
    if (deck.cards.count > 0 || discard_pile.cards.count == 0) {
        return;
    }
    // Each pile takes over the other's storage, so that neither writes into the other's cards.
    std::swap(deck.cards, discard_pile.cards);
    assert(discard_pile.cards.count == 0);
    deck_shuffle();
}

const card_set& cards_having(card_property property) {
    assert(property.field < card_field_count && property.value <= card_number_count);
    return all_property_sets.sets[property.field][property.value];
}
