#pragma once

// The whole program on the headless platform, driven frame by frame with scripted input alone.
//
// Places are offsets in pixels from the window's centre, y upwards: with the camera at its start
// they are world units too.

#include <functional>
#include <string>
#include <string_view>

#include "platform/input.h"
#include "tests/support/draws.h"

// Starts every test in a directory with pictures, a font (13 by 32 pixels at size 256) and empty
// catalogues. A test adds its files, then begins.
class program_test : public game_test {
  protected:
    program_test();
    ~program_test() override;

    // Runs the start-up with calls recorded; returns what it wrote.
    std::string begin();
    void end();

    // Begins, and shows the board with these seats (see `seats_make`), the first one to move.
    void begin_game(std::string_view kinds);

  private:
    arena outside_arenas[arena_count];
    bool running = false;
};

void frames(i64 count);
// One frame in which the key goes down and up.
bool key(u32 code);
// The button with that label, which must be drawn on the next frame.
void press_button(std::string_view label);

// The screens that are open, by their letters: title, setup, list, editor; none for the game.
void screens_show(std::string_view letters);
std::string screens_shown();

// What the last frame drew, one line each: the pictures in their order, "name x y width height";
// the buttons, "[label] x y width height" around their centres; the other texts with their
// centres. A tint follows unless it is white, a text's size unless it is 256.
std::string screen_text();
// The lines of it that `wanted` accepts.
std::string screen_lines(const std::function<bool(std::string_view)>& wanted);
std::string lines_with(std::string_view part);
bool is_drawn(std::string_view line);
