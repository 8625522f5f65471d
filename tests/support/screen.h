#pragma once

// The whole program on the headless platform, driven frame by frame with scripted input, and what
// its frames draw, read back from the GPU calls as one line per thing.
//
// Places are offsets in pixels from the window's centre, y upwards: with the camera at its start
// they are world units too.

#include "base/point.h"
#include "platform/headless/headless.h"
#include "platform/input.h"
#include "tests/support/game.h"

// Starts every test in a directory with made-up pictures, a monospaced font (cells of 13 by 32
// pixels at size 256) and empty catalogues. A test adds its files, then begins.
class screen_test : public game_test {
  protected:
    screen_test();
    ~screen_test() override;

    // Runs the start-up with calls recorded.
    void begin();
    void end();

  private:
    arena outside_arenas[arena_count];
    bool running = false;
};

// Runs one frame, whose calls are then the recorded ones; false when the program has to end.
bool frame();
// Called after the start-up and after every frame, where it is set.
extern void (*frame_watch)();
void point_at(f64 x, f64 y);
// One click in one frame.
bool click(f64 x, f64 y, u32 button = mouse_left);

// The name of a slot's picture file, "unknown" for none.
std::string picture_name(i64 slot);
// Where the unit quad's point (u, v) of a draw lands.
point place_of(const gpu_draw& draw, f64 u, f64 v);

// What was drawn off screen since the calls were forgotten, in order:
//
//   [label] x y width height           a button, around its centre
//   "text" x y                         around the centre of its first line; the letters of icons
//                                      stand for them, with a '%' where a letter is none
//   card Ca3 x y side                  from its lower-left corner
//   arrow x y to x y                   from the middle of its foot to its tip
//   picture x y width height           from its own lower-left to its own upper-right corner
//
// with a text's size unless it is 256 and a tint unless it is white.
std::vector<std::string> drawn_lines();
// The lines of it that hold `part`, each ended by a line feed.
std::string drawn(std::string_view part = "");
