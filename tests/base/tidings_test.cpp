#include "base/tidings.h"

#include "tests/support/game.h"

namespace {

using tidings_test = game_test;

std::string told(std::initializer_list<str> parts) {
    tidings = {};
    tiding_tell(tiding_news, parts);
    return {tidings.text, static_cast<std::size_t>(tidings.length)};
}

TEST_F(tidings_test, whatever_the_bytes_are_a_line_is_shown) {
    EXPECT_EQ(told({"failed: ", "für Zoë ☃ 𝄞"}), "failed: für Zoë ☃ 𝄞");
    EXPECT_EQ(told({"a\n\x1b[1m\x7f\xc2\x9b"}), "a??[1m???");
    EXPECT_EQ(told({"\xe2\x80\xae\xed\xa0\x80\xc0\x80\xf8\x90", "\xe2\x98"}), std::string(12, '?'));
    const std::string longest = std::string(116, 'a') + "…";
    EXPECT_EQ(told({str_of(std::string(116, 'a') + "☃☃"), " is no map"}), longest + " is no map");
    const std::string all(400, 'b');
    std::string cut = told({str_of(all), str_of(all), str_of(all), "c"});
    EXPECT_LE(cut.size(), std::size_t{tiding_limit});
    EXPECT_EQ(cut.substr(cut.size() - 4), "b…");
}

TEST_F(tidings_test, the_latest_is_shown_unless_a_graver_one_has_its_time) {
    str shown;
    EXPECT_FALSE(tidings_step(shown));
    EXPECT_EQ(output_of([] { failure_tell({"lost ", "it"}); }), "lost it\n");
    tiding_tell(tiding_news, {"found"});
    EXPECT_TRUE(tidings_step(shown));
    EXPECT_EQ(shown, str("lost it"));
    auto steps_until = [&](str line) {
        i32 steps = 1;
        while (!tidings_step(shown)) {
            steps += 1;
        }
        EXPECT_EQ(shown, line);
        return steps;
    };
    tiding_tell(tiding_news, {"found"});
    EXPECT_EQ(steps_until("found"), tiding_least_frames + 1);
    tiding_tell(tiding_news, {"found more"});
    EXPECT_EQ(steps_until("found more"), 1);
    EXPECT_EQ(steps_until(""), tiding_frames);
    EXPECT_FALSE(tidings_step(shown));
}

// A change of what stands ends a refusal, which is of the past, but not a failure; nothing else
// does.
TEST_F(tidings_test, a_line_stands_below_them) {
    str shown;
    standing_tell({"Red's turn", " - ", "a\n\x1b"});
    EXPECT_TRUE(standing_step(shown));
    EXPECT_EQ(shown, str("Red's turn - a??"));
    standing_tell({"Red's turn", " - ", "a\n\x1b"});
    EXPECT_FALSE(standing_step(shown));
    for (auto [kind, ends] : {std::pair{tiding_refusal, true}, {tiding_failure, false}}) {
        tiding_tell(kind, {"no"});
        EXPECT_TRUE(tidings_step(shown));
        standing_tell({ends ? str("Blue's turn") : str("Green's turn")});
        bool over = tidings_step(shown);
        EXPECT_EQ(over && shown.length == 0, ends);
    }
}

}  // namespace
