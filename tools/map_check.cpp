#include "tools/map_check.h"

#include <algorithm>
#include <set>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/goal.h"
#include "rules/rule.h"
#include "rules/turns.h"

namespace {

// Searching the tapes takes the cube of their length; a longer one does not fit a window.
constexpr i64 tape_search_limit = 64;

void references_check(remarks& found) {
    for (i64 i = 0; i < stones.count; ++i) {
        if (!state_exists(stones[i])) {
            found.push_back("stone " + std::to_string(i) + " stands on missing " +
                            state_name(stones[i]));
        }
    }
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        if (!transition_exists(game_map.transitions[t])) {
            found.push_back(transition_name(t) + " names a missing state");
        }
    }
}

// Only the first transition between two states can be selected.
void twins_check(remarks& found) {
    std::set<std::pair<u16, u16>> seen;
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        const transition& arc = game_map.transitions[t];
        if (!seen.insert({arc.from, arc.to}).second && !is_caption(t)) {
            found.push_back(transition_name(t) +
                            " stands behind another one: humans cannot use it");
        }
    }
}

// The cards that a game on this map is played with.
card_set cards_in_play() {
    card_set values;
    for (const dyn_array<card>* pile : {&deck.cards, &tape}) {
        for (card c : *pile) {
            card_set_add(values, c);
        }
    }
    return values;
}

card_set playable_cards(str rule, const card_set& in_play) {
    return rule_matching_cards(rule) & in_play;
}

// Whether the rule lets a card in play be played on some top card or on the empty pile.
bool rule_can_match(str rule, const card_set& in_play) {
    discard_pile.cards.count = 0;
    bool matches = card_set_count(playable_cards(rule, in_play)) > 0;
    for (i64 value = 0; value < card_value_count && !matches; ++value) {
        if (card_set_has(in_play, card_of_value(value))) {
            dyn_array_push(discard_pile.cards, card_of_value(value));
            matches = card_set_count(playable_cards(rule, in_play)) > 0;
            discard_pile.cards.count = 0;
        }
    }
    return matches;
}

// Whether anybody can win at all.
void win_mode_check(remarks& found) {
    bool accepts = std::any_of(game_map.states.begin(), game_map.states.end(),
                               [](const map_state& s) { return s.accepting != 0; });
    if (settings.win_mode >= win_mode_count) {
        found.push_back("win mode " + std::to_string(settings.win_mode) + " does not exist");
    } else if (settings.win_mode != win_immediate && !accepts) {
        found.push_back("win mode: no state accepts, so nobody can win");
    }
}

void hands_check(remarks& found) {
    if (deck.cards.count < 2 * settings.hand_size) {
        found.push_back("the deck holds too few cards for two hands");
    }
}

void rules_check(const card_set& in_play, remarks& found) {
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        str rule = game_map.transitions[t].rule;
        if (is_caption(t)) {
            continue;
        }
        if (rule_stop stop = rule_stop_find(rule); stop.reason.length > 0) {
            found.push_back(transition_name(t) + " has a rule that does not parse: byte " +
                            std::to_string(stop.position) + ": " +
                            std::string(stop.reason.begin(), stop.reason.end()));
        } else if (!rule_can_match(rule, in_play)) {
            found.push_back(transition_name(t) + " has a rule that no card in play ever meets");
        }
    }
}

void start_check(const card_set& in_play, remarks& found) {
    discard_pile.cards.count = 0;
    for (const transition& arc : game_map.transitions) {
        if (stone_find(arc.from) != no_index &&
            card_set_count(playable_cards(arc.rule, in_play)) > 0) {
            return;
        }
    }
    found.push_back("no card can be played on the empty pile: the game cannot begin");
}

// Whether a stone may ever take the transition.
bool can_be_used(const transition& arc, const card_set& in_play) {
    return transition_exists(arc) &&
           (machine_kind != pushdown_machine || rule_can_match(arc.rule, in_play));
}

void reach_check(const card_set& in_play, remarks& found) {
    std::set<u16> reached(stones.begin(), stones.end());
    std::size_t before = 0;
    while (before != reached.size()) {
        before = reached.size();
        for (const transition& arc : game_map.transitions) {
            if (reached.count(arc.from) != 0 && can_be_used(arc, in_play)) {
                reached.insert(arc.to);
            }
        }
    }
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (reached.count(static_cast<u16>(s)) == 0) {
            found.push_back("no stone can reach " + state_name(s));
        }
    }
}

bool has_way_out(i64 state) {
    return std::any_of(game_map.transitions.begin(), game_map.transitions.end(),
                       [&](const transition& arc) { return arc.from == state; });
}

void nimbers_check(remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (state_nimber(static_cast<u16>(s)) == no_nimber) {
            found.push_back("unknown nimbers: the map has a cycle");
            return;
        }
    }
}

void last_mover_check(remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (game_map.states[s].accepting && has_way_out(s)) {
            found.push_back(state_name(s) + " accepts but has a way out");
        }
    }
    bool all = settings.win_mode == win_all_accepting;
    if (!all && !(settings.win_mode == win_any_accepting && stones.count == 1)) {
        found.push_back("win mode: another than the last mover may win");
    }
}

