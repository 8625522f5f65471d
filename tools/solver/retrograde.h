#pragma once

// What perfect play makes of every position of a game, found backwards from its ends.
//
// A game is a graph: a node is a position without the seat to move, an edge a whole turn, after
// which the next seat is to move. A position that is won in one turn is decided first; layer by
// layer those before it follow. Where a turn leads to a position that the seat to move will win, it
// wins, by the shortest way, which is met first. Where all turns are decided and none wins, it
// cannot but let another seat win: it takes the turn after which the game lasts longest and of
// those the one with which the seat wins that moves soonest after it. What is never decided nobody
// wins: no stone can be moved there, or the seats can go round for ever and each that could leave
// would lose by it.
//
// With two seats this is exact: won, lost or drawn, and in how many turns if the winner hurries and
// the loser delays. With more, each plays for itself alone: it is a subgame-perfect equilibrium,
// for nobody gains by another turn while the others keep to theirs; with other ties there are
// others. Each edge is followed at most twice, and a position takes four bytes.
//
// Sources: K. Thompson, "Retrograde analysis of certain endgames" (1986); for more than two seats
// C. Luckhardt, K. Irani, "An algorithmic solution of n-person games" (1986), the max^n value, with
// the ties above and with draws by repetition, which it leaves out.

#include <cassert>
#include <vector>

#include "base/types.h"
#include "tools/progress.h"
#include "tools/solver/list.h"
#include "tools/solver/work.h"

inline constexpr u8 nobody = 7;

// Of a position, or of a turn for the seat that takes it.
struct verdict {
    u8 winner = nobody;  // how many seats after this one it moves: 0 is the seat itself
    i64 turns = 0;       // until then, this one's counted; 0 when nobody wins

    bool operator==(const verdict&) const = default;
};

// 2 when the seat wins, 1 when nobody does, 0 when another one wins.
constexpr i64 verdict_standing(const verdict& v) {
    return v.winner == 0 ? 2 : v.winner == nobody ? 1 : 0;
}

// Whether the seat rather has the first.
constexpr bool verdict_is_better(const verdict& one, const verdict& other) {
    if (verdict_standing(one) != verdict_standing(other)) {
        return verdict_standing(one) > verdict_standing(other);
    }
    if (one.turns != other.turns) {
        return (one.turns < other.turns) == (one.winner == 0);
    }
    return one.winner < other.winner;
}

// What a turn to a position with that verdict is for the seat that takes it.
constexpr verdict verdict_before(const verdict& after, i64 seats) {
    if (after.winner == nobody) {
        return after;
    }
    return {static_cast<u8>((after.winner + 1) % seats), after.turns + 1};
}

// The verdicts of all positions, by node and of each by the seat to move. While the search goes on
// the cell of one that is not decided counts the turns that are not.
using verdict_cells = std::vector<u32>;

inline constexpr u32 cell_decided = u32{1} << 31;
inline constexpr i64 cell_winner_bits = 3;

constexpr u32 cell_of(const verdict& decided) {
    return cell_decided | static_cast<u32>(decided.turns << cell_winner_bits) | decided.winner;
}

constexpr verdict verdict_of(u32 cell) {
    if ((cell & cell_decided) == 0) {
        return {};
    }
    constexpr u32 winner_mask = (1 << cell_winner_bits) - 1;
    return {static_cast<u8>(cell & winner_mask), (cell & ~cell_decided) >> cell_winner_bits};
}

// A game has
//
//   seats                            how many play, 1 to 6
//   movers                           1 where a node is the same for every seat, else `seats`
//   node_count                       times movers less than 2^32
//   wins(node)                       by mover a bit: whether it has won who moved there
//   successors_visit(node, visit)    calls visit(node) for each turn
//   predecessors_visit(node, visit)  the same for each turn that leads there
template <typename game>
struct backward_search {
    const game& played;
    verdict_cells& cells;
    std::vector<u32> layer = {};  // positions decided in the layer before
    std::vector<u32> next = {};
};

