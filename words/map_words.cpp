#include "words/map_words.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text_builder.h"
#include "maps/model.h"
#include "rules/rule.h"

str state_words(i64 index) {
    return text_join({"state ", number_text(index)});
}

str transition_words(i64 index) {
    const transition& arc = game_map.transitions[index];
    return text_join({"transition ", number_text(index), " (", number_text(arc.from), " to ",
                      number_text(arc.to), ")"});
}

str stone_remark(i64 stone) {
    if (state_exists(stones[stone])) {
        return {};
    }
    return text_join(
        {"stone ", number_text(stone), " stands on missing ", state_words(stones[stone])});
}

str reference_remark(i64 transition) {
    return transition_exists(game_map.transitions[transition])
               ? str()
               : text_join({transition_words(transition), " names a missing state"});
}

str rule_remark(i64 transition) {
    rule_stop stop = rule_stop_find(game_map.transitions[transition].rule);
    if (stop.reason.length == 0) {
        return {};
    }
    return text_join({transition_words(transition), " has a rule that does not parse: byte ",
                      number_text(stop.position), ": ", stop.reason});
}

str win_mode_remark() {
    bool accepts = std::any_of(game_map.states.begin(), game_map.states.end(),
                               [](const map_state& s) { return s.accepting != 0; });
    if (settings.win_mode >= win_mode_count) {
        return text_join({"win mode ", number_text(settings.win_mode), " does not exist"});
    }
    return settings.win_mode != win_immediate && !accepts
               ? str("win mode: no state accepts, so nobody can win")
               : str();
}
