#include "tools/map_check.h"

#include <algorithm>
#include <map>
#include <set>

#include "maps/model.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "rules/rule_tops.h"
#include "tools/progress.h"
#include "tools/tape_check.h"
#include "tools/ways_out.h"
#include "tools/words.h"
#include "words/map_words.h"

namespace {

// What several of the checks ask.
struct map_facts {
    card_set in_play;         // the cards that a game on this map is played with
    std::vector<card> cards;  // the same
    ways_out ways;
    std::vector<bool> captions;  // by transition
    std::vector<bool> usable;    // by transition: a card in play may some time meet its rule
};

// The place of a state or transition in a list that has one value for each of them.
std::size_t place_of(i64 index) {
    return static_cast<std::size_t>(index);
}

void references_check(remarks& found) {
    for (i64 i = 0; i < stones.count; ++i) {
        remark_put(found.breaks_play, stone_remark(i));
    }
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        remark_put(found.breaks_play, reference_remark(t));
    }
}

// Only the first transition between two states can be selected.
void twins_check(const std::vector<bool>& captions, remarks& found) {
    std::set<std::pair<u16, u16>> seen;
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        const transition& arc = game_map.transitions[t];
        if (!seen.insert({arc.from, arc.to}).second && !captions[place_of(t)]) {
            found.doubtful.push_back(transition_name(t) +
                                     " stands behind another one: humans cannot use it");
        }
    }
}

card_set cards_in_play() {
    card_set values;
    for (const dyn_array<card>* pile : {&deck.cards, &tape}) {
        for (card c : *pile) {
            card_set_add(values, c);
        }
    }
    return values;
}

std::vector<card> cards_of(const card_set& set) {
    std::vector<card> cards;
    for (i64 value = 0; value < card_value_count; ++value) {
        if (card_set_has(set, card_of_value(value))) {
            cards.push_back(card_of_value(value));
        }
    }
    return cards;
}

bool holds_any(const card_set& set, const card_set& in_play) {
    return card_set_count(set & in_play) > 0;
}

// Whether the rule lets a card in play be played on the empty pile.
bool rule_can_begin(str rule, const card_set& in_play) {
    discard_pile.cards.count = 0;
    return holds_any(rule_matching_cards(rule), in_play);
}

// Whether it lets one be played there or on a top card in play.
bool rule_can_match(str rule, const map_facts& facts) {
    rule_answers answers;
    rule_answers_find(answers, rule, facts.cards.data(), std::ssize(facts.cards));
    return rule_can_begin(rule, facts.in_play) ||
           std::any_of(
               answers.matching, answers.matching + answers.count,
               [&](const card_set& matching) { return holds_any(matching, facts.in_play); });
}

void usable_find(map_facts& facts) {
    std::map<std::string_view, bool> known;  // by rule
    for (const transition& arc : game_map.transitions) {
        auto [rule, is_new] = known.insert({view_of(arc.rule), true});
        if (is_new && machine_kind == pushdown_machine) {
            rule->second = rule_can_match(arc.rule, facts);
        }
        facts.usable.push_back(rule->second);
        progress_show("rules", std::ssize(facts.usable), game_map.transitions.count);
    }
}

void hands_check(remarks& found) {
    if (deck.cards.count < 2 * settings.hand_size) {
        found.doubtful.push_back("the deck holds too few cards for two hands");
    }
}

void rules_check(const map_facts& facts, remarks& found) {
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        if (facts.captions[place_of(t)]) {
            continue;
        }
        if (str remark = rule_remark(t); remark.length > 0) {
            remark_put(found.breaks_play, remark);
        } else if (!facts.usable[place_of(t)]) {
            found.doubtful.push_back(transition_name(t) +
                                     " has a rule that no card in play ever meets");
        }
    }
}

void start_check(const map_facts& facts, remarks& found) {
    for (u16 state : stones) {
        if (!state_exists(state)) {
            continue;
        }
        for (i64 t : facts.ways[state]) {
            if (rule_can_begin(game_map.transitions[t].rule, facts.in_play)) {
                return;
            }
        }
    }
    found.breaks_play.push_back("no card can be played on the empty pile: the game cannot begin");
}

void reach_check(const map_facts& facts, remarks& found) {
    std::vector<bool> reached(static_cast<std::size_t>(game_map.states.count));
    std::vector<i64> left(stones.begin(), stones.end());  // to be left from
    while (!left.empty()) {
        i64 state = left.back();
        left.pop_back();
        if (!state_exists(state) || reached[place_of(state)]) {
            continue;
        }
        reached[place_of(state)] = true;
        for (i64 t : facts.ways[place_of(state)]) {
            if (facts.usable[place_of(t)]) {
                left.push_back(game_map.transitions[t].to);
            }
        }
    }
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (!reached[place_of(s)]) {
            found.doubtful.push_back("no stone can reach " + state_name(s));
        }
    }
}

void nimbers_check(remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (state_nimber(static_cast<u16>(s)) == no_nimber) {
            found.doubtful.push_back("unknown nimbers: the map has a cycle");
            return;
        }
    }
}

void last_mover_check(const map_facts& facts, remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (game_map.states[s].accepting && !facts.ways[place_of(s)].empty()) {
            found.doubtful.push_back(state_name(s) + " accepts but has a way out");
        }
    }
    bool all = settings.win_mode == win_all_accepting;
    if (!all && !(settings.win_mode == win_any_accepting && stones.count == 1)) {
        found.doubtful.push_back("win mode: another than the last mover may win");
    }
}

void state_machine_check(const map_facts& facts, bool cyclic, remarks& found) {
    for (i64 s = 0; s < game_map.states.count; ++s) {
        if (!game_map.states[s].accepting && facts.ways[place_of(s)].empty()) {
            found.doubtful.push_back(state_name(s) + " has no way out but does not accept");
        }
    }
    if (!cyclic) {
        nimbers_check(found);
        last_mover_check(facts, found);
    }
}

map_facts facts_find() {
    card_set in_play = cards_in_play();
    map_facts facts = {in_play, cards_of(in_play), ways_out_find(), captions_find(), {}};
    usable_find(facts);
    return facts;
}

}  // namespace

void map_check(bool cyclic, remarks& found) {
    if (game_map.states.count == 0) {
        found.breaks_play.push_back("no states: nothing can be played");
        return;
    }
    const i64 seats = players.count;  // of games that were played before
    players.count = 0;
    game_start();
    players.count = seats;
    const map_facts facts = facts_find();
    references_check(found);
    twins_check(facts.captions, found);
    reach_check(facts, found);
    remark_put(found.breaks_play, win_mode_remark());
    if (machine_kind == state_machine) {
        state_machine_check(facts, cyclic, found);
    } else if (machine_kind == pushdown_machine) {
        rules_check(facts, found);
        start_check(facts, found);
        hands_check(found);
    } else {
        tape_check(facts.cards, found);
    }
}
