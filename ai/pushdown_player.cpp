#include "ai/pushdown_player.h"

#include <algorithm>
#include <cassert>

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
// the pile, and on the move only through the two states whose stones change; so the pairs are
// counted per state and card value of the hand, and a move corrects their sum. Every rule is read
// once for that: its text tells what it lets through under all of these top cards. Where states and
// values are so many that their table would be too large, it is made for some of the values at a
// time.

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
};

hand_table hand_sort() {
    const dyn_array<card>& hand = current_seat().hand;
    hand_table table;
    for (i64 j = hand.count - 1; j >= 0; --j) {
        i64 value = card_value(hand[j]);
        table.counts[value] += 1;
        table.first[value] = j;
    }
    return table;
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
constexpr i64 tally_limit = i64{1} << (32 - tally_shift);
static_assert(card_value_count % 8 == 0 && card_value_count < 1 << tally_shift);

card_sums sums_make(const hand_table& hand) {
    assert(current_seat().hand.count < tally_limit);
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

i64 playable_count(const stone_table& table, const card_sums& sums) {
    i64 count = 0;
    open_moves_visit(table, [&](const transition& arc, u16) {
        count += cards_tally(sums, rule_matching_cards(arc.rule)).own;
    });
    return count;
}

// The pair at `index` among the playable pairs of a transition and a card, in the transitions'
// order and for each of them in the hand's.
candidate playable_pick(const stone_table& table, const card_sums& sums, i64 index) {
    candidate picked = {};
    open_moves_visit(table, [&](const transition& arc, u16 stone) {
        if (index < 0) {
            return;
        }
        card_set matching = rule_matching_cards(arc.rule);
        i64 pairs = cards_tally(sums, matching).own;
        if (index < pairs) {
            picked = {hand_nth(matching, index), stone, &arc};
        }
        index -= pairs;
    });
    assert(picked.arc != nullptr);
    return picked;
}

// What a state counts under a certain top card of the pile.
struct outlook {
    i64 own;     // ways to play one of the other hand cards from it
    i64 others;  // ways to play any card of the deck's kinds from it
};

constexpr i64 outlook_bytes = i64{12} * 1024 * 1024;  // at most, of the 16 MiB of the frame arena

// The outlooks of every state under some of the hand's values as top cards. States that no
// transition leaves share row 0, which stays empty.
struct outlook_table {
    i64* row;  // by state
    i64 row_count;
    outlook* cells;  // by row, then by top card
    i64 width;       // top cards that there is room for
    card tops[card_value_count];
    i64 top_count;
    i64 own_sums[card_value_count];  // of `own` over the states that hold a stone before the move
};

outlook* outlooks_of(const outlook_table& table, i64 state) {
    return table.cells + table.row[state] * table.width;
}

outlook_table outlooks_make(i64 value_count) {
    outlook_table table;
    table.row = per_state<i64>(0);
    table.row_count = 1;
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && table.row[arc.from] == 0) {
            table.row[arc.from] = table.row_count;
            table.row_count += 1;
        }
    }
    i64 row_limit = outlook_bytes / static_cast<i64>(sizeof(outlook)) / table.row_count;
    table.width = std::clamp(row_limit, i64{1}, value_count);
    table.cells = frame_array<outlook>(table.row_count * table.width, {});
    return table;
}

// Adds what a rule lets through to the outlooks of the state that its transition leaves.
void answers_add(outlook_table& table, const rule_answers& answers, const card_sums& sums,
                 outlook* outlooks) {
    card_tally tallies[card_value_count];
    for (i64 a = 0; a < answers.count; ++a) {
        tallies[a] = cards_tally(sums, answers.matching[a]);
    }
    for (i64 i = 0; i < table.top_count; ++i) {
        i64 a = answers.of_top[i];
        i64 played = card_set_has(answers.matching[a], table.tops[i]) ? 1 : 0;
        outlooks[i].own += tallies[a].own - played;
        outlooks[i].others += tallies[a].others;
    }
}

// Fills the table for its top cards.
void outlooks_compute(outlook_table& table, const stone_table& located, const card_sums& sums) {
    std::fill(table.cells, table.cells + table.row_count * table.width, outlook{});
    rule_answers answers;
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc)) {
            rule_answers_find(answers, arc.rule, table.tops, table.top_count);
            answers_add(table, answers, sums, outlooks_of(table, arc.from));
        }
    }
    std::fill(table.own_sums, table.own_sums + table.top_count, 0);
    for (i64 s = 0; s < named_state_count(); ++s) {
        if (located.count[s] > 0) {
            for (i64 i = 0; i < table.top_count; ++i) {
                table.own_sums[i] += outlooks_of(table, s)[i].own;
            }
        }
    }
}

// Of the move with the top card at `i`.
i64 move_score(const outlook_table& table, const stone_table& located, const transition& arc,
               i64 i) {
    i64 follow = table.own_sums[i];
    const outlook& target = outlooks_of(table, arc.to)[i];
    if (arc.from != arc.to) {
        follow -= located.count[arc.from] == 1 ? outlooks_of(table, arc.from)[i].own : 0;
        follow += located.count[arc.to] == 0 ? target.own : 0;
    }
    return 16 * follow - target.others;
}

// Whether `move` stands before `other` among the playable pairs.
bool is_earlier(const candidate& move, const candidate& other) {
    return move.arc != other.arc ? move.arc < other.arc : move.card_index < other.card_index;
}

struct scored_candidate {
    candidate move = {};
    i64 score = 0;
};

// Takes the better of `best` and the playable pairs with the table's top cards.
void best_take(scored_candidate& best, const outlook_table& table, const stone_table& located,
               const hand_table& hand) {
    open_moves_visit(located, [&](const transition& arc, u16 stone) {
        card_set matching = rule_matching_cards(arc.rule);
        for (i64 i = 0; i < table.top_count; ++i) {
            if (!card_set_has(matching, table.tops[i])) {
                continue;
            }
            candidate move = {hand.first[card_value(table.tops[i])], stone, &arc};
            i64 score = move_score(table, located, arc, i);
            bool ties = score == best.score && is_earlier(move, best.move);
            if (best.move.arc == nullptr || score > best.score || ties) {
                best = {move, score};
            }
        }
    });
}

// The first playable pair with the highest score.
candidate playable_best(const stone_table& located, const hand_table& hand, const card_sums& sums) {
    i64 held = card_value_count - std::count(hand.counts, hand.counts + card_value_count, 0);
    outlook_table table = outlooks_make(held);
    scored_candidate best;
    for (i64 value = 0; value < card_value_count;) {
        table.top_count = 0;
        for (; value < card_value_count && table.top_count < table.width; ++value) {
            if (hand.counts[value] > 0) {
                table.tops[table.top_count] = card_of_value(value);
                table.top_count += 1;
            }
        }
        outlooks_compute(table, located, sums);
        best_take(best, table, located, hand);
    }
    assert(best.move.arc != nullptr);
    return best.move;
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
    card_sums sums = sums_make(hand);
    i64 count = playable_count(table, sums);
    u64 strength = current_seat().strength;
    if (count == 0 || (strength == strength_easy && random_below(100) < 20)) {
        draw_or_end();
        return;
    }
    candidate move = strength == strength_hard ? playable_best(table, hand, sums)
                                               : playable_pick(table, sums, random_index(count));
    stone_move(move.stone, move.arc->to);
    hand_play(move.card_index);
}
