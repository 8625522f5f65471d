// A rule or a goal of any bytes is explained, with cards and without.
//
// The first two bytes are the card that is played and the top card, by their values; those beyond
// are none. The rest is the rule or the line of the goal.

#include "fuzz/fuzz.h"
#include "rules/rule.h"
#include "tools/card_words.h"
#include "tools/commands.h"

namespace {

void card_add(words& arguments, std::string_view option, const std::string& text) {
    if (!text.empty()) {
        arguments.push_back(option);
        arguments.push_back(text);
    }
}

std::string card_or_none(u8 value) {
    return value < card_value_count ? card_text(card_of_value(value)) : std::string();
}

}  // namespace

int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    fuzz_begin();
    fuzz_input input(data, size);
    const u8 value = input.byte();
    const std::string played = card_or_none(value);
    const std::string top = card_or_none(input.byte());
    words arguments = {input.rest};
    card_add(arguments, "--card", played);
    card_add(arguments, "--top", top);
    const std::string both = played + "," + top;
    if (!played.empty() && !top.empty()) {
        card_add(arguments, "--tape", both);
    }
    const int status = explain_command(arguments);
    if (!input.rest.starts_with("goal ") && !played.empty() && status != not_understood) {
        fuzz_expect(
            (status == all_well) == rule_matches(str_from(input.rest), card_of_value(value)),
            "a rule is explained as it is played");
    }
    return 0;
}
