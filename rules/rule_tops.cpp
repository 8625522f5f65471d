#include "rules/rule_tops.h"

#include <algorithm>
#include <cassert>
#include <functional>
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

// The list is worked through for so many top cards at once.
constexpr i64 lane_count = 8;
constexpr i64 lane_words = std::size(card_set().words);
constexpr i64 row_words = lane_count * lane_words;

struct operation {
    char sign;  // '&', '|' or '^'
    u16 left;   // places before this one
    u16 right;
};

operation operations[place_limit];
i64 place_count;                   // places of the rule that is looked at
card examples[card_value_count];   // by answer: a top card that it is for
bool is_needed[place_limit];       // by the result
u64 rows[place_limit][row_words];  // of every place its set for each of these top cards

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

void lane_write(i64 p, i64 lane, const card_set& set) {
    std::copy(set.words, set.words + lane_words, rows[p] + lane * lane_words);
}

card_set lane_read(i64 p, i64 lane) {
    card_set set;
    const u64* first = rows[p] + lane * lane_words;
    std::copy(first, first + lane_words, set.words);
    return set;
}

void constant_fill(i64 p, const card_set& set) {
    for (i64 lane = 0; lane < lane_count; ++lane) {
        lane_write(p, lane, set);
    }
}

// The places that no rule and no top card changes.
bool constants_fill() {
    constant_fill(place_none, {});
    constant_fill(place_all, all_cards);
    for (i64 i = 0; i < property_count; ++i) {
        constant_fill(played_first + i, cards_having(property_at(i)));
    }
    return true;
}

void tops_fill(const card* tops, i64 count) {
    for (i64 i = 0; i < property_count; ++i) {
        if (is_needed[tops_first + i]) {
            card_property property = property_at(i);
            for (i64 lane = 0; lane < count; ++lane) {
                lane_write(tops_first + i, lane,
                           card_has(tops[lane], property) ? all_cards : card_set{});
            }
        }
    }
}

template <typename combining>
void rows_combine(i64 p, combining combine) {
    const u64* left = rows[operations[p].left];
    const u64* right = rows[operations[p].right];
    for (i64 i = 0; i < row_words; ++i) {
        rows[p][i] = combine(left[i], right[i]);
    }
}

void operation_work(i64 p) {
    switch (operations[p].sign) {
        case '&':
            rows_combine(p, std::bit_and<u64>());
            break;
        case '|':
            rows_combine(p, std::bit_or<u64>());
            break;
        default:
            assert(operations[p].sign == '^');
            rows_combine(p, std::bit_xor<u64>());
    }
}

// Works the list through up to `result` for at most `lane_count` top cards.
void places_work(i64 result, const card* tops, i64 count) {
    tops_fill(tops, count);
    for (i64 p = operations_first; p <= result; ++p) {
        if (is_needed[p]) {
            operation_work(p);
        }
    }
}

}  // namespace

void rule_answers_find(rule_answers& answers, str rule, const card* tops, i64 count) {
    assert(0 <= count && count <= card_value_count);
    [[maybe_unused]] static const bool filled = constants_fill();
    place_count = operations_first;
    i64 result = rule_evaluate(rule, written_down{}).index;
    needed_mark(result);
    tops_sort(answers, tops, count);
    for (i64 first = 0; first < answers.count; first += lane_count) {
        i64 some = std::min(lane_count, answers.count - first);
        places_work(result, examples + first, some);
        for (i64 lane = 0; lane < some; ++lane) {
            answers.matching[first + lane] = lane_read(result, lane);
        }
    }
}
