#include "tools/remarks.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "maps/model.h"

std::string state_name(i64 index) {
    return "state " + std::to_string(index);
}

std::string transition_name(i64 index) {
    const transition& arc = game_map.transitions[index];
    return "transition " + std::to_string(index) + " (" + std::to_string(arc.from) + " to " +
           std::to_string(arc.to) + ")";
}

std::vector<bool> captions_find() {
    std::vector<bool> captions;
    std::set<std::tuple<u16, u16, i16>> drawn;
    for (const transition& arc : game_map.transitions) {
        bool is_behind = !drawn.insert({arc.from, arc.to, arc.bend}).second;
        bool has_words = std::ranges::find(arc.rule, '%') != arc.rule.end();
        captions.push_back(machine_kind != turing_machine && is_behind && has_words);
    }
    return captions;
}
