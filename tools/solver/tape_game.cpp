#include "tools/solver/tape_game.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "rules/cards.h"
#include "rules/goal.h"

namespace {

constexpr i64 head_steps[step_count] = {0, -1, 1, 0};

struct values_in_play {
    bool of[card_field_count][card_field_values];
};

void card_note(values_in_play& values, card c) {
    for (i64 field = 0; field < card_field_count; ++field) {
        values.of[field][c.*card_fields[field].value] = true;
    }
}

values_in_play values_find(const std::vector<card>& cards, const placement_graph& placements) {
    values_in_play values = {};
    std::for_each(cards.begin(), cards.end(), [&](card c) { card_note(values, c); });
    for (u32 arc : placements.arcs) {
        str action = game_map.transitions[arc].rule;
        card_property written;
        if (action.length > 0 && card_property_read(action[0], written)) {
            values.of[written.field][written.value] = true;
        }
    }
    return values;
}

void tape_show(std::initializer_list<card> cards) {
    tape.count = 0;
    for (card c : cards) {
        dyn_array_push(tape, c);
    }
}

// Whether a goal counts two cards that differ in one value alike, beside each other as well.
bool are_alike(card one, card other, const std::vector<goal>& wanted) {
    return std::ranges::all_of(wanted, [&](const goal& g) {
        tape_show({one, other});
        const i64 both = goal_count(g);
        tape_show({one, one});
        const i64 ones = goal_count(g);
        tape_show({other, other});
        return both == ones && both == goal_count(g);
    });
}

// Gives every value in play the class of the first one that is alike, or a new one.
void field_classify(card_classes& classes, i64 field, const values_in_play& values,
                    const std::vector<goal>& wanted, std::vector<u8>& firsts) {
    firsts.clear();
    for (u8 value = 0; value < card_field_values; ++value) {
        if (!values.of[field][value]) {
            continue;
        }
        auto with = [&](u8 v) {
            card c;
            c.*card_fields[field].value = v;
            return c;
        };
        auto alike = std::ranges::find_if(
            firsts, [&](u8 first) { return are_alike(with(first), with(value), wanted); });
        classes.of[field][value] = alike - firsts.begin();
        if (alike == firsts.end()) {
            firsts.push_back(value);
        }
    }
    classes.counts[field] = std::max<i64>(1, static_cast<i64>(firsts.size()));
}

card_classes classes_find(const values_in_play& values, const std::vector<goal>& wanted) {
    card_classes classes = {};
    std::vector<u8> firsts[card_field_count];
    classes.radix = 1;
    for (i64 field = 0; field < card_field_count; ++field) {
        field_classify(classes, field, values, wanted, firsts[field]);
        classes.strides[field] = classes.radix;
        classes.radix *= classes.counts[field];
    }
    for (i64 digit = 0; digit < classes.radix; ++digit) {
        for (i64 field = 0; field < card_field_count; ++field) {
            const i64 one = digit / classes.strides[field] % classes.counts[field];
            if (!firsts[field].empty()) {
                classes.shown[digit].*card_fields[field].value = at(firsts[field], one);
            }
        }
    }
    return classes;
}

tape_action action_of(const card_classes& classes, str text) {
    tape_action action;
    card_property written;
    if (text.length > 0 && card_property_read(text[0], written) &&
        classes.counts[written.field] > 1) {
        action = {classes.strides[written.field], classes.counts[written.field],
                  classes.of[written.field][written.value], 0};
    }
    if (text.length > 1) {
        action.step = text[1] == 'L' ? 1 : text[1] == 'R' ? 2 : 3;
    }
    return action;
}

// A head beyond the tape is the last place, so that there is one more.
void heads_count(tape_game& made) {
    made.length = tape.count;
    made.heads = tape_head < made.length ? made.length : made.length + 1;
    for (i64 step = 0; step < step_count; ++step) {
        made.head_before[step].resize(static_cast<std::size_t>(made.heads));
        for (i64 place = 0; place < made.heads; ++place) {
            const i64 head = place < made.length ? place : tape_head;
            const i64 after = step == 0 ? place
                              : made.length == 0
                                  ? 0
                                  : floor_modulo(head + head_steps[step], made.length);
            made.head_after[step].push_back(after);
            at(made.head_before[step], after).push_back(place);
        }
    }
}

// False when they are more than numbers go.
bool tapes_count(tape_game& made, i64 most) {
    for (i64 place = 0; place < made.length; ++place) {
        made.powers.push_back(made.tapes);
        made.tapes *= made.classes.radix;
        if (made.tapes > most) {
            return false;
        }
    }
    return true;
}

void met_find(tape_game& made, const std::vector<goal>& wanted) {
    made.met.assign(static_cast<std::size_t>(made.tapes), 0);
    tape.count = 0;
    for (i64 place = 0; place < made.length; ++place) {
        dyn_array_push(tape, card());
    }
    for (i64 number = 0; number < made.tapes; ++number) {
        for (i64 place = 0; place < made.length; ++place) {
            tape[place] = made.classes.shown[number / at(made.powers, place) % made.classes.radix];
        }
        for (i64 mover = 0; mover < made.movers; ++mover) {
            u8 bit = goal_met(at(wanted, mover)) ? 1 : 0;
            at(made.met, number) |= static_cast<u8>(bit << mover);
        }
    }
}

bool is_same(const goal& one, const goal& other) {
    return one.measure == other.measure && one.comparison == other.comparison &&
           one.target == other.target && one.card_a == other.card_a && one.card_b == other.card_b;
}

// What takes memory for each of them.
i64 game_bytes(const tape_game& made) {
    const i64 cells = made.node_count * made.movers;
    return made.tapes + cells * static_cast<i64>(sizeof(u32)) + cells / 4;
}

work_state size_check(tape_game& made) {
    constexpr i64 numbered = (i64{1} << 32) - 1;
    const i64 cells_most = work_bytes_most() / static_cast<i64>(sizeof(u32));
    const i64 nodes_most = std::min(cells_most, numbered) / made.movers;
    if (!tapes_count(made, nodes_most)) {
        return work_too_large;
    }
    const i64 frames = made.placements->pool.count * made.heads;
    if (frames > nodes_most / made.tapes) {
        return work_too_large;
    }
    made.node_count = frames * made.tapes;
    return work_check(placements_bytes(*made.placements) + game_bytes(made));
}

void game_fill(tape_game& made, const std::vector<goal>& wanted) {
    for (u32 arc : made.placements->arcs) {
        made.actions.push_back(action_of(made.classes, game_map.transitions[arc].rule));
    }
    made.placements_before = edges_reversed(made.placements->moves, &made.moves_before);
    met_find(made, wanted);
}

}  // namespace