template <typename game>
void position_decide(backward_search<game>& search, i64 position, const verdict& decided) {
    at(search.cells, position) = cell_of(decided);
    search.next.push_back(static_cast<u32>(position));
}

template <typename game>
verdict verdict_at(const game& played, const verdict_cells& cells, i64 node, i64 mover) {
    return verdict_of(at(cells, node * played.movers + mover));
}

// What a turn of the mover is that leads to the node.
template <typename game>
verdict turn_verdict(const game& played, const verdict_cells& cells, i64 mover, i64 to) {
    if ((played.wins(to) >> mover & 1) != 0) {
        return {0, 1};
    }
    const i64 next = (mover + 1) % played.movers;
    return verdict_before(verdict_at(played, cells, to, next), played.seats);
}

// Decides what is won at once at the node, and counts the turns of what is not.
template <typename game>
void node_begin(backward_search<game>& search, i64 node) {
    const game& played = search.played;
    u32 turns = 0;
    u32 winning = 0;
    played.successors_visit(node, [&](i64 to) {
        turns += 1;
        winning |= played.wins(to);
    });
    for (i64 mover = 0; mover < played.movers; ++mover) {
        i64 position = node * played.movers + mover;
        if ((winning >> mover & 1) != 0) {
            position_decide(search, position, {0, 1});
        } else {
            at(search.cells, position) = turns;
        }
    }
}

template <typename game>
verdict verdict_of_best(const game& played, const verdict_cells& cells, i64 node, i64 mover) {
    verdict best;
    bool is_first = true;
    played.successors_visit(node, [&](i64 to) {
        const verdict outcome = turn_verdict(played, cells, mover, to);
        if (is_first || verdict_is_better(outcome, best)) {
            best = outcome;
        }
        is_first = false;
    });
    return best;
}

// Tells the positions before a decided one.
template <typename game>
void position_spread(backward_search<game>& search, i64 position) {
    const game& played = search.played;
    const i64 movers = played.movers;
    const i64 mover = (position % movers + movers - 1) % movers;
    const verdict after = verdict_of(at(search.cells, position));
    const verdict outcome = verdict_before(after, played.seats);
    played.predecessors_visit(position / movers, [&](i64 from) {
        u32& cell = at(search.cells, from * movers + mover);
        if ((cell & cell_decided) != 0) {
            return;
        }
        cell -= 1;
        if (outcome.winner == 0) {
            position_decide(search, from * movers + mover, outcome);
        } else if (cell == 0) {
            verdict best = verdict_of_best(played, search.cells, from, mover);
            position_decide(search, from * movers + mover, best);
        }
    });
}

// Tells all that come before the positions decided last.
template <typename game>
work_state layer_spread(backward_search<game>& search, i64& decided) {
    search.layer.swap(search.next);
    search.next.clear();
    for (u32 position : search.layer) {
        position_spread(search, position);
        decided += 1;
        if (decided % work_stride == 0) {
            progress_show("positions decided", decided, static_cast<i64>(search.cells.size()));
            if (work_state state = work_check(0); state != work_well) {
                return state;
            }
        }
    }
    return work_well;
}

// Fills the cells. Is the work stopped, then they mean nothing.
template <typename game>
work_state game_solve(const game& played, verdict_cells& cells) {
    const i64 positions = played.node_count * played.movers;
    cells.assign(static_cast<std::size_t>(positions), 0);
    backward_search<game> search = {played, cells};
    work_state state = work_well;
    for (i64 node = 0; node < played.node_count && state == work_well; ++node) {
        node_begin(search, node);
        if (node % work_stride == 0) {
            progress_show("positions counted", node * played.movers, positions);
            state = work_check(0);
        }
    }
    i64 decided = 0;
    while (!search.next.empty() && state == work_well) {
        state = layer_spread(search, decided);
    }
    progress_end();
    return state;
}
