#include "rules/deal.h"

#include <algorithm>
#include <cassert>

#include "base/message.h"
#include "maps/catalogue.h"
#include "maps/loading.h"
#include "maps/map_work.h"
#include "maps/model.h"
#include "rules/acts.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "shown/screens.h"

// The deck is built in the order of its kinds, shuffled once and dealt from its top: the tape
// first, then each seat its hand, or its goal, in the seats' order. An empty deck goes on giving
// the card (0, 0, 1). The seed and this order alone decide a deal, so it can be played again; the
// work is bounded by `pile_limit` cards for each pile whatever the map asks for.

deal_record last_deal;

namespace {

// How many cards the map asks for in a pile.
i64 deck_wanted() {
    return card_kinds_count(deck_kinds()) *
           std::clamp(settings.deck_copies, i64{0}, pile_limit + 1);
}

i64 hand_wanted() {
    return machine_kind == pushdown_machine ? settings.hand_size : 0;
}

i64 pile_size(i64 wanted) {
    return std::clamp(wanted, i64{0}, pile_limit);
}

void pile_limit_tell(i64 wanted, str pile_name) {
    if (wanted > pile_limit) {
        message_write({pile_name, " limited to 10000 cards\n"});
    }
}

// Copies of the map's kinds of cards, one after the other.
void deck_build() {
    card_kinds kinds = deck_kinds();
    i64 count = pile_size(deck_wanted());
    deck.cards.count = 0;
    for (i64 i = 0; i < count; ++i) {
        dyn_array_push(deck.cards, card_at(kinds, i % card_kinds_count(kinds)));
    }
}

void deal(dyn_array<card>& pile, i64 count) {
    assert(0 <= count && count <= pile_limit);
    pile.count = 0;
    for (i64 i = 0; i < count; ++i) {
        dyn_array_push(pile, card_take_top(deck.cards));
    }
}

goal goal_deal() {
    return goals.count == 0 ? goal{} : goals[random_index(goals.count)];
}

void seats_deal() {
    for (player& seat : players) {
        deal(seat.hand, pile_size(hand_wanted()));
        if (machine_kind == turing_machine) {
            seat.goal = goal_deal();
        }
    }
}

void cards_deal() {
    discard_pile.cards.count = 0;
    deck_build();
    deck_shuffle();
    deal(tape, pile_size(settings.tape_length));
    seats_deal();
    turn.current_player = 0;
    turn.winner = no_winner;
    last_done = {{}, 0, false, {}, last_done.number + 1};
    turn.turn_revealed = players.count > 0 && !players[0].is_computer;
}

}  // namespace

void game_start() {
    if (const catalogue_entry* entry = catalogue_selected()) {
        map_load(entry->path);
    } else if (map_work_is_played()) {
        map_work_load();
    }
    game_start_loaded();
}

void game_start_loaded() {
    screens.title_menu_open = false;
    screens.player_setup_open = false;
    screens.map_list_open = false;
    turn.move_timer = 0;
    last_deal = {last_deal.number + 1, {random_generator, tape_head, turn.card_drawn}};
    pile_limit_tell(deck_wanted(), "deck");
    pile_limit_tell(settings.tape_length, "tape");
    pile_limit_tell(hand_wanted(), "hand");
    cards_deal();
    if (stones.count == 0) {
        dyn_array_push(stones, 0);
        dyn_array_push(stones, 0);
    }
    fault_assert(players.count > 0 ? game_fault : state_fault);
}

void game_deal_again(const deal_start& start) {
    random_generator = start.chance;
    tape_head = start.tape_head;
    turn.card_drawn = start.card_drawn;
    turn.move_timer = 0;
    cards_deal();
}
