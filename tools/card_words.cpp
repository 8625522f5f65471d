#include "tools/card_words.h"

#include "tools/words.h"

namespace {

constexpr const char* colour_names[card_colour_count] = {"red",    "blue",   "green",
                                                         "yellow", "purple", "orange"};
constexpr const char* shape_names[card_shape_count] = {"circle",   "triangle", "square",
                                                       "pentagon", "hexagon",  "star"};
constexpr const char* field_plurals[card_field_count] = {"colours", "shapes", "numbers"};

std::string property_name(card_property property) {
    switch (property.field) {
        case field_colour:
            return colour_names[property.value];
        case field_shape:
            return shape_names[property.value];
        default:
            return std::to_string(property.value);
    }
}

card_property property_of(card c, card_field field) {
    return {field, c.*card_fields[field].value};
}

// Whether the goal's card has a value that cards take.
bool property_exists(card_property property) {
    const card_field_info& info = card_fields[property.field];
    return property.value >= info.first_value && property.value < info.first_value + info.count;
}

std::string counted_sentence(const goal& g, const measure_info& measure, const std::string& many) {
    card_property a = property_of(g.card_a, measure.field);
    card_property b = property_of(g.card_b, measure.field);
    if (!property_exists(a) || (measure.cards == 2 && !property_exists(b))) {
        return "the goal names a card that does not exist";
    }
    std::string sentence = many + " of the cards on the tape " +
                           (measure.field == field_colour  ? "are "
                            : measure.field == field_shape ? "have the shape "
                                                           : "have the number ") +
                           property_name(a);
    return measure.cards == 2 ? sentence + " or " + property_name(b) : sentence;
}

}  // namespace

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

std::string card_name(card c) {
    return std::string(colour_names[c.colour]) + " " + shape_names[c.shape] + " " +
           std::to_string(c.number);
}

std::string property_is(card_property property) {
    std::string name = property_name(property);
    return property.field == field_colour  ? "is " + name
           : property.field == field_shape ? "is a " + name
                                           : "has the number " + name;
}

std::string property_is_not(card_property property) {
    std::string name = property_name(property);
    return property.field == field_colour  ? "is not " + name
           : property.field == field_shape ? "is not a " + name
                                           : "does not have the number " + name;
}

std::string property_are_both(card_property property) {
    std::string name = property_name(property);
    return property.field == field_colour  ? "are both " + name
           : property.field == field_shape ? "are both " + name + "s"
                                           : "both have the number " + name;
}

std::string goal_sentence(const goal& g) {
    if (g.measure >= measure_count || g.comparison >= comparison_count) {
        return "nobody can meet the goal: its measure or comparison does not exist";
    }
    const measure_info& measure = measures[g.measure];
    std::string many =
        std::string(view_of(comparison_names[g.comparison])) + " " + std::to_string(g.target);
    if (g.measure == measure_sum) {
        return "the numbers on the tape add up to " + many;
    }
    if (measure.cards == 0) {
        return "the tape shows " + many + " different " + field_plurals[measure.field] +
               " of those in the deck";
    }
    return counted_sentence(g, measure, many);
}