i64 card_digit(const card_classes& classes, card c) {
    i64 digit = 0;
    for (i64 field = 0; field < card_field_count; ++field) {
        digit += classes.of[field][c.*card_fields[field].value] * classes.strides[field];
    }
    return digit;
}

work_state tape_game_make(tape_game& made, const placement_graph& placements,
                          const std::vector<goal>& wanted, const std::vector<card>& cards) {
    made = {};
    made.seats = static_cast<i64>(wanted.size());
    const bool same =
        std::ranges::all_of(wanted, [&](const goal& g) { return is_same(g, wanted[0]); });
    made.movers = same ? 1 : made.seats;
    made.placements = &placements;
    const std::vector<card> before(tape.begin(), tape.end());
    heads_count(made);
    made.classes = classes_find(values_find(cards, placements), wanted);
    const work_state state = size_check(made);
    if (state == work_well) {
        game_fill(made, wanted);
    }
    tape.count = 0;
    std::for_each(before.begin(), before.end(), [](card c) { dyn_array_push(tape, c); });
    return state;
}

i64 tape_number_now(const tape_game& played) {
    i64 number = 0;
    for (i64 place = 0; place < played.length; ++place) {
        number += card_digit(played.classes, tape[place]) * at(played.powers, place);
    }
    return number;
}

i64 head_now(const tape_game& played) {
    return std::min(tape_head, played.length);
}
