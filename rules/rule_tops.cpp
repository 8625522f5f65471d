#include "rules/rule_tops.h"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "rules/rule_parser.h"

// Read over the domain `written_down`, a rule does not become a set but the operations that would
// make it: a list of places, each the union, intersection or difference of two earlier ones. What a
// rule says then depends on the top card through the properties alone that the places of its result
// ask of it. Top cards that do not differ in them share an answer, and for the others the list is
// worked through a few at a time.

namespace {

constexpr i64 field_value_count = 6;  // of every field
constexpr i64 property_count = card_field_count * field_value_count;

// The first places are given; those from `operations_first` on are operations.
constexpr i64 place_none = 0;
constexpr i64 place_all = 1;
constexpr i64 played_first = 2;  // by property: the cards that have it
constexpr i64 tops_first =
    played_first + property_count;  // by property: all if the top card has it
constexpr i64 operations_first = tops_first + property_count;

// Counted against the bytes of a rule's text, no symbol of the grammar makes more than two.
constexpr i64 operation_limit = 2 * rule_length_limit;
constexpr i64 place_limit = operations_first + operation_limit;

constexpr i64 lane_count = 8;  // top cards for which the list is worked through at once

struct operation {
    char sign;  // '&', '|' or '^'
    u16 left;   // places before this one
    u16 right;
};

operation operations[place_limit];
i64 place_count;              // places of the rule that is looked at
bool is_needed[place_limit];  // by the result
card_set lanes[place_limit][lane_count];

u16 operation_write(char sign, u16 left, u16 right) {
    assert(place_count < place_limit);
    operations[place_count] = {sign, left, right};
    place_count += 1;
    return static_cast<u16>(place_count - 1);
}

i64 property_index(card_property property) {
    const card_field_info& info = card_fields[property.field];
    static_assert(card_colour_count == field_value_count && card_shape_count == field_value_count &&
                  card_number_count == field_value_count);
    return property.field * field_value_count + property.value - info.first_value;
}

card_property property_at(i64 index) {
    auto field = static_cast<card_field>(index / field_value_count);
    return {field, static_cast<u8>(card_fields[field].first_value + index % field_value_count)};
}

struct place {
    u16 index = place_none;
};

place operator&(place a, place b) {
    return {operation_write('&', a.index, b.index)};
}

place operator|(place a, place b) {
    return a.index == place_none ? b : place{operation_write('|', a.index, b.index)};
}

place operator^(place a, place b) {
    return {operation_write('^', a.index, b.index)};
}

struct written_down {
    using set = place;
    static constexpr set none = {place_none};
    static constexpr set all = {place_all};

    static set having(card_property property) {
        return {static_cast<u16>(played_first + property_index(property))};
    }
    static set top_having(card_property property) {
        return {static_cast<u16>(tops_first + property_index(property))};
    }
};

void needed_mark(i64 result) {
    std::fill(is_needed, is_needed + place_count, false);
    is_needed[result] = true;
    for (i64 p = result; p >= operations_first; --p) {
        if (is_needed[p]) {
            is_needed[operations[p].left] = true;
            is_needed[operations[p].right] = true;
        }
    }
}

// The values of a field that are asked of the top card are told apart from each other and from the
// rest; numbers the combinations for a card.
i64 distinction(card top) {
    i64 number = 0;
    for (i64 field = 0; field < card_field_count; ++field) {
        const card_field_info& info = card_fields[field];
        i64 value = top.*info.value - info.first_value;
        bool is_asked = is_needed[tops_first + field * field_value_count + value];
        number = number * (field_value_count + 1) + (is_asked ? 1 + value : 0);
    }
    return number;
}

// Gives every top card its answer; `examples` becomes one of the cards for each.
void tops_sort(rule_answers& answers, const card* tops, i64 count, card* examples) {
    constexpr i64 distinctions =
        (field_value_count + 1) * (field_value_count + 1) * (field_value_count + 1);
    u8 answer_of[distinctions];
    bool is_known[distinctions] = {};
    answers.count = 0;
    for (i64 i = 0; i < count; ++i) {
        i64 number = distinction(tops[i]);
        if (!is_known[number]) {
            is_known[number] = true;
            answer_of[number] = static_cast<u8>(answers.count);
            examples[answers.count] = tops[i];
            answers.count += 1;
        }
        answers.of_top[i] = answer_of[number];
    }
}

card_set given_set(i64 p, card top) {
    if (p >= tops_first) {
        return card_has(top, property_at(p - tops_first)) ? all_cards : card_set{};
    }
    if (p >= played_first) {
        return cards_having(property_at(p - played_first));
    }
    return p == place_all ? all_cards : card_set{};
}

void given_fill(i64 p, const card* tops, i64 count) {
    for (i64 i = 0; i < count; ++i) {
        lanes[p][i] = given_set(p, tops[i]);
    }
}

template <typename combining>
void lanes_combine(i64 p, combining combine) {
    const card_set* left = lanes[operations[p].left];
    const card_set* right = lanes[operations[p].right];
    for (i64 i = 0; i < lane_count; ++i) {
        lanes[p][i] = combine(left[i], right[i]);
    }
}

void operation_work(i64 p) {
    switch (operations[p].sign) {
        case '&':
            lanes_combine(p, [](const card_set& a, const card_set& b) { return a & b; });
            break;
        case '|':
            lanes_combine(p, [](const card_set& a, const card_set& b) { return a | b; });
            break;
        default:
            assert(operations[p].sign == '^');
            lanes_combine(p, [](const card_set& a, const card_set& b) { return a ^ b; });
    }
}

// Works the list through up to `result` for at most `lane_count` top cards.
void places_work(i64 result, const card* tops, i64 count) {
    for (i64 p = 0; p <= result; ++p) {
        if (!is_needed[p]) {
            continue;
        }
        if (p < operations_first) {
            given_fill(p, tops, count);
        } else {
            operation_work(p);
        }
    }
}

}  // namespace

void rule_answers_find(rule_answers& answers, str rule, const card* tops, i64 count) {
    assert(0 <= count && count <= card_value_count);
    place_count = operations_first;
    i64 result = rule_evaluate(rule, written_down{}).index;
    needed_mark(result);
    card examples[card_value_count];
    tops_sort(answers, tops, count, examples);
    for (i64 first = 0; first < answers.count; first += lane_count) {
        i64 some = std::min(lane_count, answers.count - first);
        places_work(result, examples + first, some);
        std::copy(lanes[result], lanes[result] + some, answers.matching + first);
    }
}
