#include "ai/computer.h"

#include "rules/card_set.h"
#include "rules/cards.h"
#include "rules/random.h"
#include "rules/rule.h"
#include "rules/turns.h"

// A decision keeps no list of its candidate moves: it walks them once to count or score them and a
// second time to pick one, so that no map is too large for it.

namespace {

struct candidate {
    i64 card_index;  // in the hand; `no_card` when no card is involved
    u16 stone;
    u16 from;
    u16 target;
    str rule;
};

// The first stone on every state and how many stand there.
struct stone_table {
    u16* first;  // `no_index` where none stands
    i64* count;
};

template <typename element>
element* per_state(element start) {
    i64 bytes = named_state_count() * static_cast<i64>(sizeof(element));
    auto* values = static_cast<element*>(arena_alloc(arena_frame, bytes));
    for (i64 s = 0; s < named_state_count(); ++s) {
        values[s] = start;
    }
    return values;
}

stone_table stones_locate() {
    stone_table table = {per_state<u16>(no_index), per_state<i64>(0)};
    for (i64 i = 0; i < stones.count && i < no_index; ++i) {
        u16 state = stones[i];
        if (state_exists(state)) {
            if (table.first[state] == no_index) {
                table.first[state] = static_cast<u16>(i);
            }
            table.count[state] += 1;
        }
    }
    return table;
}

// Calls visit(arc, stone) for every transition whose source state holds a stone.
template <typename visitor>
void movable_visit(const stone_table& table, visitor visit) {
    for (const transition& arc : game_map.transitions) {
        if (transition_exists(arc) && table.first[arc.from] != no_index) {
            visit(arc, table.first[arc.from]);
        }
    }
}

i64 random_index(i64 count) {
    return static_cast<i64>(random_below(static_cast<u64>(count)));
}

// State machines.

u8 stones_nimber() {
    u8 sum = 0;
    for (u16 state : stones) {
        sum ^= state_exists(state) ? state_nimber(state) : u8{0};
    }
    return sum;
}

bool is_winning(u8 sum, const transition& arc) {
    return (sum ^ state_nimber(arc.from) ^ state_nimber(arc.to)) == 0;
}

// Whether the seat takes one of its winning moves, given how many there are of each kind.
bool wants_winning(i64 winning_count, i64 other_count) {
    switch (current_seat().strength) {
        case strength_easy:
            return other_count == 0;
        case strength_normal: {
            bool careless = random_below(100) < 50;
            return winning_count > 0 && !(careless && other_count > 0);
        }
        default:
            return winning_count > 0;
    }
}

void state_machine_act(const stone_table& table) {
    u8 sum = stones_nimber();
    i64 counts[2] = {0, 0};  // other moves, winning moves
    movable_visit(table, [&](const transition& arc, u16) { counts[is_winning(sum, arc)] += 1; });
    if (counts[0] + counts[1] == 0) {
        turn_pass();
        return;
    }
    bool winning = wants_winning(counts[1], counts[0]);
    i64 chosen = random_index(counts[winning]);
    u16 chosen_stone = no_index;
    u16 chosen_target = no_index;
    movable_visit(table, [&](const transition& arc, u16 stone) {
        if (is_winning(sum, arc) == winning && chosen-- == 0) {
            chosen_stone = stone;
            chosen_target = arc.to;
        }
    });
    stone_move(chosen_stone, chosen_target);
}

// Pushdown machines.

// Calls visit(move) for every playable pair of a transition and a card of the hand.
template <typename visitor>
void playable_visit(const stone_table& table, visitor visit) {
    const dyn_array<card>& hand = current_seat().hand;
    movable_visit(table, [&](const transition& arc, u16 stone) {
        card_set matching = rule_matching_cards(arc.rule);
        for (i64 j = 0; j < hand.count; ++j) {
            if (card_set_has(matching, card_value(hand[j]))) {
                visit(candidate{j, stone, arc.from, arc.to, arc.rule});
            }
        }
    });
}

candidate playable_pick(const stone_table& table, i64 index) {
    candidate picked = {};
    playable_visit(table, [&](const candidate& move) {
        if (index-- == 0) {
            picked = move;
        }
    });
    return picked;
}

card_set deck_values() {
    card_set values;
    for (i64 colour = 0; colour < deck_colours_bounded(); ++colour) {
        for (i64 shape = 0; shape < deck_shapes_bounded(); ++shape) {
            for (i64 number = 1; number <= deck_numbers_bounded(); ++number) {
                card_set_add(values, card_value({static_cast<u8>(colour), static_cast<u8>(shape),
                                                 static_cast<u8>(number)}));
            }
        }
    }
    return values;
}

// The cards of the current hand, counted by value.
struct hand_table {
    i64 counts[card_value_count] = {};
    card_set values;
};

hand_table hand_sort() {
    hand_table table;
    for (card c : current_seat().hand) {
        table.counts[card_value(c)] += 1;
        card_set_add(table.values, card_value(c));
    }
    return table;
}

// What the position is like with a certain card on top of the discard pile.
struct top_outlook {
    i64* own;     // per state: ways to play one of the other hand cards from it
    i64* others;  // per state: ways to play any card of the deck's kind from it
    i64 own_sum;  // of `own` over the states that hold a stone before the move
};

i64 hand_matches(const hand_table& hand, const card_set& matching) {
    card_set both = hand.values & matching;
    i64 count = 0;
    for (i64 word = 0; word < 4; ++word) {
        for (u64 bits = both.words[word]; bits != 0; bits &= bits - 1) {
            count += hand.counts[word * 64 + std::countr_zero(bits)];
        }
    }
    return count;
}

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
            i64 played = card_set_has(matching, card_value(top)) ? 1 : 0;
            outlook.own[arc.from] += hand_matches(hand, matching) - played;
            outlook.others[arc.from] += card_set_count(matching & deck_kind);
        }
    }
    card_take_top(discard_pile.cards);
    outlook.own_sum = 0;
    for (i64 s = 0; s < named_state_count(); ++s) {
        outlook.own_sum += table.count[s] > 0 ? outlook.own[s] : 0;
    }
}

