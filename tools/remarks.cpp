#include "tools/remarks.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "maps/model.h"
#include "tools/words.h"
#include "words/map_words.h"

std::string state_name(i64 index) {
    return std::string(view_of(state_words(index)));
}

std::string transition_name(i64 index) {
    return std::string(view_of(transition_words(index)));
}

void remark_put(std::vector<std::string>& remarks, str remark) {
    if (remark.length > 0) {
        remarks.emplace_back(view_of(remark));
    }
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
