#include "ai/pushdown_player.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <optional>

#include "rules/cards.h"
#include "rules/random.h"
#include "rules/rule.h"
#include "rules/rule_tops.h"
#include "rules/turns.h"

// A candidate is a pair of an open transition and a hand card that its rule lets through, in the
// transitions' order and for each of them in the hand's. They are never listed, so that no map and
// no hand is too large: the cards of a hand are counted by value, one evaluation of a rule tells
// all values that it lets through, and a choice is found again by its number.
//
// The hard seat takes the first candidate with the highest score: 16 for every pair of a transition
// and another hand card with which it could go on, less one for every card of the deck's kinds with
// which the moved stone could be moved on. Both depend on the played card only through the top of
// the pile, and on the move only through the two states whose stones change. So every state counts
// for itself, under each card value of the hand, what it takes from the score when its only stone
// leaves and what it adds when a stone enters. Every rule that plays a part is read once for that:
// its text tells what it lets through under all of these top cards. Where states and values are so
// many that their table would be too large, it is made for some of the values at a time.

namespace {

struct candidate {
    i64 card_index;  // in the hand
    const transition* arc;
};

// The cards of the current hand, sorted by value.
struct hand_table {
    i64 counts[card_value_count] = {};
    i64 first[card_value_count] = {};  // index in the hand of the first card of each value held
    card_set held;                     // the values that are there
};

hand_table hand_sort() {
    const dyn_array<card>& hand = current_seat().hand;
    hand_table table;
    for (i64 j = hand.count - 1; j >= 0; --j) {
        i64 value = card_value(hand[j]);
        table.counts[value] += 1;
        table.first[value] = j;
        card_set_add(table.held, hand[j]);
    }
    return table;
}

// How many cards of the hand have one of the values.
i64 held_count(const hand_table& hand, const card_set& values) {
    i64 count = 0;
    for (i64 word = 0; word < static_cast<i64>(std::size(values.words)); ++word) {
        for (u64 bits = values.words[word] & hand.held.words[word]; bits != 0; bits &= bits - 1) {
            count += hand.counts[word * 64 + std::countr_zero(bits)];
        }
    }
    return count;
}

card_set deck_values() {
    card_kinds kinds = deck_kinds();
    card_set values = all_cards;
    for (u8 field = 0; field < card_field_count; ++field) {
        card_set of_field;
        for (i64 i = 0; i < kinds.counts[field]; ++i) {
            u8 value = static_cast<u8>(card_fields[field].first_value + i);
            of_field = of_field | cards_having({static_cast<card_field>(field), value});
        }
        values = values & of_field;
    }
    return values;
}

// How many cards have one of the values of a set, for any set: the sums for every byte of one. Of
// two numbers counted at once, those of the hand stand above the lower 8 bits, those of the deck's
// kinds, at most 216, in them.
struct card_sums {
    u32 by_byte[sizeof(card_set)][256];
};

struct card_tally {
    i64 own;     // cards of the hand
    i64 others;  // kinds of the deck
};

constexpr i64 tally_shift = 8;
static_assert(card_value_count % 8 == 0 && card_value_count < 1 << tally_shift);

card_sums sums_make(const hand_table& hand) {
    assert(current_seat().hand.count < i64{1} << (32 - tally_shift));
    u32 ones[card_value_count];
    card_set kinds = deck_values();
    for (i64 value = 0; value < card_value_count; ++value) {
        u32 others = kinds.words[value / 64] >> (value % 64) & 1;
        ones[value] = static_cast<u32>(hand.counts[value] << tally_shift) + others;
    }
    card_sums sums;
    for (auto& of_byte : sums.by_byte) {
        of_byte[0] = 0;
    }
    for (i64 byte = 0; byte < card_value_count / 8; ++byte) {
        for (u32 bits = 1; bits < 256; ++bits) {
            u32 lowest = ones[byte * 8 + std::countr_zero(bits)];
            sums.by_byte[byte][bits] = sums.by_byte[byte][bits & (bits - 1)] + lowest;
        }
    }
    return sums;
}

card_tally cards_tally(const card_sums& sums, const card_set& set) {
    u32 sum = 0;
    const auto* of_byte = sums.by_byte;
    for (u64 word : set.words) {
        for (i64 i = 0; i < 8; ++i, ++of_byte, word >>= 8) {
            sum += (*of_byte)[word & 255];
        }
    }
    return {sum >> tally_shift, sum & ((1 << tally_shift) - 1)};
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
        count += held_count(hand, rule_matching_cards(arc.rule));
    });
    return count;
}

// The pair at `index` among the playable pairs of a transition and a card, in the transitions'
// order and for each of them in the hand's.
candidate playable_pick(const stone_table& table, const hand_table& hand, i64 index) {
    candidate picked = {};
    open_moves_visit(table, [&](const transition& arc, u16) {
        if (index < 0) {
            return;
        }
        card_set matching = rule_matching_cards(arc.rule);
        i64 pairs = held_count(hand, matching);
        if (index < pairs) {
            picked = {hand_nth(matching, index), &arc};
        }
        index -= pairs;
    });
    assert(picked.arc != nullptr);
    return picked;
}

constexpr i64 follow_score = 16;

constexpr i64 table_bytes = i64{12} * 1024 * 1024;  // at most, of the 16 MiB of the frame arena

// What makes up the score of a move, under some of the hand's values as top cards. States that
// change nothing share row 0, which stays empty.
struct score_table {
    i64* leaving;   // by state: its row of what the leaving of its only stone takes away
    i64* entering;  // by state: its row of what a stone's entering adds
    i64 row_count;
    i64* cells;  // by row, then by top card
    i64 width;   // top cards that there is room for
    card tops[card_value_count];
    i64 top_count;
    i64 staying[card_value_count];  // the score when all stones stay
};

