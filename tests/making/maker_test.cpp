#include "making/maker.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <set>

#include "base/fingerprint.h"
#include "making/days.h"
#include "making/plan.h"
#include "maps/family.h"
#include "maps/reader.h"
#include "maps/writer.h"
#include "rules/game_state.h"
#include "rules/random.h"
#include "tests/support/screen.h"
#include "tools/layout_check.h"
#include "tools/maker/judge.h"
#include "tools/map_files.h"

namespace {

class maker_test : public screen_test {
  protected:
    maker_test() {
        begin();
        frame();  // builds the camera's matrices
    }
};

std::string text_made(const map_wish& wish, std::string* name = nullptr) {
    arena_rewind(arena_frame, 0);
    text_builder text = text_builder_make(arena_frame);
    text_builder called = text_builder_make(arena_frame);
    if (!map_make(wish, text, called)) {
        EXPECT_EQ(text.length + called.length, 0);
        return "";
    }
    if (name != nullptr) {
        *name = view_of(text_builder_text(called));
    }
    return std::string(view_of(text_builder_text(text)));
}

i64 side_of(point a, point b, point p) {
    const f64 across = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
    return (across > 0) - (across < 0);
}

bool arrows_cross(const transition& one, const transition& other) {
    const point a = state_centre(one.from), b = state_centre(one.to);
    const point c = state_centre(other.from), d = state_centre(other.to);
    return side_of(a, b, c) * side_of(a, b, d) < 0 && side_of(c, d, a) * side_of(c, d, b) < 0;
}

std::string made_map_fault(const map_wish& wish, const std::string& text, bool looks) {
    machine_kind = wish.family;
    settings = {};
    map_read(str_of(text));
    text_builder again = text_builder_make(arena_frame);
    map_write(again);
    remarks found;
    if (looks) {
        layout_check(found);
    }
    for (const transition& one : game_map.transitions) {
        for (const transition& other : game_map.transitions) {
            if (arrows_cross(one, other)) {
                return "arrows cross";
            }
        }
    }
    return !(text_builder_text(again) == str_of(text))               ? "not in the form of files"
           : !found.looks.empty()                                    ? found.looks[0]
           : !found.labels.empty()                                   ? found.labels[0]
           : wish.states > 0 && game_map.states.count != wish.states ? "other states"
           : wish.stones > 0 && stones.count != wish.stones          ? "other stones"
                                                                     : "";
}

// QUORREL_MAKER_MAPS tells how many, for a longer run.
TEST_F(maker_test, EveryWishGivesAWellDrawnMap) {
    const char* wanted = std::getenv("QUORREL_MAKER_MAPS");
    const i64 count = wanted != nullptr ? std::atoll(wanted) : 100;
    random_seed(5);
    for (i64 i = 0; i < count; ++i) {
        map_wish wish = {random_index(machine_kind_count), 1 + random_index(map_level_limit)};
        wish.states = random_index(2) * (plan_least_places + random_index(plan_place_limit - 3));
        wish.stones = random_index(2) * (1 + random_index(made_stone_limit));
        wish.number = random_next();
        const random_state before = random_generator;
        const i64 mark = arenas[arena_persistent].offset;
        const std::string text = text_made(wish);
        ASSERT_EQ(random_generator, before);
        ASSERT_EQ(arenas[arena_persistent].offset, mark);
        if (!text.empty()) {
            ASSERT_EQ(made_map_fault(wish, text, i % 10 == 0), "") << text;
        }
    }
}

// The numbers of the maps of the day were judged on these bytes.
TEST_F(maker_test, ANumberIsTheSameMapEverywhere) {
    std::set<std::string> kinds;
    u64 fingerprint = 0;
    for (i64 family = 0; family < machine_kind_count; ++family) {
        for (u64 number = 1; number <= 200; ++number) {
            std::string name;
            const i64 level = 1 + static_cast<i64>(number % map_level_limit);
            fingerprint_add(
                fingerprint,
                str_of(text_made({.family = family, .level = level, .number = number}, &name)));
            kinds.insert(name.substr(0, name.find_first_of("123456789")));
        }
    }
    EXPECT_EQ(fingerprint, 13741070433886920611u);
    EXPECT_EQ(kinds.size(), 6u + 4 * 6 + 3 * 6 + 1);  // all outlines and ideas; "": has no room
}

TEST_F(maker_test, EveryDayHasItsMaps) {
    const i64 year = 53 * 7;
    for (i64 family = 0; family < machine_kind_count; ++family) {
        std::set<u64> numbers;
        for (i64 day = first_day; day < first_day + year; ++day) {
            const map_wish wish = day_wish(family, day);
            const map_wish again = day_wish(family, day + year);
            EXPECT_TRUE(again.number == wish.number && again.level == wish.level) << day;
            EXPECT_NE(text_made(wish), "") << day;
            numbers.insert(wish.number * 10 + static_cast<u64>(wish.level));
        }
        EXPECT_EQ(numbers.size(), year) << family;
    }
    EXPECT_EQ(day_wish(state_machine, 20'780).level, 1);  // Monday, 2026-11-23
    EXPECT_EQ(day_wish(state_machine, 20'786).level, 5);
}

// Maps that ship, and why they are not what is made.
TEST_F(maker_test, WhatIsNotGoodIsRefused) {
    const struct {
        i64 family;
        const char* map;
        const char* fault;
    } cases[] = {
        {state_machine, "state/three_heaps", "none"},
        {state_machine, "state/ladder", "there is hardly a choice"},
        {state_machine, "state/cyclic/loop_relay", "it is doubtful to the check"},
        {pushdown_machine, "pushdown/first_cards", "a rule matches hardly any card or nearly all"},
        {turing_machine, "turing/first_tape", "one seat wins too often"},
        {turing_machine, "turing/rainbow", "a game does not end"},
    };
    for (const auto& c : cases) {
        const std::string maps = QUORREL_SOURCE_DIR "/resources/maps/";
        judgement judged;
        output_of([&] { judged = map_judge({c.family, "", file_get(maps + c.map)}, 2); });
        EXPECT_STREQ(judged.fault != nullptr ? judged.fault : "none", c.fault) << c.map;
    }
}

}  // namespace
