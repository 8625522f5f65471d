// What the game hears of fingers on a touch screen.

#include "platform/common/gestures.h"

#include <sstream>

#include "platform/headless/headless.h"
#include "platform/input.h"
#include "tests/support/game.h"

namespace {

using gestures_test = game_test;

// What the next poll finds; empty for nothing.
std::string poll() {
    input_poll();
    std::ostringstream found;
    f64 x = 0;
    f64 y = 0;
    input_mouse_position(x, y);
    for (auto [button, name] : {std::pair{mouse_left, "click"}, {mouse_right, "right"}}) {
        if (input_mouse_is_pressed(button) && input_mouse_is_released(button)) {
            found << name << ' ' << x << ' ' << y << (input_mouse_hovers() ? "" : " away");
        }
    }
    input_drag drag = input_dragged();
    if (drag.dx != 0 || drag.dy != 0 || drag.zoom != 1) {
        found << "drag " << drag.x << ' ' << drag.y << " by " << drag.dx << ' ' << drag.dy
              << " zoom " << drag.zoom << " from " << drag.from_x << ' ' << drag.from_y;
    }
    return found.str();
}

// A case is what each finger does: its number, "+" for down, "=" for moved, "-" for up, "!" for
// cancelled, the place, "@" and the time; finger 0 only lets time pass. The answer is what the game
// hears after each; "<" puts the act into the poll of the next one.
TEST_F(gestures_test, BecomeClicksAndDrags) {
    golden_check("platform/gestures", [](const std::string& given) {
        headless_reset();
        std::string answer;
        for (const std::string& word : words_of(given)) {
            std::istringstream in(word.substr(word.find_first_not_of('<')));
            finger_event event = {};
            char act = 0;
            char comma = 0;
            in >> event.finger >> act >> event.x >> comma >> event.y >> comma >> event.time;
            event.phase = static_cast<finger_phase>(std::string("+=-!").find(act));
            event.finger == 0 ? gestures_wait(event.time) : gestures_feed(event, 10);
            if (!word.ends_with('<')) {
                std::string found = poll();
                answer += (answer.empty() ? "" : "; ") + (found.empty() ? "-" : found);
            }
        }
        EXPECT_EQ(poll(), "");
        EXPECT_EQ(input_mouse_hovers(),
                  answer.find("click") == answer.npos && answer.find("right") == answer.npos);
        return answer;
    });
}

}  // namespace