i64* row_of(const score_table& table, i64 row) {
    return table.cells + row * table.width;
}

score_table scores_make(const stone_table& located, i64 value_count) {
    score_table table;
    table.leaving = per_state<i64>(0);
    table.entering = per_state<i64>(0);
    table.row_count = 1;
    bool* is_target = per_state(false);
    open_moves_visit(located, [&](const transition& arc, u16) { is_target[arc.to] = true; });
    auto row_add = [&](i64& row) {
        if (row == 0) {
            row = table.row_count;
            table.row_count += 1;
        }
    };
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && located.count[arc.from] == 1) {
            row_add(table.leaving[arc.from]);
        }
        if (transition_exists(arc) && is_target[arc.from]) {
            row_add(table.entering[arc.from]);
        }
    }
    i64 room = table_bytes / static_cast<i64>(sizeof(i64)) / table.row_count;
    table.width = std::clamp(room, i64{1}, value_count);
    table.cells = frame_array<i64>(table.row_count * table.width, 0);
    return table;
}

// Adds what a rule lets through to the scores that the state counts in which its transition leaves.
void answers_add(score_table& table, const rule_answers& answers, const card_sums& sums, u16 state,
                 i64 stone_count) {
    card_tally tallies[card_value_count];
    for (i64 a = 0; a < answers.count; ++a) {
        tallies[a] = cards_tally(sums, answers.matching[a]);
    }
    i64* leaving = row_of(table, table.leaving[state]);
    i64* entering = row_of(table, table.entering[state]);
    for (i64 i = 0; i < table.top_count; ++i) {
        i64 a = answers.of_top[i];
        i64 played = card_set_has(answers.matching[a], table.tops[i]) ? 1 : 0;
        i64 follow = follow_score * (tallies[a].own - played);
        if (stone_count > 0) {
            table.staying[i] += follow;
        }
        if (table.leaving[state] != 0) {
            leaving[i] += follow;
        }
        if (table.entering[state] != 0) {
            entering[i] += (stone_count == 0 ? follow : 0) - tallies[a].others;
        }
    }
}

// Fills the table for its top cards.
void scores_compute(score_table& table, const stone_table& located, const card_sums& sums) {
    std::fill(table.cells, table.cells + table.row_count * table.width, 0);
    std::fill(table.staying, table.staying + table.top_count, 0);
    rule_answers answers;
    for (const transition& arc : game_map.transitions) {
        if (!transition_exists(arc)) {
            continue;
        }
        i64 stone_count = located.count[arc.from];
        if (stone_count > 0 || table.entering[arc.from] != 0) {
            rule_answers_find(answers, arc.rule, table.tops, table.top_count);
            answers_add(table, answers, sums, arc.from, stone_count);
        }
    }
}

// Of the move with the top card at `i`.
i64 move_score(const score_table& table, const transition& arc, i64 i) {
    i64 lost = arc.from != arc.to ? row_of(table, table.leaving[arc.from])[i] : 0;
    return table.staying[i] - lost + row_of(table, table.entering[arc.to])[i];
}

struct scored_candidate {
    candidate move = {};
    i64 score = 0;
};

// Whether it is to be taken instead of `best`: for its score, then for standing before it among the
// playable pairs.
bool is_better(const scored_candidate& one, const scored_candidate& best) {
    if (best.move.arc == nullptr) {
        return true;
    }
    if (one.score != best.score) {
        return one.score > best.score;
    }
    return one.move.arc != best.move.arc ? one.move.arc < best.move.arc
                                         : one.move.card_index < best.move.card_index;
}

// Takes the better of `best` and the playable pairs with the table's top cards. Whether a pair is
// playable is asked of those alone that would be the best.
void best_take(scored_candidate& best, const score_table& table, const stone_table& located,
               const hand_table& hand) {
    open_moves_visit(located, [&](const transition& arc, u16) {
        std::optional<card_set> matching;
        for (i64 i = 0; i < table.top_count; ++i) {
            candidate move = {hand.first[card_value(table.tops[i])], &arc};
            scored_candidate scored = {move, move_score(table, arc, i)};
            if (!is_better(scored, best)) {
                continue;
            }
            if (!matching) {
                matching = rule_matching_cards(arc.rule);
            }
            if (card_set_has(*matching, table.tops[i])) {
                best = scored;
            }
        }
    });
}

// The first playable pair with the highest score.
candidate playable_best(const stone_table& located, const hand_table& hand) {
    card_sums sums = sums_make(hand);
    score_table table = scores_make(located, card_set_count(hand.held));
    scored_candidate best;
    for (i64 value = 0; value < card_value_count;) {
        table.top_count = 0;
        for (; value < card_value_count && table.top_count < table.width; ++value) {
            if (hand.counts[value] > 0) {
                table.tops[table.top_count] = card_of_value(value);
                table.top_count += 1;
            }
        }
        scores_compute(table, located, sums);
        best_take(best, table, located, hand);
    }
    assert(best.move.arc != nullptr);
    return best.move;
}

}  // namespace

game_act pushdown_machine_decide() {
    stone_table table = stones_locate();
    hand_table hand = hand_sort();
    i64 count = playable_count(table, hand);
    u64 strength = current_seat().strength;
    if (count == 0 || (strength == strength_easy && random_below(100) < 20)) {
        return {turn.card_drawn ? act_end : act_draw};
    }
    candidate move = strength == strength_hard ? playable_best(table, hand)
                                               : playable_pick(table, hand, random_index(count));
    return move_along(*move.arc, move.card_index);
}
