#include "rules/cards.h"

#include <algorithm>

#include "maps/model.h"

card_pile deck;
card_pile discard_pile;
dyn_array<card> tape;
i64 tape_head;

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

i64 deck_colours_bounded() {
    return std::clamp(settings.deck_colours, i64{0}, card_colour_count);
}

i64 deck_shapes_bounded() {
    return std::clamp(settings.deck_shapes, i64{0}, card_shape_count);
}

i64 deck_numbers_bounded() {
    return std::clamp(settings.deck_numbers, i64{0}, card_number_count);
}
