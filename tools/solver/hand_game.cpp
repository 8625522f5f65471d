#include "tools/solver/hand_game.h"

#include <algorithm>
#include <bit>

#include "base/arena.h"
#include "rules/game_state.h"
#include "rules/rule.h"
#include "rules/rule_tops.h"
#include "tools/progress.h"

namespace {

// A node's record: its head in two words, then a set of cards for each seat.
constexpr i64 head_words = 2;

struct node_head {
    u32 placement;
    u16 top;         // a card's value, or `no_top`
    bool has_drawn;  // the seat to move has; only at the first node
    i64 drawn;       // cards
};

node_head head_read(const u64* record) {
    return {static_cast<u32>(record[0]), static_cast<u16>(record[0] >> 32),
            (record[0] >> 48 & 1) != 0, static_cast<i64>(record[1])};
}

void head_write(u64* record, const node_head& head) {
    record[0] = head.placement | u64{head.top} << 32 | u64{head.has_drawn ? 1U : 0U} << 48;
    record[1] = static_cast<u64>(head.drawn);
}

void card_flip(u64* hand, i64 index) {
    hand[index / 64] ^= u64{1} << (index % 64);
}

// Reads the rule once for all top cards that can be.
rule_table rule_table_make(const hand_game& made, str rule) {
    card_set values;
    for (card c : made.cards) {
        card_set_add(values, c);
    }
    if (discard_pile.cards.count > 0) {
        card_set_add(values, card_array_top(discard_pile.cards));
    }
    std::vector<card> tops;
    for (i64 value = 0; value < card_value_count; ++value) {
        if (card_set_has(values, card_of_value(value))) {
            tops.push_back(card_of_value(value));
        }
    }
    rule_table table;
    rule_answers answers = {};
    rule_answers_find(answers, rule, tops.data(), static_cast<i64>(tops.size()));
    table.answers.assign(answers.matching, answers.matching + answers.count);
    for (std::size_t i = 0; i < tops.size(); ++i) {
        table.of_top[card_value(tops[i])] = answers.of_top[i];
    }
    const i64 pile = discard_pile.cards.count;
    discard_pile.cards.count = 0;
    table.of_top[no_top] = static_cast<u8>(table.answers.size());
    table.answers.push_back(rule_matching_cards(rule));
    discard_pile.cards.count = pile;
    return table;
}

const card_set& cards_allowed(hand_game& made, u32 arc, u16 top) {
    rule_table& table = made.rules[arc];
    if (table.answers.empty()) {
        const i64 mark = arenas[arena_frame].offset;
        table = rule_table_make(made, game_map.transitions[arc].rule);
        arena_rewind(arena_frame, mark);
    }
    return table.answers[table.of_top[top]];
}

// The turns that are found at a node, and the records that they lead to.
struct turn_search {
    hand_game& made;
    std::vector<u64> now;
    std::vector<u64> then;
    std::vector<hand_turn> turns;
};

u64* hand_of(const hand_game& made, std::vector<u64>& record, i64 seat) {
    return record.data() + head_words + seat * made.hand_words;
}

bool is_empty(const u64* hand, i64 word_count) {
    return std::all_of(hand, hand + word_count, [](u64 word) { return word == 0; });
}

// The seat that moved comes last now. Adds the node that `then` is.
void turn_add(turn_search& search, hand_turn turn) {
    hand_game& made = search.made;
    std::rotate(search.then.begin() + head_words,
                search.then.begin() + head_words + made.hand_words, search.then.end());
    const u32 placement = head_read(search.then.data()).placement;
    const i64 before = made.pool.count;
    turn.to = key_add(made.pool, search.then.data());
    if (turn.to == before) {
        const u64* last = hand_of(made, search.then, made.graph.seats - 1);
        const bool wins = is_empty(last, made.hand_words) && made.placements.meets[placement] != 0;
        made.graph.won.push_back(wins ? 1 : 0);
    }
    search.turns.push_back(turn);
}

void play_add(turn_search& search, bool draws, i64 move, i64 held) {
    hand_game& made = search.made;
    search.then = search.now;
    node_head head = head_read(search.then.data());
    head.placement = at(made.placements.moves.targets, move);
    head.top = static_cast<u16>(card_value(at(made.cards, held)));
    head.has_drawn = false;
    head_write(search.then.data(), head);
    card_flip(hand_of(made, search.then, 0), held);
    turn_add(search, {draws, at(made.placements.arcs, move), held, -1});
}

// One turn for each value among the cards of the hand that the rule lets through.
void plays_add(turn_search& search, bool draws, i64 move) {
    hand_game& made = search.made;
    const node_head head = head_read(search.now.data());
    const u32 arc = at(made.placements.arcs, move);
    const card_set allowed = cards_allowed(made, arc, head.top);
    card_set seen;
    for (i64 word = 0; word < made.hand_words; ++word) {
        for (u64 bits = hand_of(made, search.now, 0)[word]; bits != 0; bits &= bits - 1) {
            const i64 held = word * 64 + std::countr_zero(bits);
            const card c = at(made.cards, held);
            if (card_set_has(allowed, c) && !card_set_has(seen, c)) {
                card_set_add(seen, c);
                play_add(search, draws, move, held);
            }
        }
    }
}

void all_plays_add(turn_search& search, bool draws) {
    const edge_lists& moves = search.made.placements.moves;
    const u32 placement = head_read(search.now.data()).placement;
    for (i64 move = moves.first[placement]; move < moves.first[placement + 1]; ++move) {
        plays_add(search, draws, move);
    }
}

void pass_add(turn_search& search, bool draws) {
    search.then = search.now;
    node_head head = head_read(search.then.data());
    head.has_drawn = false;
    head_write(search.then.data(), head);
    turn_add(search, {draws, -1, -1, -1});
}

i64 deck_left(const hand_game& made, const node_head& head) {
    return static_cast<i64>(made.cards.size()) - made.in_hands - head.drawn;
}

// Whether the pile is shuffled now to be the deck.
bool is_chances(const hand_game& made, const node_head& head) {
    return deck_left(made, head) == 0 && head.top != no_top;
}

// Draws the next card and adds what can be done with it.
void draw_add(turn_search& search, node_head head) {
    card_flip(hand_of(search.made, search.now, 0), search.made.in_hands + head.drawn);
    head.drawn += 1;
    head_write(search.now.data(), head);
    if (is_chances(search.made, head)) {
        return;
    }
    all_plays_add(search, true);
    if (search.turns.empty() && deck_left(search.made, head) > 0) {
        pass_add(search, true);
    }
}

// Finds the turns at the node; where the deck is empty a turn can end by a move alone.
void turns_find(turn_search& search, i64 node) {
    const u64* record = key_words(search.made.pool, node);
    search.now.assign(record, record + search.made.pool.width);
    search.turns.clear();
    const node_head head = head_read(search.now.data());
    if (is_chances(search.made, head)) {
        return;
    }
    all_plays_add(search, false);
    if (!search.turns.empty() || deck_left(search.made, head) == 0) {
        return;
    }
    if (head.has_drawn) {
        pass_add(search, false);
    } else {
        draw_add(search, head);
    }
}

void cards_take(hand_game& made) {
    for (i64 i = 0; i < players.count; ++i) {
        const dyn_array<card>& hand = players[(turn.current_player + i) % players.count].hand;
        made.cards.insert(made.cards.end(), hand.begin(), hand.end());
    }
    made.in_hands = static_cast<i64>(made.cards.size());
    made.cards.insert(made.cards.end(), std::make_reverse_iterator(deck.cards.end()),
                      std::make_reverse_iterator(deck.cards.begin()));
}

// The running game's position, its seat to move first.
void first_node_add(hand_game& made) {
    made.hand_words = static_cast<i64>(made.cards.size() + 63) / 64;
    made.pool.width = head_words + players.count * made.hand_words;
    std::vector<u64> record(static_cast<std::size_t>(made.pool.width));
    const dyn_array<card>& pile = discard_pile.cards;
    const i64 top = pile.count > 0 ? card_value(card_array_top(pile)) : no_top;
    head_write(record.data(), {0, static_cast<u16>(top), turn.card_drawn, 0});
    i64 next = 0;
    for (i64 i = 0; i < players.count; ++i) {
        const i64 count = players[(turn.current_player + i) % players.count].hand.count;
        for (i64 end = next + count; next < end; ++next) {
            card_flip(hand_of(made, record, i), next);
        }
    }
    key_add(made.pool, record.data());
    made.graph.won.push_back(0);
}

i64 game_bytes(const hand_game& made) {
    const edge_lists& edges = made.graph.forward;
    return placements_bytes(made.placements) + key_pool_bytes(made.pool) + 2 * edges_bytes(edges) +
           made.pool.count * static_cast<i64>(sizeof(u32));
}

work_state nodes_find(hand_game& made) {
    turn_search search = {made, {}, {}, {}};
    work_state state = work_well;
    for (i64 node = 0; node < made.pool.count && state == work_well; ++node) {
        if (node == 0 || at(made.graph.won, node) == 0) {
            turns_find(search, node);
            for (const hand_turn& turn : search.turns) {
                made.graph.forward.targets.push_back(static_cast<u32>(turn.to));
            }
        }
        made.graph.forward.first.push_back(static_cast<u32>(made.graph.forward.targets.size()));
        if (node % std::max<i64>(1, work_stride / made.pool.width) == 0) {
            progress_show("positions found", node, made.pool.count);
            state = work_check(game_bytes(made));
        }
    }
    return state;
}

}  // namespace

work_state hand_game_make(hand_game& made) {
    made = {};
    work_state state = placements_find(made.placements, false);
    if (state != work_well) {
        return state;
    }
    made.graph.seats = players.count;
    made.rules.resize(static_cast<std::size_t>(game_map.transitions.count));
    cards_take(made);
    first_node_add(made);
    state = nodes_find(made);
    made.graph.node_count = made.pool.count;
    if (state == work_well) {
        made.graph.backward = edges_reversed(made.graph.forward);
    }
    return state;
}

std::vector<hand_turn> hand_turns(hand_game& played, i64 node) {
    turn_search search = {played, {}, {}, {}};
    turns_find(search, node);
    return search.turns;
}
