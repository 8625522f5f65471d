// A rule or a goal of any bytes is explained, with cards and without.
//
// The first two bytes are the card that is played and the top card, by their values; those beyond
// are none. The rest is the rule or the line of the goal.

#include "fuzz/fuzz.h"
#include "rules/cards.h"
#include "rules/rule.h"
#include "tools/commands.h"

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    const u8 played = input.byte();
    const u8 top = input.byte();
    request asked;
    asked.names = {input.rest};
    asked.has_card = played < card_value_count;
    asked.has_tape = asked.has_card && top < card_value_count;
    if (asked.has_card) {
        asked.played = card_of_value(played);
    }
    if (top < card_value_count) {
        dyn_array_push(discard_pile.cards, card_of_value(top));
    }
    if (asked.has_tape) {
        dyn_array_push(tape, asked.played);
        dyn_array_push(tape, card_of_value(top));
    }
    const int status = explain_command(asked);
    if (!input.rest.starts_with("goal ") && asked.has_card) {
        fuzz_expect((status == all_well) == rule_matches(str_from(input.rest), asked.played),
                    "a rule is explained as it is played");
    }
    return 0;
}
