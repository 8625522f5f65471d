#pragma once

// A deal of the loaded pushdown machine, with open hands and an open deck, as a game for the
// solver.
//
// A node is a placement of the stones, the top card of the pile, how many cards were drawn, and who
// holds which cards, the seat to move first: so a node is the same for every seat that is to move.
// Nodes are found from the deal on, each once; a turn shortens a hand or the deck, so none comes
// again.
//
// A seat draws when no card fits, as computers of the two better strengths do; that it may draw
// instead of playing is left out, since hands could then grow as long as the deck lasts. Nothing is
// looked at behind the deck's last card: the pile is then shuffled, and chance decides. Nobody has
// won there.

#include "rules/cards.h"
#include "tools/solver/placements.h"
#include "tools/solver/retrograde.h"

inline constexpr i64 no_top = card_value_count;  // of an empty pile

// What a rule lets through: under each top card, or `no_top`, one of its answers.
struct rule_table {
    std::vector<card_set> answers = {};
    u8 of_top[card_value_count + 1] = {};
};

struct hand_game {
    edge_game graph = {};
    placement_graph placements = {};
    std::vector<card> cards = {};        // of all hands, then of the deck, its top card first
    i64 in_hands = 0;                    // how many of them are in hands at first
    i64 hand_words = 0;                  // of a hand as a set of them
    key_pool pool = {};                  // the nodes; 0 is the running game's position
    std::vector<rule_table> rules = {};  // by transition, found when it is first asked for
};

// A turn at a node.
struct hand_turn {
    bool draws = false;
    i64 arc = -1;   // -1: the turn ends without a move
    i64 held = -1;  // the card that is played, among the game's cards
    i64 to = -1;    // the node
};

// Finds the nodes from the running game's position on and their turns.
work_state hand_game_make(hand_game& made);

// The turns at a node, in the order of the graph's edges.
std::vector<hand_turn> hand_turns(hand_game& played, i64 node);
