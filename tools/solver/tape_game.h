#pragma once

// The loaded turing machine as a game for the solver: a node is a placement of the stones, a place
// of the head and what stands on the tape. All that the tape can hold is counted, not listed, and
// turns are reckoned in both directions, so a position takes no memory but its verdict.
//
// Of a card counts only what the goals can tell: values of a field that count the same for every
// goal are one class, so a tape of nine cards on which somebody wants red ones has 512 contents.

#include <vector>

#include "maps/model.h"
#include "tools/solver/placements.h"
#include "tools/solver/retrograde.h"

inline constexpr i64 card_field_values = 7;  // values of a field are below it

// A card as the goals see it is a digit below `radix`.
struct card_classes {
    i64 of[card_field_count][card_field_values];  // by value: its class; 0 of values not in play
    i64 counts[card_field_count];
    i64 strides[card_field_count];  // what a class counts in the digit
    i64 radix;
    card shown[card_field_values * card_field_values * card_field_values];  // by digit: such a card
};

i64 card_digit(const card_classes& classes, card c);

// What a transition does to tape and head.
struct tape_action {
    i64 stride = 0;  // of the field that it writes, as far as a goal can tell; 0: none
    i64 count = 1;   // classes of that field
    i64 written = 0;
    i64 step = 0;  // index into the head's tables: 0 stays, 1 left, 2 right, 3 comes into the tape
};

inline constexpr i64 step_count = 4;

struct tape_game {
    i64 seats = 2;
    i64 movers = 2;
    i64 node_count = 0;
    const placement_graph* placements = nullptr;
    edge_lists placements_before = {};
    std::vector<u32> moves_before = {};  // by edge of them: the move
    card_classes classes = {};
    i64 length = 0;  // cards of the tape
    i64 heads = 1;   // places of the head; the last one may be a place beyond the tape
    i64 tapes = 1;   // contents of the tape
    std::vector<i64> powers = {};                  // of the radix, by place on the tape
    std::vector<tape_action> actions = {};         // by move
    std::vector<i64> head_after[step_count] = {};  // by place
    std::vector<std::vector<i64>> head_before[step_count] = {};
    std::vector<u8> met = {};  // by tape, a bit for each mover whose goal is met

    u32 wins(i64 node) const;
    template <typename visitor>
    void successors_visit(i64 node, visitor visit) const;
    template <typename visitor>
    void predecessors_visit(i64 node, visitor visit) const;
};

// Makes the game of as many seats as there are goals; the tape holds as many cards as the running
// game's, each one of `cards` or what comes of it. The placements must outlive the game.
work_state tape_game_make(tape_game& made, const placement_graph& placements,
                          const std::vector<goal>& wanted, const std::vector<card>& cards);

i64 node_of(const tape_game& played, i64 placement, i64 head, i64 tape_number);
// The number of what stands on the running game's tape.
i64 tape_number_now(const tape_game& played);
// The head's place, for that of the running game.
i64 head_now(const tape_game& played);

inline u32 tape_game::wins(i64 node) const {
    const i64 placement = node / tapes / heads;
    return at(placements->meets, placement) != 0 ? at(met, node % tapes) : 0;
}

template <typename visitor>
void tape_game::successors_visit(i64 node, visitor visit) const {
    const i64 number = node % tapes;
    const i64 head = node / tapes % heads;
    const i64 placement = node / tapes / heads;
    const edge_lists& moves = placements->moves;
    for (i64 m = at(moves.first, placement); m < at(moves.first, placement + 1); ++m) {
        const tape_action& action = at(actions, m);
        i64 after = number;
        if (action.stride != 0 && head < length) {
            const i64 now = number / at(powers, head) / action.stride % action.count;
            after += (action.written - now) * action.stride * at(powers, head);
        }
        visit(node_of(*this, at(moves.targets, m), at(head_after[action.step], head), after));
    }
}

template <typename visitor>
void tape_game::predecessors_visit(i64 node, visitor visit) const {
    const i64 number = node % tapes;
    const i64 head = node / tapes % heads;
    const i64 placement = node / tapes / heads;
    const edge_lists& moves = placements_before;
    for (i64 edge = at(moves.first, placement); edge < at(moves.first, placement + 1); ++edge) {
        const tape_action& action = at(actions, at(moves_before, edge));
        const i64 from = at(moves.targets, edge);
        for (i64 before : at(head_before[action.step], head)) {
            if (action.stride == 0 || before >= length) {
                visit(node_of(*this, from, before, number));
                continue;
            }
            const i64 unit = action.stride * at(powers, before);
            if (number / unit % action.count != action.written) {
                continue;
            }
            for (i64 value = 0; value < action.count; ++value) {
                visit(node_of(*this, from, before, number + (value - action.written) * unit));
            }
        }
    }
}

inline i64 node_of(const tape_game& played, i64 placement, i64 head, i64 tape_number) {
    return (placement * played.heads + head) * played.tapes + tape_number;
}
