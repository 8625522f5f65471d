#include "tools/solver/edges.h"

edge_lists edges_reversed(const edge_lists& edges, std::vector<u32>* numbers) {
    edge_lists reversed;
    reversed.first.assign(edges.first.size() + 1, 0);
    for (u32 target : edges.targets) {
        reversed.first[target + 2] += 1;
    }
    for (std::size_t node = 2; node < reversed.first.size(); ++node) {
        reversed.first[node] += reversed.first[node - 1];
    }
    reversed.targets.resize(edges.targets.size());
    if (numbers != nullptr) {
        numbers->resize(edges.targets.size());
    }
    for (i64 node = 0; node < edges.node_count(); ++node) {
        const u32* first = edges.first.data() + node;
        for (u32 edge = first[0]; edge < first[1]; ++edge) {
            u32& next = reversed.first[edges.targets[edge] + 1];
            reversed.targets[next] = static_cast<u32>(node);
            if (numbers != nullptr) {
                (*numbers)[next] = edge;
            }
            next += 1;
        }
    }
    reversed.first.pop_back();
    return reversed;
}

i64 edges_bytes(const edge_lists& edges) {
    return static_cast<i64>((edges.first.capacity() + edges.targets.capacity()) * sizeof(u32));
}
