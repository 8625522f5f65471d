#include "making/maker.h"

#include <algorithm>

#include "base/fingerprint.h"
#include "base/numbers.h"
#include "making/chance.h"
#include "making/directions.h"
#include "making/labels.h"
#include "making/outlines.h"
#include "making/rule_ideas.h"
#include "making/tape_ideas.h"
#include "maps/model.h"
#include "maps/writer.h"
#include "rules/cards.h"
#include "rules/game_state.h"

namespace {

constexpr f64 pixels_per_unit = 128;
constexpr i64 shorter_tries = 12;

struct count_range {
    i64 least;
    i64 most;
};

struct level_form {
    count_range states;
    count_range stones;
    i64 hand;
    i64 tape;
};

// By family and level from 1.
constexpr level_form levels[machine_kind_count][map_level_limit] = {
    {{{5, 7}, {1, 2}, 0, 0},
     {{7, 9}, {2, 2}, 0, 0},
     {{8, 11}, {2, 3}, 0, 0},
     {{10, 14}, {2, 4}, 0, 0},
     {{13, 18}, {3, 4}, 0, 0}},
    {{{4, 5}, {1, 1}, 5, 0},
     {{4, 6}, {1, 1}, 6, 0},
     {{5, 7}, {1, 2}, 7, 0},
     {{5, 8}, {1, 2}, 8, 0},
     {{6, 9}, {2, 3}, 9, 0}},
    {{{4, 5}, {1, 1}, 0, 3},
     {{4, 6}, {1, 1}, 0, 4},
     {{5, 7}, {1, 2}, 0, 4},
     {{5, 8}, {1, 2}, 0, 5},
     {{6, 9}, {2, 3}, 0, 5}},
};

const level_form& level_of(const map_wish& wish) {
    return levels[wish.family][wish.level - 1];
}

i64 choose_in(count_range range, i64 wished) {
    return wished > 0 ? wished : random_between(range.least, range.most);
}

void chance_seed(const map_wish& wish) {
    u64 fingerprint = wish.number;
    for (i64 part : {wish.family, wish.level, wish.states, wish.stones}) {
        fingerprint_add(fingerprint, static_cast<u64>(part));
    }
    random_seed(fingerprint);
}

i64 outline_choose(i64 states) {
    i64 outline = random_index(outline_count);
    while (!outline_takes(outline, states)) {
        outline = random_index(outline_count);
    }
    return outline;
}

// Places that lead nowhere, where a stone comes to rest.
void rests_set(board_plan& plan) {
    for (i64 i = 0; i < plan.place_count; ++i) {
        plan.places[i].accepting = true;
    }
    for (i64 w = 0; w < plan.way_count; ++w) {
        plan.places[plan.ways[w].from].accepting = false;
    }
}

// Some places of a board with cards are homes, in which alone a game is won.
void homes_set(board_plan& plan, i64 level) {
    constexpr i64 first_level = 3;
    constexpr i64 homes = 3;
    settings.win_mode =
        level >= first_level && random_chance(25) ? win_any_accepting : win_immediate;
    for (i64 i = 0; i < homes && settings.win_mode != win_immediate; ++i) {
        plan.places[random_index(plan.place_count)].accepting = true;
    }
}

// The first stone stands where every way begins, the others on one of the first so many places and
// not at rest.
void stones_set(const board_plan& plan, i64 places, i64 count) {
    dyn_array_push(stones, 0);
    while (stones.count < count) {
        const i64 place = random_index(places);
        if (!plan.places[place].accepting) {
            dyn_array_push(stones, static_cast<u16>(place));
        }
    }
}

void loops_add(board_plan& plan) {
    const i64 last = plan.places[plan.place_count - 1].column;
    for (i64 i = 0; i < plan.place_count; ++i) {
        if (plan.places[i].column == last) {
            plan_way_add(plan, i, i, plan.places[i].x > 0 ? 270 : 90);
        }
    }
}

// So many copies that a third of the deck is left when all seats there can be have their hands,
// also when a tape of the map before is withheld from it.
void copies_set() {
    constexpr i64 other_tape = 9;
    const i64 dealt = player_limit * settings.hand_size * 3 / 2 + other_tape;
    settings.deck_copies = 1 + dealt / card_kinds_count(deck_kinds());
}

// The first way out of each place gets a rule that nobody is stuck at. A rule that has no room
// makes way for a short one, which nobody is stuck at either.
bool rules_set(board_plan& plan, i64 idea) {
    const rule_fields fields = rule_fields_choose(idea);
    u64 left = 0;  // places that have a way out already, as bits
    for (i64 w = 0; w < plan.way_count; ++w) {
        plan_way& way = plan.ways[w];
        const bool is_first = (left >> way.from & 1) == 0;
        left |= u64{1} << way.from;
        way.text = is_first            ? safe_rule(fields)
                   : random_chance(65) ? idea_rule(idea, fields)
                                       : plain_rule(fields);
    }
    i64 crowded = labels_place(plan);
    for (i64 i = 0; i < shorter_tries && crowded != no_way; ++i) {
        plan.ways[crowded].text = short_rule(fields);
        crowded = labels_place(plan);
    }
    return crowded == no_way;
}

void map_take(const board_plan& plan) {
    game_map.origin_x = 0;
    game_map.origin_y = 0;
    game_map.scale = pixels_per_unit;
    for (i64 i = 0; i < plan.place_count; ++i) {
        const plan_place& place = plan.places[i];
        map_add_state(static_cast<f64>(place.x) / pixels_per_unit,
                      static_cast<f64>(place.y) / pixels_per_unit, place.accepting ? 1 : 0);
    }
    for (i64 w = 0; w < plan.way_count; ++w) {
        const plan_way& way = plan.ways[w];
        map_add_transition(static_cast<u16>(way.from), static_cast<u16>(way.to), way.bend,
                           static_cast<f32>(way.label_dx), static_cast<f32>(way.label_dy),
                           way.text);
    }
}

// A state machine leads on to its rests. It has no words, so its outline is all its idea.
bool state_machine_make(board_plan& plan, const map_wish& wish, i64) {
    settings.win_mode = win_all_accepting;
    ways_thin(plan);
    places_mirror(plan);
    rests_set(plan);
    const i64 first_half = std::max<i64>(2, plan.place_count / 2);
    stones_set(plan, first_half, choose_in(level_of(wish).stones, wish.stones));
    return true;
}

// A machine with cards leads round: no place of it is an end.
void round_make(board_plan& plan, const map_wish& wish) {
    ways_turn(plan);
    places_mirror(plan);
    if (plan.outline == outline_tree) {
        loops_add(plan);
    }
    stones_set(plan, plan.place_count, choose_in(level_of(wish).stones, wish.stones));
    homes_set(plan, wish.level);
}

bool pushdown_machine_make(board_plan& plan, const map_wish& wish, i64 idea) {
    round_make(plan, wish);
    settings.deck_colours = 3;
    settings.deck_shapes = random_between(3, 4);
    settings.deck_numbers = 4;
    settings.hand_size = level_of(wish).hand;
    settings.tape_length = 0;
    copies_set();
    return rules_set(plan, idea);
}

bool turing_machine_make(board_plan& plan, const map_wish& wish, i64 idea) {
    round_make(plan, wish);
    tape_deck_set(idea);
    settings.hand_size = 0;
    settings.tape_length = level_of(wish).tape;
    copies_set();
    for (i64 w = 0; w < plan.way_count; ++w) {
        plan.ways[w].text = tape_action_choose(idea);
    }
    const i64 wanted = random_between(2, 4);
    tape_goals_add(idea, wanted);
    return labels_place(plan) == no_way;
}

struct family_maker {
    i64 ideas;
    str (*idea_name)(i64 idea);
    // Makes a map of the outline, about that idea; false when its texts have no room.
    bool (*make)(board_plan& plan, const map_wish& wish, i64 idea);
};

constexpr family_maker makers[machine_kind_count] = {
    {1, [](i64) { return str(); }, state_machine_make},
    {rule_idea_count, rule_idea_name, pushdown_machine_make},
    {tape_idea_count, tape_idea_name, turing_machine_make},
};

void name_put(text_builder& name, const map_wish& wish, str idea, i64 outline) {
    if (idea.length > 0) {
        text_builder_put_str(name, idea);
        text_builder_put(name, '_');
    }
    text_builder_put_str(name, outline_name(outline));
    text_builder_put(name, '_');
    text_builder_put_int(name, wish.level);
    text_builder_put(name, '_');
    text_builder_put_int(name, static_cast<i64>(wish.number));
}

// Makes it the loaded map, whose rules lie in the frame arena.
bool loaded_map_make(const map_wish& wish, text_builder& name) {
    const family_maker& maker = makers[wish.family];
    board_plan plan;
    const i64 states = choose_in(level_of(wish).states, wish.states);
    const i64 outline = outline_choose(states);
    const i64 idea = random_index(maker.ideas);
    outline_draw(plan, outline, states);
    const bool is_made = maker.make(plan, wish, idea);
    map_take(plan);
    if (is_made) {
        name_put(name, wish, maker.idea_name(idea), outline);
    }
    return is_made;
}

}  // namespace

bool map_make(const map_wish& wish, text_builder& text, text_builder& name) {
    const random_state chance = random_generator;
    const i64 mark = arenas[arena_persistent].offset;
    const whole_map before = map_exchange({});
    chance_seed(wish);
    const bool is_made = loaded_map_make(wish, name);
    if (is_made) {
        map_write(
            wish.family,
            [](void* to, str piece) {
                text_builder_put_str(*static_cast<text_builder*>(to), piece);
            },
            &text);
    }
    map_exchange(before);
    arena_rewind(arena_persistent, mark);
    random_generator = chance;
    return is_made;
}
