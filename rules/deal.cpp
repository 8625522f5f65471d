#include "rules/deal.h"

#include <algorithm>
#include <cassert>

#include "base/message.h"
#include "maps/catalogue.h"
#include "maps/model.h"
#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/check.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/screens.h"

// The deck is built in the order of its kinds, shuffled once and dealt from its top: the tape
// first, then each seat its hand, or its goal, in the seats' order. An empty deck goes on giving
// the card (0, 0, 1). The seed and this order alone decide a deal, so it can be played again; the
// work is bounded by `pile_limit` cards for each pile whatever the map asks for.

namespace {

// `count` bounded to what a pile may hold; says so when that cuts it.
i64 pile_size(i64 count, str pile_name) {
    if (count > pile_limit) {
        message_write({pile_name, " limited to 10000 cards\n"});
    }
    return std::clamp(count, i64{0}, pile_limit);
}

// Copies of the map's kinds of cards, one after the other.
void deck_build() {
    card_kinds kinds = deck_kinds();
    i64 copies = std::clamp(settings.deck_copies, i64{0}, pile_limit + 1);
    i64 count = pile_size(card_kinds_count(kinds) * copies, "deck");
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
    i64 hand_size = 0;
    if (machine_kind == pushdown_machine) {
        hand_size = pile_size(settings.hand_size, "hand");
    }
    for (player& seat : players) {
        deal(seat.hand, hand_size);
        if (machine_kind == turing_machine) {
            seat.goal = goal_deal();
        }
    }
}

}  // namespace

void game_start() {
    screens.title_menu_open = false;
    screens.player_setup_open = false;
    screens.map_list_open = false;
    turn.move_timer = 0;
    if (const catalogue_entry* entry = catalogue_selected()) {
        map_load(entry->path);
    }
    discard_pile.cards.count = 0;
    deck_build();
    deck_shuffle();
    deal(tape, pile_size(settings.tape_length, "tape"));
    seats_deal();
    turn.current_player = 0;
    turn.winner = no_winner;
    turn.turn_revealed = players.count > 0 && !players[0].is_computer;
    if (stones.count == 0) {
        dyn_array_push(stones, 0);
        dyn_array_push(stones, 0);
    }
    fault_assert(players.count > 0 ? game_fault : state_fault);
}
