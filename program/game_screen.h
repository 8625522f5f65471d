#pragma once

// The board screen, shared by play and editing.

// One frame of it: takes the mouse and draws. In play the turn engine has run before; it reads the
// selection that this frame leaves at the next one.
void game_screen_frame();
