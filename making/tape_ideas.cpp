#include "making/tape_ideas.h"

#include <algorithm>
#include <iterator>

#include "base/text_builder.h"
#include "making/chance.h"
#include "maps/card.h"
#include "maps/model.h"
#include "rules/cards.h"

namespace {

struct tape_idea {
    str name;
    card_field field;  // that is written and counted
    u8 one;            // the measures that count one value of it, and either of two
    u8 either;
    i64 map_settings::*deck_values;
};

constexpr tape_idea ideas[tape_idea_count] = {
    {"paint", field_colour, measure_colour, measure_either_colour, &map_settings::deck_colours},
    {"carve", field_shape, measure_shape, measure_either_shape, &map_settings::deck_shapes},
    {"count", field_number, measure_number, measure_either_number, &map_settings::deck_numbers},
};

constexpr i64 fresh_values = 3;
constexpr i64 goal_tries = 40;

card card_with(card_field field, i64 value) {
    card c;
    c.*card_fields[field].value = static_cast<u8>(card_fields[field].first_value + value);
    return c;
}

i64 old_values(const tape_idea& idea) {
    return settings.*idea.deck_values;
}

card fresh_card(const tape_idea& idea) {
    return card_with(idea.field, old_values(idea) + random_index(fresh_values));
}

// Many of one value.
goal many_goal(const tape_idea& idea) {
    const u8 compared = random_chance(25) ? compare_exactly : compare_at_least;
    const i64 target = random_between(2, settings.tape_length - 1);
    return {idea.one, compared, target, fresh_card(idea), {}};
}

// Many of two values.
goal either_goal(const tape_idea& idea) {
    const i64 left_out = random_index(fresh_values);
    const i64 first = old_values(idea) + (left_out == 0 ? 1 : 0);
    const i64 second = old_values(idea) + (left_out == 2 ? 1 : 2);
    const i64 target = random_between(settings.tape_length - 1, settings.tape_length);
    return {idea.either, compare_at_least, target, card_with(idea.field, first),
            card_with(idea.field, second)};
}

// None of the deck's first value, or one alone.
goal few_goal(const tape_idea& idea) {
    return {idea.one, compare_at_most, random_index(2), card_with(idea.field, 0), {}};
}

goal sum_goal() {
    const i64 least = 3 * settings.tape_length;
    return {measure_sum,
            random_chance(30) ? u8{compare_exactly} : u8{compare_at_least},
            random_between(least - 2, least + 2),
            {},
            {}};
}

goal goal_choose(const tape_idea& idea) {
    if (idea.field == field_number && random_chance(40)) {
        return sum_goal();
    }
    const i64 kind = random_index(8);
    return kind < 5 ? many_goal(idea) : kind < 7 ? either_goal(idea) : few_goal(idea);
}

bool goals_are_alike(const goal& a, const goal& b) {
    return a.measure == b.measure && a.comparison == b.comparison && a.target == b.target &&
           a.card_a == b.card_a && a.card_b == b.card_b;
}

}  // namespace

str tape_idea_name(i64 idea) {
    return ideas[idea].name;
}

void tape_deck_set(i64 idea) {
    constexpr i64 others = 3;
    settings.deck_colours = settings.deck_shapes = settings.deck_numbers = others;
    settings.*ideas[idea].deck_values = random_between(1, 2);
}

str tape_action_choose(i64 idea) {
    static constexpr str moves[] = {"L", "R", "L", "R", ""};
    const tape_idea& about = ideas[idea];
    const card old_card = card_with(about.field, random_index(old_values(about)));
    const card written = random_chance(20) ? old_card : fresh_card(about);
    const char symbol = card_symbol(written, about.field);
    return text_join({{&symbol, 1}, moves[random_index(std::ssize(moves))]});
}

void tape_goals_add(i64 idea, i64 count) {
    for (i64 i = 0; i < goal_tries && goals.count < count; ++i) {
        const goal chosen = goal_choose(ideas[idea]);
        const bool is_new = std::none_of(goals.begin(), goals.end(),
                                         [&](const goal& g) { return goals_are_alike(g, chosen); });
        if (is_new) {
            dyn_array_push(goals, chosen);
        }
    }
}
