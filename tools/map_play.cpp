#include "tools/map_play.h"

#include <algorithm>
#include <set>

#include "base/arena.h"
#include "game/record.h"
#include "game/turn_update.h"
#include "maps/model.h"
#include "rules/cards.h"
#include "rules/deal.h"
#include "rules/random.h"
#include "rules/rule.h"
#include "rules/seats.h"
#include "rules/turns.h"
#include "shown/flight.h"
#include "shown/selection.h"
#include "tools/progress.h"
#include "tools/ways_out.h"

namespace {

// A human draws in one of so many turns although a card fits.
constexpr u64 draw_instead = 5;

void seats_make(const std::vector<i64>& kinds) {
    player_count = std::ssize(kinds);
    seats_adjust();
    for (i64 i = 0; i < players.count; ++i) {
        const i64 kind = kinds[static_cast<std::size_t>(i)];
        players[i].is_computer = kind != human_seat;
        players[i].strength = static_cast<u64>(kind != human_seat ? kind : i64{strength_easy});
        seat_colour_set(players[i], i);
    }
}

// The stones as the map has them. Without a catalogue a new game is played on the loaded map as it
// stands, so they are put back before each one.
using stone_places = std::vector<u16>;

void stones_put_back(const stone_places& places) {
    stones.count = 0;
    for (u16 state : places) {
        dyn_array_push(stones, state);
    }
}

// Adds the selections that move a stone along the transition, one for each card that may be played.
void selections_add(u16 index, std::vector<selection_record>& selections) {
    const transition& arc = game_map.transitions[index];
    if (machine_kind != pushdown_machine) {
        selections.push_back({arc.from, arc.to, index, no_card});
        return;
    }
    const dyn_array<card>& hand = current_seat().hand;
    for (i64 i = 0; i < hand.count; ++i) {
        if (rule_matches(arc.rule, hand[i])) {
            selections.push_back({arc.from, arc.to, index, i});
        }
    }
}

// The transitions that leave a state with a stone, in their order.
std::vector<i64> transitions_at_stones(const ways_out& ways) {
    std::set<i64> found;
    for (u16 state : stones) {
        if (state_exists(state)) {
            found.insert(ways[state].begin(), ways[state].end());
        }
    }
    return {found.begin(), found.end()};
}

// Every move that a human can select now: only the first transition between two states can be.
std::vector<selection_record> selections_find(const ways_out& ways) {
    std::vector<selection_record> selections;
    std::set<std::pair<u16, u16>> seen;
    for (i64 t : transitions_at_stones(ways)) {
        const transition& arc = game_map.transitions[t];
        if (transition_exists(arc) && seen.insert({arc.from, arc.to}).second) {
            selections_add(static_cast<u16>(t), selections);
        }
    }
    return selections;
}

bool human_is_asked() {
    return turn.winner == no_winner && !current_seat().is_computer && turn.move_timer <= 0;
}

// Selects a move for the next update, draws a card or ends the turn; false when none can be done.
bool human_act(const ways_out& ways) {
    std::vector<selection_record> selections = selections_find(ways);
    bool may_draw = machine_kind == pushdown_machine && !turn.card_drawn && deck.cards.count > 0;
    if (!selections.empty() && !(may_draw && random_below(draw_instead) == 0)) {
        selection = selections[random_below(selections.size())];
    } else if (may_draw) {
        record_take({act_draw});
    } else if (turn.card_drawn && deck.cards.count > 0) {
        record_take({act_end});
    } else {
        return false;
    }
    return true;
}

enum update_result { turn_goes_on, turn_ended, game_stuck };

void tell(const play_listener& listen, play_event_kind kind, i64 seat) {
    listen({kind, seat, kind == play_move ? flight.moving_stone : no_index});
}

// Runs one update, counts and tells what it did. A seat that does nothing when it may act cannot
// move, and nobody after it can.
update_result update_count(const ways_out& ways, play_record& counted,
                           const play_listener& listen) {
    i64 seat = turn.current_player;
    bool was_moving = turn.move_timer > 0;
    bool was_thinking = turn.think_timer > 0;
    bool had_drawn = turn.card_drawn;
    flight.moving_stone = no_index;
    arena_rewind(arena_frame, 0);
    turn_update();
    if (was_moving) {
        return turn.move_timer <= 0 ? turn_ended : turn_goes_on;
    }
    bool asked = human_is_asked();
    if (asked && !human_act(ways)) {
        return game_stuck;
    }
    bool moving = turn.move_timer > 0;
    bool passed_at_once = had_drawn && !turn.card_drawn;
    bool moved = flight.moving_stone != no_index;
    bool passed = passed_at_once || (moving && !moved);
    bool drew = !had_drawn && turn.card_drawn;
    counted.moves += moved ? 1 : 0;
    counted.passes += passed ? 1 : 0;
    counted.draws += drew ? 1 : 0;
    if (moved || passed || drew) {
        tell(listen, moved ? play_move : passed ? play_pass : play_draw, seat);
    }
    if (!asked && !was_thinking && !moving && turn.card_drawn == had_drawn) {
        return game_stuck;
    }
    return passed_at_once ? turn_ended : turn_goes_on;
}

void game_play(const ways_out& ways, i64 most_turns, play_record& counted,
               const play_listener& listen) {
    game_start();
    record = {};  // none is kept of these games: it would write down the map for each
    record.deal = last_deal.number;
    tell(listen, play_deal, turn.current_player);
    i64 turns = 0;
    update_result result = turn_goes_on;
    while (turn.winner == no_winner && result != game_stuck && turns < most_turns) {
        result = update_count(ways, counted, listen);
        turns += result == turn_ended ? 1 : 0;
    }
    counted.turns.push_back(turns);
    tell(listen, turn.winner != no_winner ? play_win : play_end, turn.current_player);
    if (turn.winner != no_winner) {
        counted.wins[turn.winner] += 1;
        counted.at_once += turns == 1 ? 1 : 0;
    } else if (current_seat().is_computer || result != game_stuck) {
        counted.unfinished += 1;
    } else {
        counted.stuck += 1;
    }
}

}  // namespace

play_record map_play(const std::vector<i64>& seats, i64 games, u64 seed, i64 most_turns,
                     const play_listener& listen) {
    play_record counted = {std::vector<i64>(seats.size()), {}, 0, 0, 0, 0, 0, 0};
    const stone_places places(stones.begin(), stones.end());
    const ways_out ways = ways_out_find();
    seats_make(seats);
    random_seed(seed);
    for (i64 game = 0; game < games; ++game) {
        progress_show("games", game, games);
        stones_put_back(places);
        game_play(ways, most_turns, counted, listen);
    }
    progress_end();
    return counted;
}

i64 median(std::vector<i64> values) {
    if (values.empty()) {
        return 0;
    }
    auto middle = values.begin() + (static_cast<i64>(values.size()) - 1) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
