#include "platform/common/pacing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr i64 second = 1'000'000'000;
constexpr i64 millisecond = 1'000'000;

struct played {
    i64 frames;
    i64 pictures;
    i64 torn;     // pictures that did not begin with one of the display
    i64 undrawn;  // the most in a row
};

// Plays ten seconds on a display of a rate, with a renderer that takes so long for a picture.
played play(i32 rate, i64 drawing) {
    pacing pace = pacing_begin(0);
    pacing_set_display(pace, rate);
    played seen = {};
    i64 undrawn = 0;
    for (i64 now = 0; now < 10 * second; ++seen.frames) {
        if (pace.has_time) {
            now += drawing;
            i64 next_picture = (now * rate / second + 1) * second / rate;
            now = pace.in_step ? next_picture : now;
            seen.torn += pace.in_step ? 0 : 1;
            ++seen.pictures;
        }
        undrawn = pace.has_time ? 0 : undrawn + 1;
        seen.undrawn = std::max(seen.undrawn, undrawn);
        now = pacing_frame_end(pace, now);
    }
    return seen;
}

TEST(pacing, sixty_frames_a_second_on_every_display) {
    for (i32 rate : {50, 60, 75, 120, 144, 165, 240}) {
        for (i64 drawing : {0, 2, 7}) {
            played seen = play(rate, drawing * millisecond);
            EXPECT_NEAR(static_cast<f64>(seen.frames), 600, 1) << rate << " Hz, " << drawing;
            EXPECT_EQ(seen.pictures, seen.frames) << rate << " Hz, " << drawing;
            EXPECT_EQ(seen.torn > 0, rate == 50 || rate == 75) << rate << " Hz";
        }
    }
    EXPECT_EQ(play(59, millisecond).undrawn, 0) << "the display's pace is taken over";
}

TEST(pacing, sixty_frames_a_second_with_slow_renderers) {
    for (i32 rate : {60, 75, 144}) {
        for (i64 drawing : {18, 25, 33, 45, 49}) {
            played seen = play(rate, drawing * millisecond);
            EXPECT_NEAR(static_cast<f64>(seen.frames), 600, 6) << rate << " Hz, " << drawing;
            EXPECT_GE(seen.pictures, 150) << rate << " Hz, " << drawing;
            EXPECT_LE(seen.undrawn, 3) << rate << " Hz, " << drawing;
        }
    }
    EXPECT_NEAR(static_cast<f64>(play(50, 100 * millisecond).frames), 400, 4)
        << "four frames for each picture";
}

TEST(pacing, goes_on_from_where_it_was_after_a_stop) {
    pacing pace = pacing_begin(0);
    i64 now = pacing_frame_end(pace, 3600 * second);
    i64 undrawn = 0;
    for (; !pace.has_time; ++undrawn) {
        now = pacing_frame_end(pace, now);
    }
    EXPECT_EQ(undrawn, 3);
    EXPECT_EQ(pacing_frame_end(pace, now + 1), 3600 * second + second / 60);
}

TEST(pacing, nothing_is_missed_while_nothing_was_due) {
    pacing pace = pacing_begin(0);
    const i64 due = pacing_frame_end(pace, 0);
    EXPECT_EQ(pacing_wake(pace, due - 1), 0);
    EXPECT_EQ(pacing_wake(pace, pacing_after(pace, 90) + 1), 90);
    EXPECT_GT(pacing_frame_end(pace, pace.due + 1), due + 90 * (second / 60));
    EXPECT_TRUE(pace.has_time);
}

TEST(pacing, a_slow_game_is_drawn_nevertheless) {
    pacing pace = pacing_begin(0);
    i64 drawn = 0;
    for (i64 now = 0, frame = 0; frame < 40; ++frame) {
        drawn += pace.has_time ? 1 : 0;
        now = pacing_frame_end(pace, now + 200 * millisecond);
    }
    EXPECT_EQ(drawn, 10);
}

TEST(pacing, pictures_are_dear_that_take_more_than_half_a_frame) {
    pacing pace = pacing_begin(0);
    auto dear_after = [&pace](i64 pictures, i64 cost) {
        for (; pictures > 0; --pictures) {
            pacing_cost_add(pace, cost * millisecond);
        }
        return pacing_is_dear(pace);
    };
    EXPECT_FALSE(dear_after(1, 50)) << "a single one";
    EXPECT_FALSE(dear_after(100, 8));
    EXPECT_TRUE(dear_after(100, 9));
    EXPECT_FALSE(dear_after(20, 2)) << "they were dear";
}

TEST(pacing, acts_bring_a_frame_forward_but_no_more_frames) {
    pacing pace = pacing_begin(0);
    i64 frames = 0;
    for (i64 now = 0; now < 10 * second; ++frames) {
        pacing_frame_end(pace, now);
        now = std::max(now, pacing_earliest(pace));
    }
    EXPECT_NEAR(static_cast<f64>(frames), 600, 2) << "the mouse never rests";
}

}  // namespace
