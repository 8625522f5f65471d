#include "rules/rule_tops.h"

#include <algorithm>
#include <cassert>
#include <functional>
#include <iterator>

#include "rules/rule_parser.h"

// Read over the domain `written_down`, a rule does not become a set but the operations that would
// make it: a list of places, each the union, intersection or difference of two earlier ones. What a
// place is depends on the top card through those of its fields alone that the place asks about.
// Most places ask about one field at most; they are worked out once, for each value of the field.
// The others are worked out for a few top cards at a time. Top cards that do not differ in the
// properties asked for share an answer, which is worked out once.

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

// Sets of a place that are worked out at once, and so many top cards: a place that asks about one
// field has a set for each of its values, one that asks about none has the same set everywhere.
constexpr i64 lane_count = 8;
static_assert(field_value_count <= lane_count);

struct operation {
    char sign;  // '&', '|' or '^'
    u16 left;   // places before this one
    u16 right;
};

constexpr u8 field_bit(i64 field) {
    return static_cast<u8>(1 << field);
}

constexpr i64 field_set_count = 1 << card_field_count;

operation operations[place_limit];
u8 asked_fields[place_limit];  // of the top card, as bits
card_set sets[place_limit][lane_count];
i64 place_count;               // places of the rule that is looked at
bool is_needed[place_limit];   // by the result
u16 many_asking[place_limit];  // the needed places that ask about more than one field
i64 many_asking_count;
card examples[card_value_count];  // by answer: a top card that it is for

u16 operation_write(char sign, u16 left, u16 right) {
    assert(place_count < place_limit);
    operations[place_count] = {sign, left, right};
    asked_fields[place_count] = asked_fields[left] | asked_fields[right];
    place_count += 1;
    return static_cast<u16>(place_count - 1);
}

// The place of a value, from 0, among those of its field.
i64 value_index(card_property property) {
    return property.value - card_fields[property.field].first_value;
}

i64 property_index(card_property property) {
    static_assert(card_colour_count == field_value_count && card_shape_count == field_value_count &&
                  card_number_count == field_value_count);
    return property.field * field_value_count + value_index(property);
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
// rest: a number for each value, so that the sum over a card's fields tells apart all that the rule
// can.
struct field_distinctions {
    i64 of[card_field_count][field_value_count];
};

constexpr i64 field_distinction_count = field_value_count + 1;
constexpr i64 distinction_count =
    field_distinction_count * field_distinction_count * field_distinction_count;

field_distinctions distinctions_find() {
    field_distinctions found;
    i64 unit = 1;
    for (i64 field = 0; field < card_field_count; ++field) {
        for (i64 i = 0; i < field_value_count; ++i) {
            bool is_asked = is_needed[tops_first + field * field_value_count + i];
            found.of[field][i] = is_asked ? unit * (1 + i) : 0;
        }
        unit *= field_distinction_count;
    }
    return found;
}

i64 distinction(const field_distinctions& distinctions, card top) {
    return distinctions.of[field_colour][top.colour] + distinctions.of[field_shape][top.shape] +
           distinctions.of[field_number][top.number - 1];
}

// Gives every top card its answer.
void tops_sort(rule_answers& answers, const card* tops, i64 count) {
    field_distinctions distinctions = distinctions_find();
    u8 answer_of[distinction_count];
    bool is_known[distinction_count] = {};
    answers.count = 0;
    for (i64 i = 0; i < count; ++i) {
        i64 number = distinction(distinctions, tops[i]);
        if (!is_known[number]) {
            is_known[number] = true;
            answer_of[number] = static_cast<u8>(answers.count);
            examples[answers.count] = tops[i];
            answers.count += 1;
        }
        answers.of_top[i] = answer_of[number];
    }
}

// The places that no rule changes.
bool constants_fill() {
    std::fill(sets[place_all], sets[place_all] + lane_count, all_cards);
    for (i64 i = 0; i < property_count; ++i) {
        card_property property = property_at(i);
        card_set* played = sets[played_first + i];
        std::fill(played, played + lane_count, cards_having(property));
        sets[tops_first + i][value_index(property)] = all_cards;
        asked_fields[tops_first + i] = field_bit(property.field);
    }
    return true;
}

// Which set of a place is the one for each of the top cards at hand, by the fields that it asks
// about.
struct lane_table {
    u8 of[field_set_count][lane_count];
};

// For a place to itself, and for places that ask about the same field to each other.
constexpr lane_table lanes_alike() {
    lane_table lanes = {};
    for (auto& of_fields : lanes.of) {
        for (u8 lane = 0; lane < lane_count; ++lane) {
            of_fields[lane] = lane;
        }
    }
    return lanes;
}

constexpr lane_table same_lanes = lanes_alike();

// At most `lane_count` top cards.
lane_table lanes_of(const card* tops, i64 count) {
    lane_table lanes = same_lanes;
    for (u8 field = 0; field < card_field_count; ++field) {
        for (i64 lane = 0; lane < count; ++lane) {
            u8 value = tops[lane].*card_fields[field].value;
            i64 set = value_index({static_cast<card_field>(field), value});
            lanes.of[field_bit(field)][lane] = static_cast<u8>(set);
        }
    }
    return lanes;
}

template <typename combining>
void sets_combine(i64 p, const lane_table& lanes, combining combine) {
    auto [sign, left, right] = operations[p];
    const u8* left_lanes = lanes.of[asked_fields[left]];
    const u8* right_lanes = lanes.of[asked_fields[right]];
    for (i64 lane = 0; lane < lane_count; ++lane) {
        sets[p][lane] = combine(sets[left][left_lanes[lane]], sets[right][right_lanes[lane]]);
    }
}

void operation_work(i64 p, const lane_table& lanes) {
    switch (operations[p].sign) {
        case '&':
            sets_combine(p, lanes, std::bit_and<>());
            break;
        case '|':
            sets_combine(p, lanes, std::bit_or<>());
            break;
        default:
            assert(operations[p].sign == '^');
            sets_combine(p, lanes, std::bit_xor<>());
    }
}

bool asks_about_many(i64 p) {
    return (asked_fields[p] & (asked_fields[p] - 1)) != 0;
}

// Works out the needed places that ask about one field at most and lists the others.
void places_work(i64 result) {
    many_asking_count = 0;
    for (i64 p = operations_first; p <= result; ++p) {
        if (is_needed[p] && asks_about_many(p)) {
            many_asking[many_asking_count] = static_cast<u16>(p);
            many_asking_count += 1;
        } else if (is_needed[p]) {
            operation_work(p, same_lanes);
        }
    }
}

// Answers for at most `lane_count` top cards.
void answers_work(card_set* answers, i64 result, const card* tops, i64 count) {
    lane_table lanes = lanes_of(tops, count);
    for (i64 i = 0; i < many_asking_count; ++i) {
        operation_work(many_asking[i], lanes);
    }
    for (i64 lane = 0; lane < count; ++lane) {
        answers[lane] = sets[result][lanes.of[asked_fields[result]][lane]];
    }
}

}  // namespace

void rule_answers_find(rule_answers& answers, str rule, const card* tops, i64 count) {
    assert(0 <= count && count <= card_value_count);
    [[maybe_unused]] static const bool filled = constants_fill();
    place_count = operations_first;
    i64 result = rule_evaluate(rule, written_down{}).index;
    needed_mark(result);
    places_work(result);
    tops_sort(answers, tops, count);
    for (i64 first = 0; first < answers.count; first += lane_count) {
        answers_work(answers.matching + first, result, examples + first,
                     std::min(lane_count, answers.count - first));
    }
}
