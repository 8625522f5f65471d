#include "tools/maker/choices.h"

#include "maps/model.h"
#include "rules/rule.h"

namespace {

i64 nimber_sum() {
    i64 sum = 0;
    for (u16 state : stones) {
        sum ^= state_nimber(state);
    }
    return sum;
}

// Cards of the hand that fit the transition.
i64 cards_fitting(const transition& arc, const dyn_array<card>& hand) {
    i64 count = 0;
    for (card c : hand) {
        count += rule_matches(arc.rule, c) ? 1 : 0;
    }
    return count;
}

void state_choices_count(choice_count& count) {
    const i64 sum = nimber_sum();
    choice_count here;
    for (u16 from : stones) {
        for (const transition& arc : game_map.transitions) {
            const bool leaves = arc.from == from;
            here.offered += leaves ? 1 : 0;
            here.good += leaves && (sum ^ state_nimber(from)) == state_nimber(arc.to) ? 1 : 0;
        }
    }
    if (here.good > 0) {
        count.offered += here.offered;
        count.good += here.good;
    }
}

void card_choices_count(choice_count& count, const player& seat) {
    i64 offered = 0;
    for (u16 from : stones) {
        for (const transition& arc : game_map.transitions) {
            if (arc.from == from) {
                offered += machine_kind == turing_machine ? 1 : cards_fitting(arc, seat.hand);
            }
        }
    }
    count.offered += offered;
    count.good += offered > 0 ? 1 : 0;
}

}  // namespace

void choices_count(choice_count& count, const play_event& event) {
    if (event.kind != play_deal && event.kind != play_move) {
        return;
    }
    if (machine_kind == state_machine) {
        state_choices_count(count);
        return;
    }
    const i64 next = event.kind == play_deal ? event.seat : (event.seat + 1) % players.count;
    card_choices_count(count, players[next]);
}

f64 choice_of(const choice_count& count) {
    return count.good == 0 ? 1 : static_cast<f64>(count.offered) / static_cast<f64>(count.good);
}