i64 move_score(const top_outlook& outlook, const stone_table& table, const candidate& move) {
    i64 follow = outlook.own_sum;
    if (move.from != move.target) {
        follow -= table.count[move.from] == 1 ? outlook.own[move.from] : 0;
        follow += table.count[move.target] == 0 ? outlook.own[move.target] : 0;
    }
    return 16 * follow - outlook.others[move.target];
}

// The index, among the playable pairs, of the first one with the highest score. Pairs with equal
// cards share one outlook, so the rules are evaluated once per card value of the hand.
i64 best_playable(const stone_table& table) {
    hand_table hand = hand_sort();
    card_set deck_kind = deck_values();
    top_outlook outlook = {per_state<i64>(0), per_state<i64>(0), 0};
    i64 best_index = -1;
    i64 best_score = 0;
    for (i64 value = 0; value < card_value_count; ++value) {
        if (!card_set_has(hand.values, value)) {
            continue;
        }
        bool ready = false;
        i64 index = 0;
        playable_visit(table, [&](const candidate& move) {
            card played = current_seat().hand[move.card_index];
            if (card_value(played) == value) {
                if (!ready) {
                    outlook_compute(outlook, table, hand, deck_kind, played);
                    ready = true;
                }
                i64 score = move_score(outlook, table, move);
                bool earlier = score == best_score && index < best_index;
                if (best_index < 0 || score > best_score || earlier) {
                    best_index = index;
                    best_score = score;
                }
            }
            index += 1;
        });
    }
    return best_index;
}

void draw_or_end() {
    if (turn.card_drawn) {
        turn_end();
        return;
    }
    hand_draw();
    turn.think_timer = think_after_draw;
}

void pushdown_machine_act(const stone_table& table) {
    i64 count = 0;
    playable_visit(table, [&](const candidate&) { count += 1; });
    u64 strength = current_seat().strength;
    if (count == 0 || (strength == strength_easy && random_below(100) < 20)) {
        draw_or_end();
        return;
    }
    i64 chosen = strength == strength_hard ? best_playable(table) : random_index(count);
    candidate move = playable_pick(table, chosen);
    stone_move(move.stone, move.target);
    hand_play(move.card_index);
}

// Turing machines.

void turing_machine_act(const stone_table& table) {
    i64 count = 0;
    movable_visit(table, [&](const transition&, u16) { count += 1; });
    if (count == 0) {
        turn_pass();
        return;
    }
    i64 chosen = random_index(count);
    candidate move = {};
    movable_visit(table, [&](const transition& arc, u16 stone) {
        if (chosen-- == 0) {
            move = {no_card, stone, arc.from, arc.to, arc.rule};
        }
    });
    if (move.rule.length == 0) {
        turn_pass();
        return;
    }
    stone_move(move.stone, move.target);
    tape_apply(move.rule);
}

}  // namespace

void computer_act() {
    stone_table table = stones_locate();
    switch (machine_kind) {
        case state_machine:
            state_machine_act(table);
            break;
        case pushdown_machine:
            pushdown_machine_act(table);
            break;
        default:
            turing_machine_act(table);
    }
}
