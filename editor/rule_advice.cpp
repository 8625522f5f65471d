#include "editor/rule_advice.h"

#include <iterator>

#include "base/numbers.h"
#include "base/tidings.h"
#include "maps/card.h"
#include "maps/model.h"
#include "rules/rule.h"

rule_advice_record rule_advice;

namespace {

constexpr str ordinals[] = {"first", "second",  "third",  "fourth", "fifth",
                            "sixth", "seventh", "eighth", "ninth",  "tenth"};

void complain(std::initializer_list<str> parts) {
    tiding_tell(tiding_refusal, parts);
    rule_advice.complained = true;
}

void rule_stop_tell(str rule, bool finished) {
    const rule_stop stop = rule_stop_find(rule);
    if (stop.reason.length == 0) {
        return;
    }
    if (stop.position < i64{std::size(ordinals)} && stop.position < rule.length) {
        complain(
            {"this rule stops at its ", ordinals[stop.position], " letter because ", stop.reason});
    } else if (stop.position < rule.length) {
        complain({"this rule stops at its letter ", number_text(stop.position + 1), " because ",
                  stop.reason});
    } else if (finished) {
        complain({"this rule stops at its end because ", stop.reason});
    }
}

void action_tell(str action, bool finished) {
    card_property written;
    const bool writes = action.length > 0 && card_property_read(action[0], written);
    const bool moves = action.length > 1 && (action[1] == 'L' || action[1] == 'R');
    if (action.length > 1 && !moves) {
        complain(
            {"the second letter of this rule is neither L nor R: the head "
             "stays where it is"});
    } else if (finished && !writes && !moves) {
        complain(
            {"this rule does nothing: its first letter is no colour, shape "
             "or number, and there is no L or R behind it"});
    }
}

}  // namespace

void rule_advice_tell(str rule, bool finished) {
    const bool complained_before = rule_advice.complained;
    rule_advice.complained = false;
    if (machine_kind == pushdown_machine) {
        rule_stop_tell(rule, finished);
    } else if (machine_kind == turing_machine) {
        action_tell(rule, finished);
    }
    if (complained_before && !rule_advice.complained) {
        tiding_tell(tiding_news, {"this rule can be read"});
    }
}
