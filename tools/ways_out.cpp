#include "tools/ways_out.h"

#include <algorithm>

#include "maps/model.h"

ways_out ways_out_find() {
    ways_out ways(static_cast<std::size_t>(game_map.states.count));
    for (i64 t = 0; t < game_map.transitions.count; ++t) {
        if (state_exists(game_map.transitions[t].from)) {
            ways[game_map.transitions[t].from].push_back(t);
        }
    }
    return ways;
}

// Takes away state after state that no way leads to.
bool ways_are_acyclic(const ways_out& ways) {
    std::vector<i64> entering(ways.size());
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            entering[arc.to] += 1;
        }
    }
    std::vector<u16> open;
    for (std::size_t s = 0; s < ways.size(); ++s) {
        if (entering[s] == 0) {
            open.push_back(static_cast<u16>(s));
        }
    }
    for (std::size_t taken = 0; taken < open.size(); ++taken) {
        for (i64 t : ways[open[taken]]) {
            const u16 to = game_map.transitions[t].to;
            if (state_exists(to) && --entering[to] == 0) {
                open.push_back(to);
            }
        }
    }
    return open.size() == ways.size();
}
