#include "rules/rule_tops.h"

#include <algorithm>
#include <cassert>

#include "rules/rule_parser.h"

// A rule becomes a list of places, each the union, intersection or difference of two earlier ones:
// for each node of its tree the place of the cards it holds for, and the place that is all cards if
// it holds for the top card. What a place is depends on the top card through those of its fields
// alone that the place asks about. Most places ask about one field at most; they are worked out
// once, for each value of the field. The others are worked out for a few top cards at a time. Top
// cards that do not differ in the properties asked for share an answer, which is worked out once.
// So a rule costs its length times the answers over `lane_count`, not times the top cards.

namespace {

constexpr i64 field_value_count = 6;  // of every field
constexpr i64 property_count = card_field_count * field_value_count;
static_assert(card_colour_count == field_value_count && card_shape_count == field_value_count &&
              card_number_count == field_value_count);

// The first places are given; those from `operations_first` on are operations.
constexpr u16 place_none = 0;
constexpr u16 place_all = 1;
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
    rule_node_kind kind;  // `node_and`, `node_or` or `node_xor`
    u16 left;             // places before this one
    u16 right;
};

// The places of a node of the rule.
struct node_places {
    u16 played;
    u16 top;
};

// The rule that is looked at.
struct rule_work {
    operation operations[place_limit];
    u8 asked_fields[place_limit];  // of the top card, as bits
    card_set sets[place_limit][lane_count];
    i64 place_count;
    node_places of_nodes[rule_node_limit];
    bool is_needed[place_limit];   // by the result
    u16 many_asking[place_limit];  // the needed places that ask about more than one field
    i64 many_asking_count;
    card examples[card_value_count];  // by answer: a top card that it is for
};

rule_work work;

constexpr u8 field_bit(i64 field) {
    return static_cast<u8>(1 << field);
}

constexpr i64 field_set_count = 1 << card_field_count;

// The place of a value, from 0, among those of its field.
constexpr i64 value_index(card_property property) {
    return property.value - card_fields[property.field].first_value;
}

constexpr u16 property_index(card_property property) {
    return static_cast<u16>(property.field * field_value_count + value_index(property));
}

// What no rule changes, by place.
struct given_places {
    u8 asked_fields[operations_first] = {};
    card_set sets[operations_first][lane_count] = {};
};

given_places given_places_make() {
    given_places made;
    std::fill_n(made.sets[place_all], lane_count, all_cards);
    for (u8 field = 0; field < card_field_count; ++field) {
        for (u8 i = 0; i < field_value_count; ++i) {
            const card_property property = {static_cast<card_field>(field),
                                            static_cast<u8>(card_fields[field].first_value + i)};
            const i64 index = property_index(property);
            std::fill_n(made.sets[played_first + index], lane_count, cards_having(property));
            made.sets[tops_first + index][i] = all_cards;
            made.asked_fields[tops_first + index] = field_bit(field);
        }
    }
    return made;
}

const given_places given = given_places_make();

u8 asked_fields(i64 place) {
    return place < operations_first ? given.asked_fields[place] : work.asked_fields[place];
}

const card_set* sets_of(i64 place) {
    return place < operations_first ? given.sets[place] : work.sets[place];
}

u16 operation_write(rule_node_kind kind, u16 left, u16 right) {
    assert(work.place_count < place_limit);
    work.operations[work.place_count] = {kind, left, right};
    work.asked_fields[work.place_count] = asked_fields(left) | asked_fields(right);
    work.place_count += 1;
    return static_cast<u16>(work.place_count - 1);
}

// Writes the operations of a node behind those of its own parts.
node_places node_write(const rule_node& node) {
    const node_places& left = work.of_nodes[node.left];
    const node_places& right = work.of_nodes[node.right];
    switch (node.kind) {
        case node_property: {
            const u16 index = property_index(node.property);
            return {static_cast<u16>(played_first + index), static_cast<u16>(tops_first + index)};
        }
        case node_any:
            return {place_all, place_all};
        case node_top:
            return {left.top, left.top};
        case node_both: {
            const u16 both = operation_write(node_and, left.played, left.top);
            return {both, both};
        }
        case node_not:
            return {operation_write(node_xor, place_all, left.played),
                    operation_write(node_xor, place_all, left.top)};
        default:
            return {operation_write(node.kind, left.played, right.played),
                    operation_write(node.kind, left.top, right.top)};
    }
}

// Writes the operations of the rule; returns the place of the cards that it holds for.
i64 rule_write(str rule) {
    work.place_count = operations_first;
    const rule_tree& tree = rule_parse(rule);
    for (i64 i = 0; i < tree.count; ++i) {
        work.of_nodes[i] = node_write(tree.nodes[i]);
    }
    return tree.count > 0 ? work.of_nodes[tree.count - 1].played : place_none;
}

void needed_mark(i64 result) {
    std::fill(work.is_needed, work.is_needed + work.place_count, false);
    work.is_needed[result] = true;
    for (i64 p = result; p >= operations_first; --p) {
        if (work.is_needed[p]) {
            work.is_needed[work.operations[p].left] = true;
            work.is_needed[work.operations[p].right] = true;
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
            bool is_asked = work.is_needed[tops_first + field * field_value_count + i];
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
            work.examples[answers.count] = tops[i];
            answers.count += 1;
        }
        answers.of_top[i] = answer_of[number];
    }
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

card_set sets_combine(rule_node_kind kind, const card_set& left, const card_set& right) {
    switch (kind) {
        case node_and:
            return left & right;
        case node_or:
            return left | right;
        default:
            assert(kind == node_xor);
            return left ^ right;
    }
}

void operation_work(i64 p, const lane_table& lanes) {
    const auto [kind, left, right] = work.operations[p];
    const u8* left_lanes = lanes.of[asked_fields(left)];
    const u8* right_lanes = lanes.of[asked_fields(right)];
    const card_set* left_sets = sets_of(left);
    const card_set* right_sets = sets_of(right);
    for (i64 lane = 0; lane < lane_count; ++lane) {
        work.sets[p][lane] =
            sets_combine(kind, left_sets[left_lanes[lane]], right_sets[right_lanes[lane]]);
    }
}

bool asks_about_many(i64 p) {
    return (asked_fields(p) & (asked_fields(p) - 1)) != 0;
}

// Works out the needed places that ask about one field at most and lists the others.
void places_work(i64 result) {
    work.many_asking_count = 0;
    for (i64 p = operations_first; p <= result; ++p) {
        if (work.is_needed[p] && asks_about_many(p)) {
            work.many_asking[work.many_asking_count] = static_cast<u16>(p);
            work.many_asking_count += 1;
        } else if (work.is_needed[p]) {
            operation_work(p, same_lanes);
        }
    }
}

// Answers for at most `lane_count` top cards.
void answers_work(card_set* answers, i64 result, const card* tops, i64 count) {
    lane_table lanes = lanes_of(tops, count);
    for (i64 i = 0; i < work.many_asking_count; ++i) {
        operation_work(work.many_asking[i], lanes);
    }
    for (i64 lane = 0; lane < count; ++lane) {
        answers[lane] = sets_of(result)[lanes.of[asked_fields(result)][lane]];
    }
}

}  // namespace

void rule_answers_find(rule_answers& answers, str rule, const card* tops, i64 count) {
    assert(0 <= count && count <= card_value_count);
    const i64 result = rule_write(rule);
    needed_mark(result);
    places_work(result);
    tops_sort(answers, tops, count);
    for (i64 first = 0; first < answers.count; first += lane_count) {
        answers_work(answers.matching + first, result, work.examples + first,
                     std::min(lane_count, answers.count - first));
    }
}
