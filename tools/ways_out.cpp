#include "tools/ways_out.h"

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