void state_machine_check(bool cyclic, remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (!game_map.states[s].accepting && !has_way_out(s)) {
            found.push_back(state_name(s) + " has no way out but does not accept");
        }
    }
    if (!cyclic) {
        nimbers_check(found);
        last_mover_check(found);
    }
}

bool action_changes(str action, card written_on) {
    for (card& c : tape) {
        c = written_on;
    }
    tape_head = 0;
    tape_apply(action);
    bool written = std::any_of(tape.begin(), tape.end(), [&](card c) { return c != written_on; });
    return written || tape_head != 0;
}

void actions_check(remarks& found) {
    constexpr card first = {0, 0, 1};
    constexpr card second = {1, 1, 2};
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        str action = game_map.transitions[t].rule;
        if (!action_changes(action, first) && !action_changes(action, second)) {
            found.push_back(transition_name(t) + " has an action that does nothing");
        }
    }
}

// The cards that can stand on the tape: those in play, and each of them with one thing written.
std::vector<card> tape_cards(const card_set& in_play) {
    std::vector<card> cards;
    for (i64 value = 0; value < card_value_count; ++value) {
        if (card_set_has(in_play, card_of_value(value))) {
            cards.push_back(card_of_value(value));
        }
    }
    std::size_t dealt = cards.size();
    for (const transition& arc : game_map.transitions) {
        for (std::size_t i = 0; i < dealt && tape.count > 0; ++i) {
            tape_head = 0;
            tape[0] = cards[i];
            tape_apply(arc.rule);
            cards.push_back(tape[0]);
        }
    }
    return cards;
}

template <typename field>
std::vector<u8> field_values(const std::vector<card>& cards, field value_of) {
    std::set<u8> values;
    for (card c : cards) {
        values.insert(value_of(c));
    }
    return {values.begin(), values.end()};
}

// A few cards that between them show every colour, shape and number of the given ones.
std::vector<card> sample_cards(const std::vector<card>& cards) {
    std::vector<u8> colours = field_values(cards, [](card c) { return c.colour; });
    std::vector<u8> shapes = field_values(cards, [](card c) { return c.shape; });
    std::vector<u8> numbers = field_values(cards, [](card c) { return c.number; });
    std::vector<card> samples;
    for (std::size_t i = 0; i < std::max({colours.size(), shapes.size(), numbers.size()}); ++i) {
        samples.push_back(
            {colours[i % colours.size()], shapes[i % shapes.size()], numbers[i % numbers.size()]});
    }
    return samples;
}

struct goal_answers {
    bool met = false;
    bool missed = false;
};

void goal_ask(const goal& g, goal_answers& answers) {
    (goal_met(g) ? answers.met : answers.missed) = true;
}

// Asks the goal about tapes that give every count it can have: those of two kinds of card, in every
// share, for sums and counted cards, and those of the first so many kinds for distinct ones.
goal_answers goal_try(const goal& g, const std::vector<card>& samples) {
    goal_answers answers;
    for (card a : samples) {
        for (card b : samples) {
            std::fill(tape.begin(), tape.end(), a);
            goal_ask(g, answers);
            for (card& c : tape) {
                c = b;
                goal_ask(g, answers);
            }
        }
    }
    i64 kinds = static_cast<i64>(samples.size());
    for (i64 distinct = 1; distinct <= kinds; ++distinct) {
        for (i64 i = 0; i < tape.count; ++i) {
            tape[i] = samples[static_cast<std::size_t>(i % distinct)];
        }
        goal_ask(g, answers);
    }
    return answers;
}

void goals_check(const card_set& in_play, remarks& found) {
    if (goals.count == 0) {
        found.push_back("no goal: nobody can win");
    }
    std::vector<card> samples = sample_cards(tape_cards(in_play));
    for (i64 i = 0; i < goals.count && tape.count <= tape_search_limit; ++i) {
        goal_answers answers = goal_try(goals[i], samples);
        if (!answers.met || !answers.missed) {
            found.push_back("goal " + std::to_string(i) + " is met by " +
                            (answers.met ? "every" : "no") + " tape");
        }
    }
}

}  // namespace

bool is_caption(i64 index) {
    const transition& arc = game_map.transitions[index];
    const transition* earlier = game_map.transitions.begin();
    bool behind = std::any_of(earlier, earlier + index, [&](const transition& t) {
        return t.from == arc.from && t.to == arc.to && t.bend == arc.bend;
    });
    bool words = std::find(arc.rule.begin(), arc.rule.end(), '%') != arc.rule.end();
    return machine_kind != turing_machine && behind && words;
}

remarks map_check(bool cyclic) {
    remarks found;
    if (game_map.states.count == 0) {
        return {"no states: nothing can be played"};
    }
    game_start();
    card_set in_play = cards_in_play();
    references_check(found);
    twins_check(found);
    reach_check(in_play, found);
    win_mode_check(found);
    if (machine_kind == state_machine) {
        state_machine_check(cyclic, found);
    } else if (machine_kind == pushdown_machine) {
        rules_check(in_play, found);
        start_check(in_play, found);
        hands_check(found);
    } else {
        actions_check(found);
        goals_check(in_play, found);
    }
    return found;
}
