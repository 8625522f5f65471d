#include "tools/card_text.h"

#include "tools/words.h"

std::string card_text(card c) {
    return {card_symbol(c, field_colour), card_symbol(c, field_shape),
            card_symbol(c, field_number)};
}

bool card_read(std::string_view text, card& c) {
    if (text.size() != card_field_count) {
        return false;
    }
    for (u8 field = 0; field < card_field_count; ++field) {
        card_property property;
        if (!card_property_read(text[field], property) || property.field != field) {
            return false;
        }
        card_write(c, property);
    }
    return true;
}

bool cards_read(std::string_view list, dyn_array<card>& cards) {
    cards.count = 0;
    for (std::string_view text : list_split(list)) {
        card c;
        if (!card_read(text, c)) {
            return false;
        }
        dyn_array_push(cards, c);
    }
    return true;
}
