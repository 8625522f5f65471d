#include "making/rule_ideas.h"

#include <utility>

#include "base/text_builder.h"
#include "making/chance.h"
#include "maps/card.h"
#include "maps/model.h"
#include "rules/cards.h"

namespace {

str symbol_text(u8 field, i64 value) {
    static constexpr char symbols[] = "ABCDEFabcdef123456";
    return {symbols + field * card_colour_count + value, 1};
}

// The field's values from the first one up to, not including, the last one, such as "A,B,C".
str values_text(u8 field, i64 first, i64 end, str between) {
    str text = symbol_text(field, first);
    for (i64 value = first + 1; value < end; ++value) {
        text = text_join({text, between, symbol_text(field, value)});
    }
    return text;
}

str list_text(u8 field) {
    return text_join({"(", values_text(field, 0, deck_kinds().counts[field], ","), ")"});
}

str value_text(u8 field) {
    return symbol_text(field, random_index(deck_kinds().counts[field]));
}

// The same as the top card.
str match_rule(u8 field) {
    return text_join({"~", list_text(field)});
}

// From low cards to high ones, or back.
str ladder_rule(u8 field) {
    const i64 count = deck_kinds().counts[field];
    const i64 half = count / 2;
    const str low = values_text(field, 0, half, ",");
    const str high = values_text(field, half, count, ",");
    const str low_card = values_text(field, 0, half, "|");
    const str high_card = values_text(field, half, count, "|");
    return random_chance(50) ? text_join({"T(", low, ")&(", high_card, ")"})
                             : text_join({"T(", high, ")&(", low_card, ")"});
}

// What one card opened, another kind closes.
str bracket_rule(u8 field) {
    const str value = value_text(field);
    return text_join({"T", value, "&!", value});
}

// Never the same as the top card.
str alternate_rule(u8 field) {
    return text_join({"!(~", list_text(field), ")"});
}

struct rule_idea {
    str name;
    str (*rule)(u8 field);
};

constexpr rule_idea ideas[rule_idea_count] = {
    {"match", match_rule},
    {"ladder", ladder_rule},
    {"bracket", bracket_rule},
    {"alternate", alternate_rule},
};

constexpr i64 ladder = 1;

}  // namespace

str rule_idea_name(i64 idea) {
    return ideas[idea].name;
}

rule_fields rule_fields_choose(i64 idea) {
    u8 fields[card_field_count] = {field_colour, field_shape, field_number};
    const i64 chosen = random_index(card_field_count);
    std::swap(fields[0], fields[idea == ladder ? i64{field_number} : chosen]);
    if (random_chance(50)) {
        std::swap(fields[1], fields[2]);
    }
    return {fields[0], {fields[1], fields[2]}};
}

str idea_rule(i64 idea, const rule_fields& fields) {
    return ideas[idea].rule(fields.main);
}

str plain_rule(const rule_fields& fields) {
    const u8 field = random_chance(65) ? fields.plain[0] : fields.plain[1];
    return random_chance(30) ? text_join({"!", value_text(field)}) : value_text(field);
}

str safe_rule(const rule_fields& fields) {
    const u8 field = random_chance(65) ? fields.plain[0] : fields.plain[1];
    const i64 other = random_between(1, deck_kinds().counts[field] - 1);
    switch (random_index(4)) {
        case 0:
            return text_join({symbol_text(field, 0), "|", symbol_text(field, other)});
        case 1:
            return text_join({"!", symbol_text(field, other)});
        default:
            return symbol_text(field, 0);
    }
}

str short_rule(const rule_fields& fields) {
    return symbol_text(fields.plain[0], 0);
}
