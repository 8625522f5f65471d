#include "rules/deal.h"

#include <algorithm>
#include <utility>

#include "base/message.h"
#include "maps/catalogue.h"
#include "maps/model.h"
#include "maps/reader.h"
#include "rules/cards.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "rules/screens.h"

namespace {

// `count` bounded to what a pile may hold; says so when that cuts it.
i64 pile_size(i64 count, str pile_name) {
    if (count > pile_limit) {
        message_write({pile_name, " limited to 10000 cards\n"});
    }
    return std::clamp(count, i64{0}, pile_limit);
}

void deck_add_copy(i64 limit) {
    for (i64 colour = 0; colour < deck_colours_bounded(); ++colour) {
        for (i64 shape = 0; shape < deck_shapes_bounded(); ++shape) {
            for (i64 number = 1; number <= deck_numbers_bounded(); ++number) {
                if (deck.cards.count < limit) {
                    dyn_array_push(deck.cards, {static_cast<u8>(colour), static_cast<u8>(shape),
                                                static_cast<u8>(number)});
                }
            }
        }
    }
}

void deck_build() {
    deck.cards.count = 0;
    i64 cards_per_copy = deck_colours_bounded() * deck_shapes_bounded() * deck_numbers_bounded();
    i64 copies = std::clamp(settings.deck_copies, i64{0}, pile_limit + 1);
    i64 limit = pile_size(cards_per_copy * copies, "deck");
    while (deck.cards.count < limit) {
        deck_add_copy(limit);
    }
}

void deal(dyn_array<card>& pile, i64 count) {
    pile.count = 0;
    for (i64 i = 0; i < count; ++i) {
        dyn_array_push(pile, card_take_top(deck.cards));
    }
}

goal goal_deal() {
    return goals.count == 0 ? goal{} : goals[static_cast<i64>(random_below(u64(goals.count)))];
}

void seats_deal() {
    i64 hand_size = 0;
    if (machine_kind == pushdown_machine) {
        hand_size = pile_size(settings.hand_size, "hand");
    }
    for (player& seat : players) {
        deal(seat.hand, hand_size);
        if (machine_kind == turing_machine) {
            seat.own_goal = goal_deal();
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
}

void deck_shuffle() {
    for (i64 i = deck.cards.count - 1; i >= 1; --i) {
        i64 j = static_cast<i64>(random_below(static_cast<u64>(i) + 1));
        std::swap(deck.cards[i], deck.cards[j]);
    }
}

void deck_refill() {
    if (deck.cards.count > 0) {
        return;
    }
    // Each pile takes over the other's storage, so that neither writes into the other's cards.
    std::swap(deck.cards, discard_pile.cards);
    deck_shuffle();
}
