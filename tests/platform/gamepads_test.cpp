// What the game hears of gamepads.

#include "platform/common/gamepads.h"

#include <sstream>

#include "platform/common/keyboard.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "tests/support/game.h"

namespace {

using gamepads_test = game_test;

// What the next poll finds: keys that are pressed in capitals, held ones small, and a pull.
// "-" for nothing.
std::string poll() {
    gamepads_wait();
    input_poll();
    std::ostringstream found;
    for (auto [key, letter] : {std::pair{key_up, 'u'},
                               {key_down, 'd'},
                               {key_left, 'l'},
                               {key_right, 'r'},
                               {key_enter, 'e'},
                               {key_space, 's'},
                               {key_escape, 'q'},
                               {key_f2, 'f'},
                               {key_shift, 'x'}}) {
        if (input_key_is_pressed(key) || input_key_is_held(key)) {
            found << static_cast<char>(input_key_is_pressed(key) ? letter - 'a' + 'A' : letter);
        }
    }
    if (const input_drag drag = input_dragged(); drag.dx != 0 || drag.dy != 0 || drag.zoom != 1) {
        found << " pull " << drag.dx << ' ' << drag.dy << ' ' << drag.zoom;
    }
    return found.str().empty() ? "-" : found.str();
}

// A case is acts, each followed by a poll: a pad's number and its button's, "+" or "-", or its
// number, "x", an axis and the value in hundredths; "!" unplugs it. "<" puts the act into the poll
// of the next one.
TEST_F(gamepads_test, BecomeKeysAndPulls) {
    golden_check("platform/gamepads", [](const std::string& given) {
        keyboard_release_all();
        gamepads_end();
        headless_reset();
        std::istringstream acts(given);
        std::string answer;
        for (std::string act; acts >> act;) {
            const i64 pad = act[0] - '0';
            if (act[1] == '!') {
                gamepad_gone(pad);
            } else if (act[1] == 'x') {
                gamepad_axis(pad, static_cast<pad_axis>(act[2] - '0'),
                             std::stod(act.substr(3)) / 100);
            } else {
                gamepad_button(pad, static_cast<pad_button>(act[1] - 'a'), act[2] == '+');
            }
            answer += act.ends_with('<') ? "" : (answer.empty() ? "" : ", ") + poll();
        }
        return answer;
    });
}

}  // namespace
