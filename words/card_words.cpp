#include "words/card_words.h"

#include "base/numbers.h"

namespace {

constexpr str colour_names[card_colour_count] = {"red",    "blue",   "green",
                                                 "yellow", "purple", "orange"};
constexpr str shape_names[card_shape_count] = {"circle",   "triangle", "square",
                                               "pentagon", "hexagon",  "star"};
constexpr str field_plurals[card_field_count] = {"colours", "shapes", "numbers"};

// What stands before the property's name, and behind it.
struct phrase {
    str before;
    str after;
};

constexpr phrase phrases[][card_field_count] = {
    {{"is ", ""}, {"is a ", ""}, {"has the number ", ""}},
    {{"is not ", ""}, {"is not a ", ""}, {"does not have the number ", ""}},
    {{"are both ", ""}, {"are both ", "s"}, {"both have the number ", ""}},
    {{"are ", ""}, {"have the shape ", ""}, {"have the number ", ""}},
};

str property_name(card_property property) {
    switch (property.field) {
        case field_colour:
            return colour_names[property.value];
        case field_shape:
            return shape_names[property.value];
        default:
            return number_text(property.value);
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

str counted_sentence(const goal& g, const measure_info& measure, str many) {
    card_property a = property_of(g.card_a, measure.field);
    card_property b = property_of(g.card_b, measure.field);
    if (!property_exists(a) || (measure.cards == 2 && !property_exists(b))) {
        return "the goal names a card that does not exist";
    }
    text_builder text = text_builder_make(arena_frame);
    text_builder_put_str(text, many);
    text_builder_put_str(text, " of the cards on the tape ");
    property_put(text, manner_are, a);
    if (measure.cards == 2) {
        text_builder_put_str(text, " or ");
        text_builder_put_str(text, property_name(b));
    }
    return text_builder_text(text);
}

}  // namespace

str card_name(card c) {
    return text_join(
        {colour_names[c.colour], " ", shape_names[c.shape], " ", number_text(c.number)});
}

void property_put(text_builder& text, property_manner manner, card_property property) {
    const phrase& around = phrases[manner][property.field];
    text_builder_put_str(text, around.before);
    text_builder_put_str(text, property_name(property));
    text_builder_put_str(text, around.after);
}

str goal_sentence(const goal& g) {
    if (g.measure >= measure_count || g.comparison >= comparison_count) {
        return "nobody can meet the goal: its measure or comparison does not exist";
    }
    const measure_info& measure = measures[g.measure];
    str many = text_join({comparison_names[g.comparison], " ", number_text(g.target)});
    if (g.measure == measure_sum) {
        return text_join({"the numbers on the tape add up to ", many});
    }
    if (measure.cards == 0) {
        return text_join({"the tape shows ", many, " different ", field_plurals[measure.field],
                          " of those in the deck"});
    }
    return counted_sentence(g, measure, many);
}
