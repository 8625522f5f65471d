#pragma once

// A graph whose edges are written down, and a game on it in which a node is the same for every seat
// that is to move.

#include <vector>

#include "base/types.h"
#include "tools/solver/list.h"

struct edge_lists {
    std::vector<u32> first = {0};  // by node, and one more: its first edge
    std::vector<u32> targets = {};

    i64 node_count() const { return static_cast<i64>(first.size()) - 1; }
};

// The edges the other way round. With `numbers` it is told, too, which edge each was.
edge_lists edges_reversed(const edge_lists& edges, std::vector<u32>* numbers = nullptr);

i64 edges_bytes(const edge_lists& edges);

template <typename visitor>
void edges_visit(const edge_lists& edges, i64 node, visitor visit) {
    const u32* first = edges.first.data() + node;
    for (u32 edge = first[0]; edge < first[1]; ++edge) {
        visit(i64{edges.targets[edge]});
    }
}

struct edge_game {
    i64 seats = 2;
    static constexpr i64 movers = 1;
    i64 node_count = 0;
    edge_lists forward = {};
    edge_lists backward = {};
    std::vector<u8> won = {};  // by node: whether who moved there has won

    u32 wins(i64 node) const { return at(won, node); }
    template <typename visitor>
    void successors_visit(i64 node, visitor visit) const {
        edges_visit(forward, node, visit);
    }
    template <typename visitor>
    void predecessors_visit(i64 node, visitor visit) const {
        edges_visit(backward, node, visit);
    }
};
