// State machines: every seat may make every move and wins by the same, so a node is a placement of
// the stones, and one search serves whoever is to move. It looks at all placements that can be
// reached, once along each move; without cycles and where the last mover wins it says what the
// nimbers do.

#include "rules/game_state.h"
#include "tools/solver/placements.h"
#include "tools/solver/solved.h"

work_state state_position_solve(solved_position& solved) {
    placement_graph placements;
    work_state state = placements_find(placements, true);
    if (state != work_well) {
        return state;
    }
    edge_game played = {
        players.count, placements.pool.count, placements.moves, {}, placements.meets};
    state = work_check(placements_bytes(placements) + 2 * edges_bytes(played.forward) +
                       played.node_count * static_cast<i64>(sizeof(u32)));
    if (state != work_well) {
        return state;
    }
    played.backward = edges_reversed(played.forward);
    verdict_cells cells;
    work_tell(played.node_count);
    state = game_solve(played, cells);
    solved = solved_from(cells, verdict_of(cells[0]));
    played.successors_visit(0, [&](i64 to) {
        const i64 arc = placements.arcs[solved.turns.size()];
        solved.turns.push_back({false, arc, no_card, turn_verdict(played, cells, 0, to)});
    });
    return state;
}
