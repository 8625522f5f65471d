#include "ai/pushdown_player.h"

#include <cassert>

#include "rules/cards.h"
#include "rules/random.h"
#include "rules/rule.h"
#include "rules/turns.h"

// A candidate is a pair of an open transition and a hand card that its rule lets through, in the
// transitions' order and for each of them in the hand's. They are never listed, so that no map and
// no hand is too large: the cards of a hand are counted by value, one evaluation of a rule tells
// all values that it lets through, and a choice is found again by its number.
//
// The hard seat takes the first candidate with the highest score: 16 for every pair of a transition
// and another hand card with which it could go on, less one for every card of the deck's kinds with
// which the moved stone could be moved on. Both depend on the played card only through the top of
// the pile, and on the move only through the two states whose stones change; so the pairs are
// counted per state once for every value in the hand, and a move corrects their sum. This evaluates
// at most 2 * 216 * transitions rules, where trying every candidate would take the square of that.

namespace {

constexpr f64 think_after_draw = 0.25;  // seconds until the seat looks at its new card

struct candidate {
    i64 card_index;  // in the hand
    u16 stone;
    const transition* arc;
};

// The cards of the current hand, sorted by value.
struct hand_table {
    i64 counts[card_value_count] = {};
    i64 first[card_value_count] = {};  // index in the hand of the first card of each value held
    card_set values;
};

hand_table hand_sort() {
    const dyn_array<card>& hand = current_seat().hand;
    hand_table table;
    for (i64 j = hand.count - 1; j >= 0; --j) {
        i64 value = card_value(hand[j]);
        table.counts[value] += 1;
        table.first[value] = j;
        card_set_add(table.values, hand[j]);
    }
    return table;
}

// Calls visit(value) for every card value in the set, in increasing order.
template <typename visitor>
void values_visit(const card_set& set, visitor visit) {
    for (i64 word = 0; word < 4; ++word) {
        for (u64 bits = set.words[word]; bits != 0; bits &= bits - 1) {
            visit(word * 64 + std::countr_zero(bits));
        }
    }
}

// How many cards of the hand have one of the values.
i64 hand_count(const hand_table& hand, const card_set& values) {
    i64 count = 0;
    values_visit(hand.values & values, [&](i64 value) { count += hand.counts[value]; });
    return count;
}

// The index of the card that is the `nth`, from 0, in the current hand to have one of the values.
i64 hand_nth(const card_set& values, i64 nth) {
    const dyn_array<card>& hand = current_seat().hand;
    assert(nth >= 0);
    i64 index = 0;
    while (!card_set_has(values, hand[index]) || nth-- > 0) {
        index += 1;
    }
    return index;
}

i64 playable_count(const stone_table& table, const hand_table& hand) {
    i64 count = 0;
    open_moves_visit(table, [&](const transition& arc, u16) {
        count += hand_count(hand, rule_matching_cards(arc.rule));
    });
    return count;
}

// The pair at `index` among the playable pairs of a transition and a card, in the transitions'
// order and for each of them in the hand's.
candidate playable_pick(const stone_table& table, const hand_table& hand, i64 index) {
    candidate picked = {};
    open_moves_visit(table, [&](const transition& arc, u16 stone) {
        if (index < 0) {
            return;
        }
        card_set matching = rule_matching_cards(arc.rule);
        i64 pairs = hand_count(hand, matching);
        if (index < pairs) {
            picked = {hand_nth(matching, index), stone, &arc};
        }
        index -= pairs;
    });
    assert(picked.arc != nullptr);
    return picked;
}

card_set deck_values() {
    card_set values;
    card_kinds kinds = deck_kinds();
    for (i64 i = 0; i < card_kinds_count(kinds); ++i) {
        card_set_add(values, card_at(kinds, i));
    }
    return values;
}

// What the position is like with a certain card on top of the discard pile.
struct top_outlook {
    i64* own;     // per state: ways to play one of the other hand cards from it
    i64* others;  // per state: ways to play any card of the deck's kind from it
    i64 own_sum;  // of `own` over the states that hold a stone before the move
};

void outlook_compute(top_outlook& outlook, const stone_table& table, const hand_table& hand,
                     const card_set& deck_kind, card top) {
    for (i64 s = 0; s < named_state_count(); ++s) {
        outlook.own[s] = 0;
        outlook.others[s] = 0;
    }
    dyn_array_push(discard_pile.cards, top);
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            card_set matching = rule_matching_cards(arc.rule);
            i64 played = card_set_has(matching, top) ? 1 : 0;
            outlook.own[arc.from] += hand_count(hand, matching) - played;
            outlook.others[arc.from] += card_set_count(matching & deck_kind);
        }
    }
    card_take_top(discard_pile.cards);
    outlook.own_sum = 0;
    for (i64 s = 0; s < named_state_count(); ++s) {
        outlook.own_sum += table.count[s] > 0 ? outlook.own[s] : 0;
    }
}

i64 move_score(const top_outlook& outlook, const stone_table& table, const transition& arc) {
    i64 follow = outlook.own_sum;
    if (arc.from != arc.to) {
        follow -= table.count[arc.from] == 1 ? outlook.own[arc.from] : 0;
        follow += table.count[arc.to] == 0 ? outlook.own[arc.to] : 0;
    }
    return 16 * follow - outlook.others[arc.to];
}

// Whether `move` stands before `other` among the playable pairs.
bool is_earlier(const candidate& move, const candidate& other) {
    return move.arc != other.arc ? move.arc < other.arc : move.card_index < other.card_index;
}

// The first playable pair with the highest score. Pairs with equal cards share one outlook.
candidate playable_best(const stone_table& table, const hand_table& hand) {
    card_set deck_kind = deck_values();
    top_outlook outlook = {per_state<i64>(0), per_state<i64>(0), 0};
    candidate best = {};
    i64 best_score = 0;
    values_visit(hand.values, [&](i64 value) {
        i64 card_index = hand.first[value];
        card played = current_seat().hand[card_index];
        bool ready = false;
        open_moves_visit(table, [&](const transition& arc, u16 stone) {
            if (!rule_matches(arc.rule, played)) {
                return;
            }
            if (!ready) {
                outlook_compute(outlook, table, hand, deck_kind, played);
                ready = true;
            }
            candidate move = {card_index, stone, &arc};
            i64 score = move_score(outlook, table, arc);
            bool ties = score == best_score && is_earlier(move, best);
            if (best.arc == nullptr || score > best_score || ties) {
                best = move;
                best_score = score;
            }
        });
    });
    assert(best.arc != nullptr);
    return best;
}

void draw_or_end() {
    if (turn.card_drawn) {
        turn_end();
        return;
    }
    hand_draw();
    turn.think_timer = think_after_draw;
}

}  // namespace

void pushdown_machine_act() {
    stone_table table = stones_locate();
    hand_table hand = hand_sort();
    i64 count = playable_count(table, hand);
    u64 strength = current_seat().strength;
    if (count == 0 || (strength == strength_easy && random_below(100) < 20)) {
        draw_or_end();
        return;
    }
    candidate move = strength == strength_hard ? playable_best(table, hand)
                                               : playable_pick(table, hand, random_index(count));
    stone_move(move.stone, move.arc->to);
    hand_play(move.card_index);
}
